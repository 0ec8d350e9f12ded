#include "app/Paths.h"

#include "app/FixedText.h"
#include "unit/support/NativePath.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace velluto;
using testing::ElementsAre;
using velluto::test::Native;

TEST(Paths, TheFileNameFollowsTheLastSeparatorWithoutBlanksAtItsEnd)
{
    EXPECT_EQ(FileNameOf(Native("/music/bank one.pcg")), "bank one.pcg");
    EXPECT_EQ(FileNameOf("C:\\music\\a.pcg   "), "a.pcg");
    EXPECT_EQ(FileNameOf(Native("/music/")), "");
    EXPECT_EQ(FileNameOf(""), "");
}

TEST(Paths, AFileNameWithoutASeparatorComesBackWhole)
{
    EXPECT_EQ(FileNameOf("SenzaNome.pcg"), "SenzaNome.pcg");
    EXPECT_EQ(FileNameOf("a.pcg  "), "a.pcg  ");
}

TEST(Paths, TheFolderStandsBeforeTheLastSeparator)
{
    EXPECT_EQ(FolderOf(Native("/music/sets/a.pcg")), Native("/music/sets"));
    EXPECT_EQ(FolderOf("C:\\music\\a.pcg"), "C:\\music");
    EXPECT_EQ(FolderOf(Native("/a.pcg")), "");
    EXPECT_EQ(FolderOf("a.pcg"), "");
}

TEST(Paths, TheExtensionIsInLowerCase)
{
    EXPECT_EQ(ExtensionOf(Native("/music/A.PCG")), "pcg");
    EXPECT_EQ(ExtensionOf(Native("/music/a.b.Sty")), "sty");
    EXPECT_EQ(ExtensionOf(Native("/music/NAME")), Native("/music/name"));
    EXPECT_EQ(ExtensionOf(Native("/music.d/name")), Native("d/name"));
    EXPECT_EQ(ExtensionOf("name."), "");
}

TEST(Paths, OnlyAsciiLettersChangeTheirCase)
{
    EXPECT_EQ(UpperCase("pcg \xC3\xA8"), "PCG \xC3\xA8");
    EXPECT_EQ(LowerCase("PCG \xC3\x88"), "pcg \xC3\x88");
}

TEST(Paths, TheWayToAFolderBeginsAtItsRoot)
{
    EXPECT_THAT(WayTo("/music/sets", '/'), ElementsAre("/", "/music", "/music/sets"));
    EXPECT_THAT(WayTo("/", '/'), ElementsAre("/"));
    EXPECT_THAT(WayTo(R"(C:\music\sets)", '\\'), ElementsAre("C:", R"(C:\music)", R"(C:\music\sets)"));
    EXPECT_THAT(WayTo("C:", '\\'), ElementsAre("C:"));
}

TEST(Paths, AShareIsARoot)
{
    EXPECT_THAT(WayTo(R"(\\server\share\music\sets)", '\\'),
                ElementsAre(R"(\\server\share\)", R"(\\server\share\music)", R"(\\server\share\music\sets)"));
    EXPECT_THAT(WayTo(R"(\\server\share)", '\\'), ElementsAre(R"(\\server\share\)"));
    EXPECT_THAT(WayTo(R"(\\?\C:\music)", '\\'), ElementsAre(R"(\\?\C:\)", R"(\\?\C:\music)"));
    EXPECT_THAT(WayTo(R"(\\server\share)", '/'), ElementsAre(R"(\\server\share)")) << "elsewhere it is a name";
}

#ifndef _WIN32
TEST(Paths, TheRootGetsNoSecondSeparator)
{
    EXPECT_EQ(JoinPath("/music", "a.pcg"), "/music/a.pcg");
    EXPECT_EQ(JoinPath("/", "a.pcg"), "/a.pcg");
    EXPECT_EQ(JoinPath("", "a.pcg"), "/a.pcg");
    EXPECT_EQ(JoinPath(FolderOf("/a.pcg"), FileNameOf("/a.pcg")), "/a.pcg");
}

TEST(Paths, BothSlashesSeparate)
{
    EXPECT_TRUE(IsPathSeparator('/'));
    EXPECT_TRUE(IsPathSeparator('\\'));
    EXPECT_FALSE(IsPathSeparator(':'));
}
#endif

TEST(FixedText, IsPaddedWithBlanksAndCutToItsLength)
{
    FixedText<6> text;
    EXPECT_EQ(text.All(), "      ");
    text.Set("abc");
    EXPECT_EQ(text.All(), "abc   ");
    text.Set("abcdefgh");
    EXPECT_EQ(text.All(), "abcdef");
    text.Set("a ");
    EXPECT_EQ(text.Trimmed(), "a");
    EXPECT_TRUE(FixedText<6>::Fits("abcdef"));
    EXPECT_FALSE(FixedText<6>::Fits("abcdefg"));
}

TEST(FixedText, IsAnEmptyEntryWhenBlankOrWithAZeroInTheFifthPlace)
{
    PathText path;
    EXPECT_TRUE(path.IsEmptyEntry());
    path.Set("/a");
    EXPECT_FALSE(path.IsEmptyEntry());
    path.Set(std::string("abcd\0fgh", 8));
    EXPECT_TRUE(path.IsEmptyEntry());
    path.Set(std::string("abc\0efgh", 8));
    EXPECT_FALSE(path.IsEmptyEntry());
}
