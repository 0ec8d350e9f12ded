#include "platform/machine/MachineFiles.h"

#include "platform/FileStore.h"
#include "standin/FaultyFiles.h"
#include "unit/support/HiddenFile.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;

TEST(FolderPattern, StarsStandForAnythingAndLettersForBothCases)
{
    EXPECT_TRUE(MatchesPattern("song.mid", "*.mid"));
    EXPECT_TRUE(MatchesPattern("SONG.MID", "*.mid"));
    EXPECT_TRUE(MatchesPattern(".mid", "*.mid"));
    EXPECT_TRUE(MatchesPattern("a.mid.mid", "*.mid"));
    EXPECT_TRUE(MatchesPattern("abcabd", "*ab*d"));
    EXPECT_TRUE(MatchesPattern("", "*"));
    EXPECT_FALSE(MatchesPattern("song.midi", "*.mid"));
    EXPECT_FALSE(MatchesPattern("songmid", "*.mid"));
    EXPECT_FALSE(MatchesPattern("", "a"));
    EXPECT_FALSE(MatchesPattern("ab", "a"));
}

TEST(FolderOrder, IsThatOfLettersWithoutTheirCase)
{
    EXPECT_TRUE(ComesBefore("a", "B"));
    EXPECT_TRUE(ComesBefore("A", "b"));
    EXPECT_FALSE(ComesBefore("b", "A"));
    EXPECT_TRUE(ComesBefore("a", "aa"));
    EXPECT_TRUE(ComesBefore("A", "a"));
    EXPECT_FALSE(ComesBefore("a", "A"));
    EXPECT_FALSE(ComesBefore("a", "a"));
    EXPECT_TRUE(ComesBefore("z", "\xC3\xA8")); // bytes beyond ASCII come last
}

class FoldersTest : public testing::Test {
protected:
    void Make(const std::string &name, std::size_t bytes) const { WriteBytes(folder.At(name), Bytes(bytes, 1)); }
    [[nodiscard]] std::vector<std::string> Subfolders(const std::string &path)
    {
        std::vector<std::string> names{"old"};
        error = folders.Subfolders(path, names);
        return names;
    }
    [[nodiscard]] std::vector<ListedFile> Files(const std::string &path)
    {
        std::vector<ListedFile> files{{"old", 1}};
        error = folders.Files(path, "*.mid", files);
        return files;
    }
    TempFolder folder;
    MachineFolders folders;
    RuntimeError error;
};

TEST_F(FoldersTest, FilesComeSortedWithTheirLengths)
{
    Make("b.mid", 5);
    Make("A.MID", 0);
    Make("c.txt", 1);
    Make(".hidden.mid", 1);
    Hide(folder.At(".hidden.mid"));
    std::filesystem::create_directory(folder.At("z.mid"));
    EXPECT_THAT(Files(folder.Path()), ElementsAre(ListedFile{"A.MID", 0}, ListedFile{"b.mid", 5}));
    EXPECT_EQ(error.number, 0);
}

TEST_F(FoldersTest, SubfoldersComeSorted)
{
    for (const char *name : {"b", "A", ".hidden"}) {
        std::filesystem::create_directory(folder.At(name));
    }
    Hide(folder.At(".hidden"));
    Make("file", 1);
    EXPECT_THAT(Subfolders(folder.Path()), ElementsAre("A", "b"));
}

TEST_F(FoldersTest, AFolderThatCannotBeListedIsAnErrorAndNoList)
{
    Make("file", 1);
    for (const std::string &path : {folder.At("none"), folder.At("file"), std::string(), std::string("/tmp\0x", 6)}) {
        EXPECT_TRUE(Files(path).empty());
        EXPECT_EQ(error.number, FileError::kPathNotFound) << path;
        EXPECT_TRUE(Subfolders(path).empty());
        EXPECT_EQ(error.number, FileError::kPathNotFound) << path;
    }
}

TEST_F(FoldersTest, LengthsOfFiles)
{
    Make("a.mid", 1234);
    std::uint64_t length = 77;
    EXPECT_EQ(folders.FileLength(folder.At("a.mid"), length).number, 0);
    EXPECT_EQ(length, 1234U);
    EXPECT_EQ(folders.FileLength(folder.At("none.mid"), length).number, FileError::kFileNotFound);
    EXPECT_EQ(folders.FileLength(folder.Path() + "/", length).number, FileError::kFileNotFound); // a folder is no file
    EXPECT_EQ(folders.FileLength(folder.At("none/a.mid"), length).number, FileError::kPathNotFound);
    EXPECT_EQ(folders.FileLength(folder.At("a.mid") + "/b", length).number, FileError::kPathNotFound);
    EXPECT_EQ(folders.FileLength("/no such file", length).number, FileError::kFileNotFound);
    EXPECT_EQ(folders.FileLength(std::string("a\0b", 3), length).number, FileError::kFileNotFound);
    EXPECT_EQ(length, 1234U);
}

TEST_F(FoldersTest, FaultsOfTheFilesAreThoseOfTheFolders)
{
    Make("a.mid", 3);
    FilesFrom machine(folder.Path());
    FaultyFiles faults(machine);
    FaultyFolders faulty(folders, faults);
    std::uint64_t length = 0;
    std::vector<ListedFile> files;
    faults.faults.push_back({FileFault::Operation::Open, folder.At("a.mid"), 71, 1});
    faults.faults.push_back({FileFault::Operation::Read, folder.At("a.mid"), 57, 1});
    faults.faults.push_back({FileFault::Operation::Any, folder.Path(), 76, 1});
    EXPECT_EQ(faulty.FileLength(folder.At("a.mid"), length).number, 71);
    EXPECT_EQ(faulty.FileLength(folder.At("a.mid"), length).number, 57);
    EXPECT_EQ(faulty.FileLength(folder.At("a.mid"), length).number, 0);
    EXPECT_EQ(faulty.Files(folder.Path(), "*", files).number, 76);
    EXPECT_EQ(faulty.Files(folder.Path(), "*", files).number, 0);
    EXPECT_EQ(files.size(), 1U);
}

} // namespace
} // namespace velluto::test
