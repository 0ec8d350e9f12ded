#include "player/CompilationImage.h"

#include "unit/support/NativePath.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velluto {
namespace {

using namespace std::string_literals;
using test::Native;

// "directory:name" of each file.
std::vector<std::string> Files(const std::string &image)
{
    std::vector<std::string> files;
    ImageWalk walk(image);
    ImageEntry entry;
    while (walk.Next(entry)) {
        files.push_back(std::string(entry.directory) + ":" + std::string(entry.name));
    }
    return files;
}

using List = std::vector<std::string>;

TEST(CompilationImage, AnEmptyOneHasNoFiles)
{
    EXPECT_EQ(Files(""), List());
    EXPECT_EQ(Files("\xFF"), List());
}

TEST(CompilationImage, AGroupGivesItsDirectoryToEachOfItsFiles)
{
    EXPECT_EQ(Files("\1/d\0a.mid\0b.mid\0\1/e\0c.mid\0\xFF"s), (List{"/d:a.mid", "/d:b.mid", "/e:c.mid"}));
}

TEST(CompilationImage, NothingBehindTheEndMarkIsRead)
{
    EXPECT_EQ(Files("\1/d\0a\0\xFF\1/e\0b\0\xFF"s), List{"/d:a"});
}

TEST(CompilationImage, ADamagedOneIsReadAsFarAsItGoes)
{
    EXPECT_EQ(Files("\1/d"s), List());
    EXPECT_EQ(Files("\1/d\0"s), List());
    EXPECT_EQ(Files("\1/d\0a"s), List{"/d:a"});
    EXPECT_EQ(Files("\1/d\0a\0"s), List{"/d:a"});
    EXPECT_EQ(Files("a\0"s), List{":a"});
    EXPECT_EQ(Files("\0\0"s), (List{":", ":"}));
}

TEST(CompilationImage, EndsEverywhereWithoutReadingBeyond)
{
    const std::string whole = "\1/d\0a.mid\0b.mid\0\1/e\0c.mid\0\xFF"s;
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        EXPECT_LE(Files(std::string(whole, 0, length)).size(), 3U) << length;
    }
}

TEST(CompilationImage, PathOfARow)
{
    const std::string image = Native("\1/d\0a\0\1/\0b\0\xFF"s);
    EXPECT_EQ(PathInImage(image, 0), Native("/d/a"));
    EXPECT_EQ(PathInImage(image, 1), Native("/b"));
    EXPECT_EQ(PathInImage(image, 2), "");
    EXPECT_EQ(PathInImage(image, -1), "");
}

TEST(CompilationImage, OfOneFile)
{
    EXPECT_EQ(ImageOfOne("/d", "a.mid"), "\1/d\0a.mid\0\xFF"s);
}

TEST(CompilationImage, InsertInTheSameDirectoryJoinsTheGroup)
{
    std::string image = "\1/d\0b\0c\0\xFF"s;
    EXPECT_EQ(InsertBefore(image, "c", "/d", "bb"), 1);
    EXPECT_EQ(image, "\1/d\0b\0bb\0c\0\xFF"s);
    EXPECT_EQ(InsertBefore(image, "b", "/d", "a"), 0);
    EXPECT_EQ(image, "\1/d\0a\0b\0bb\0c\0\xFF"s);
}

TEST(CompilationImage, InsertBeforeTheFirstOfAGroupMakesAGroupBeforeIt)
{
    std::string image = "\1/d\0a\0\1/e\0c\0\xFF"s;
    EXPECT_EQ(InsertBefore(image, "c", "/d", "b"), 1);
    EXPECT_EQ(image, "\1/d\0a\0\1/d\0b\0\1/e\0c\0\xFF"s); // two groups of one directory side by side
}

TEST(CompilationImage, InsertInsideAGroupOfAnotherDirectorySplitsIt)
{
    std::string image = "\1/d\0a\0c\0\xFF"s;
    EXPECT_EQ(InsertBefore(image, "c", "/e", "b"), 1);
    EXPECT_EQ(image, "\1/d\0a\0\1/e\0b\0\1/d\0c\0\xFF"s);
}

TEST(CompilationImage, InsertComparesTheTargetExactlyAndTakesItsFirstPlace)
{
    std::string image = "\1/d\0B\0b\0b\0\xFF"s;
    EXPECT_EQ(InsertBefore(image, "b", "/d", "a"), 1);
    EXPECT_EQ(image, "\1/d\0B\0a\0b\0b\0\xFF"s);
}

TEST(CompilationImage, InsertBeforeWhatIsNotThereAppends)
{
    std::string image = "\1/d\0a\0\xFF"s;
    EXPECT_EQ(InsertBefore(image, "z", "/d", "b"), 1);
    EXPECT_EQ(image, "\1/d\0a\0b\0\xFF"s);
}

TEST(CompilationImage, AppendJoinsTheLastGroupOrMakesOne)
{
    std::string image = "\1/d\0a\0\xFF"s;
    EXPECT_EQ(Append(image, "/d", "b"), 1);
    EXPECT_EQ(image, "\1/d\0a\0b\0\xFF"s);
    EXPECT_EQ(Append(image, "/e", "c"), 2);
    EXPECT_EQ(image, "\1/d\0a\0b\0\1/e\0c\0\xFF"s);
}

TEST(CompilationImage, AppendGivesAnEndMarkToAnImageWithoutOne)
{
    std::string image = "\1/d\0a\0"s;
    Append(image, "/d", "b");
    EXPECT_EQ(image, "\1/d\0a\0b\0\xFF"s);
}

std::string Without(std::string image, std::string_view name)
{
    RemoveByName(image, name);
    return image;
}

TEST(CompilationImage, RemoveAFileAmongOthersOfItsGroup)
{
    EXPECT_EQ(Without("\1/d\0a\0b\0c\0\xFF"s, "b"), "\1/d\0a\0c\0\xFF"s);
    EXPECT_EQ(Without("\1/d\0a\0c\0\xFF"s, "a"), "\1/d\0c\0\xFF"s);
}

TEST(CompilationImage, RemovingTheLastFileOfALargerGroupKeepsItsHead)
{
    EXPECT_EQ(Without("\1/d\0a\0b\0\1/e\0c\0\xFF"s, "b"), "\1/d\0a\0\1/e\0c\0\xFF"s);
}

TEST(CompilationImage, RemovingTheOnlyFileOfTheFirstGroupTakesItsHeadToo)
{
    EXPECT_EQ(Without("\1/d\0a\0\1/e\0b\0\xFF"s, "a"), "\1/e\0b\0\xFF"s);
}

TEST(CompilationImage, RemovingTheLastFileOfAllLeavesNothing)
{
    EXPECT_EQ(Without("\1/d\0a.mid\0\xFF"s, "a.mid"), "");
}

TEST(CompilationImage, RemovingTheOnlyFileOfALaterGroupRepeatsAStretch)
{
    const std::string image = Without("\1/d\0a\0\1/e\0b\0\xFF"s, "b");
    // The first directory's terminator and all up to the file's own directory stand there twice.
    EXPECT_EQ(image, "\1/d\0a\0\0a\0\1/e\xFF"s);
    EXPECT_EQ(Files(image), (List{"/d:a", "/d:", "/d:a"})); // a list of the files ends at the one without a name
}

TEST(CompilationImage, RemovingTheOnlyFileOfAGroupInTheMiddleRepeatsAStretchToo)
{
    EXPECT_EQ(Without("\1/d\0a\0\1/e\0b\0\1/f\0c\0\xFF"s, "b"), "\1/d\0a\0\0a\0\1/e\1/f\0c\0\xFF"s);
}

TEST(CompilationImage, RemoveHitsTheFirstPlaceWhereTheNameStands)
{
    // The longer name loses its tail and the byte before it.
    EXPECT_EQ(Without("\1/d\0my song.mid\0\1/e\0a.mid\0song.mid\0\xFF"s, "song.mid"), "\1/d\0my\0\1/e\0a.mid\0song.mid\0\xFF"s);
}

TEST(CompilationImage, RemoveOfATailInsideALargerGroupLeavesTheRestOfTheName)
{
    EXPECT_EQ(Without("\1/d\0a\0my-b\0b\0c\0\xFF"s, "b"), "\1/d\0a\0my\0b\0c\0\xFF"s);
}

TEST(CompilationImage, RemoveMayHitADirectory)
{
    // The name stands in the directory: what precedes it back to 0x01 counts as a head, and the next byte is no mark.
    EXPECT_EQ(Without("\1/x/a\0a\0b\0\xFF"s, "a"), "\1/x\0a\0b\0\xFF"s);
}

TEST(CompilationImage, RemoveOfNothingOrOfWhatIsNotThereChangesNothing)
{
    EXPECT_EQ(Without("\1/d\0a\0\xFF"s, ""), "\1/d\0a\0\xFF"s);
    EXPECT_EQ(Without("\1/d\0a\0\xFF"s, "z"), "\1/d\0a\0\xFF"s);
    EXPECT_EQ(Without("", "a"), "");
}

TEST(CompilationImage, RemoveFromADamagedOneStaysInside)
{
    for (const std::string &image : {"a"s, "a\xFF"s, "xa"s, "\1a"s, "\1a\0a"s, "\0a\0\1"s}) {
        EXPECT_LE(Without(image, "a").size(), 6U);
    }
}

} // namespace
} // namespace velluto
