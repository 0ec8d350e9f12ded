#include "app/RecentFiles.h"

#include "unit/app/IniFile.h"

#include <gtest/gtest.h>

using namespace velluto;
using namespace velluto::test;

namespace {

struct RecentTest : testing::Test {
    TestProgram run;
    Modulo1 &app = run.program.app;
    frmMain &menu = run.program.app.frame;

    void SetUp() override { ASSERT_TRUE(run.Start()); }
    std::string Caption(const std::string &path, int n = 1)
    {
        app.WorkRecentRecord.Path.Set(path);
        return RecentCaption(app, n);
    }
    RecentRecord &Entry(int n) { return app.settings.RecentTable.at(static_cast<std::size_t>(n)); }
    std::string PathOf(int n) { return Entry(n).Path.Trimmed(); }
    // Fills the table so that row n holds "/file n".
    void Fill(int count)
    {
        for (int n = count; n >= 1; --n) {
            AddRecent(app, "/file " + std::to_string(n), 0);
        }
    }
};

const std::string kThirtyLetters = "abcdefghijklmnopqrstuvwxyz.pcg";

} // namespace

TEST_F(RecentTest, APathOf35CharactersIsUnchanged)
{
    const std::string path = "C:\\" + std::string(32, 'x');
    ASSERT_EQ(path.size(), 35U);
    EXPECT_EQ(Caption(path), "  &1  " + path);
}

TEST_F(RecentTest, APathOf36CharactersIsShortened)
{
    // The tail of 28 characters behind the second backslash fits.
    EXPECT_EQ(Caption("C:\\abcd\\0123456789012345678901234567"), "  &1  C:\\...\\0123456789012345678901234567");
}

TEST_F(RecentTest, ARootBackslashAndALongNameGiveTheFirst35CharactersAndDots)
{
    const std::string path = "C:\\" + std::string(40, 'n');
    EXPECT_EQ(Caption(path), "  &1  C:\\" + std::string(32, 'n') + "...");
}

TEST_F(RecentTest, TheFirstBackslashWhoseTailHasAtMost28CharactersDecides)
{
    // Behind "folder" there are 29 characters, behind "inner" 23.
    EXPECT_EQ(Caption("C:\\music\\folder\\inner\\bank of pianos 01.pcg"), "  &1  C:\\...\\inner\\bank of pianos 01.pcg");
    EXPECT_EQ(Caption("C:\\a\\b\\c\\d\\e\\f\\g\\h\\i\\j\\k\\l\\m\\n\\o\\p\\q\\r"),
              "  &1  C:\\...\\e\\f\\g\\h\\i\\j\\k\\l\\m\\n\\o\\p\\q\\r");
}

TEST_F(RecentTest, ANameOf30CharactersInADeepFolderIsCutTo28)
{
    EXPECT_EQ(Caption("C:\\music\\sets\\" + kThirtyLetters), "  &1  C:\\...\\" + kThirtyLetters.substr(0, 28) + "...");
}

#ifndef _WIN32
TEST_F(RecentTest, APosixPathHasItsRootAndItsSeparator)
{
    EXPECT_EQ(Caption("/home/me/music/folder/inner/bank 01.pcg"), "  &1  /.../folder/inner/bank 01.pcg");
    EXPECT_EQ(Caption("/home/me/music/" + kThirtyLetters), "  &1  /.../" + kThirtyLetters.substr(0, 28) + "...");
    EXPECT_EQ(Caption("/" + std::string(40, 'n')), "  &1  /" + std::string(34, 'n') + "...");
    EXPECT_EQ(Caption("/" + std::string(34, 'n')), "  &1  /" + std::string(34, 'n'));
}

TEST_F(RecentTest, ALetterOfSeveralBytesCountsOnce)
{
    std::string accents;
    for (int i = 0; i < 34; ++i) {
        accents += "\xC3\xA8";
    }
    EXPECT_EQ(Caption("/" + accents), "  &1  /" + accents);
    EXPECT_EQ(Caption("/" + accents + "e\xCC\x80"), "  &1  /" + accents + "...");
}
#endif

TEST_F(RecentTest, APathOfSingleBytesCountsEachOfThem)
{
    // As old settings files hold it: Windows-1252, 36 characters.
    std::string path = "C:\\";
    for (int i = 0; i < 5; ++i) {
        path += "n\xB0";
    }
    path += std::string(19, 'a') + ".pcg";
    ASSERT_EQ(path.size(), 36U);
    EXPECT_EQ(Caption(path), "  &1  C:\\n\u00B0n\u00B0n\u00B0n\u00B0n\u00B0" + std::string(19, 'a') + ".pc...");
}

TEST_F(RecentTest, RowsBelow10AreIndentedByTwoBlanks)
{
    EXPECT_EQ(Caption("/a.pcg", 9), "  &9  /a.pcg");
    EXPECT_EQ(Caption("/a.pcg", 10), "&10  /a.pcg");
    EXPECT_EQ(Caption("/a.pcg", 16), "&16  /a.pcg");
}

TEST_F(RecentTest, AtFirstTheListAndItsSeparatorAreHidden)
{
    EXPECT_FALSE(menu.mnuSep16.visible);
    for (const MenuEntry &entry : menu.mnuRecentFile) {
        EXPECT_FALSE(entry.visible);
    }
}

TEST_F(RecentTest, AddRecentShowsTheSeparatorAndTheRow)
{
    AddRecent(app, "/a.pcg", 3);
    EXPECT_TRUE(menu.mnuSep16.visible);
    EXPECT_TRUE(menu.mnuRecentFile[1].visible);
    EXPECT_EQ(menu.mnuRecentFile[1].caption.Get(), "  &1  /a.pcg");
    EXPECT_FALSE(menu.mnuRecentFile[2].visible);
    EXPECT_EQ(Entry(1).Kind, 3);
}

TEST_F(RecentTest, ReopeningTheEntryInRow5MovesItToRow1)
{
    Fill(8);
    Entry(5).Height = 555;
    Entry(5).Flag = 5;
    AddRecent(app, "/file 5", 2);
    for (const auto &[row, file] : std::vector<std::pair<int, int>>{{1, 5}, {2, 1}, {3, 2}, {4, 3}, {5, 4}, {6, 6}, {7, 7}, {8, 8}}) {
        EXPECT_EQ(PathOf(row), "/file " + std::to_string(file)) << row;
    }
    // The file keeps its own place and flag.
    EXPECT_EQ(Entry(1).Height, 555);
    EXPECT_EQ(Entry(1).Flag, 5);
    EXPECT_EQ(Entry(1).Kind, 2);
    EXPECT_EQ(menu.mnuRecentFile[1].caption.Get(), "  &1  /file 5");
    EXPECT_EQ(menu.mnuRecentFile[5].caption.Get(), "  &5  /file 4");
}

TEST_F(RecentTest, ReopeningTheNewestChangesNothing)
{
    Fill(3);
    AddRecent(app, "/file 1", 0);
    EXPECT_EQ(PathOf(1), "/file 1");
    EXPECT_EQ(PathOf(2), "/file 2");
    EXPECT_EQ(PathOf(3), "/file 3");
    EXPECT_EQ(PathOf(4), "");
}

TEST_F(RecentTest, The17thDifferentFilePushesTheOldestOut)
{
    Fill(16);
    EXPECT_EQ(PathOf(16), "/file 16");
    AddRecent(app, "/the newest", 0);
    EXPECT_EQ(PathOf(1), "/the newest");
    EXPECT_EQ(PathOf(2), "/file 1");
    EXPECT_EQ(PathOf(16), "/file 15");
    EXPECT_EQ(menu.mnuRecentFile[16].caption.Get(), "&16  /file 15");
}

TEST_F(RecentTest, APathThatDiffersOnlyInCaseIsAnotherEntry)
{
    AddRecent(app, "/a.pcg", 0);
    AddRecent(app, "/A.pcg", 0);
    EXPECT_EQ(PathOf(1), "/A.pcg");
    EXPECT_EQ(PathOf(2), "/a.pcg");
}

TEST_F(RecentTest, ANewEntryKeepsTheOtherFieldsOfTheLastOneScanned)
{
    Fill(16);
    Entry(16).Width = 1616;
    Entry(16).Flag = 16;
    AddRecent(app, "/the newest", 0);
    EXPECT_EQ(Entry(1).Width, 1616);
    EXPECT_EQ(Entry(1).Flag, 16);
}

TEST_F(RecentTest, AZeroInTheFifthPlaceOfThePathMakesAnEntryEmpty)
{
    Fill(3);
    Entry(2).Path.Set(std::string("abcd\0", 5));
    AddRecent(app, "/new", 0);
    EXPECT_EQ(PathOf(1), "/new");
    EXPECT_EQ(PathOf(2), "/file 1");
    EXPECT_EQ(PathOf(3), "/file 3");
}

TEST_F(RecentTest, TheListComesBackInTheNextRunUpToTheFirstEmptyEntry)
{
    Fill(3);
    Entry(3).Path.Set(std::string("abcd\0", 5));
    Entry(4).Path.Set("/file 4");
    run.Exit();
    TestProgram next(run.folder);
    next.Start();
    frmMain &later = next.program.app.frame;
    EXPECT_TRUE(later.mnuSep16.visible);
    EXPECT_EQ(later.mnuRecentFile[1].caption.Get(), "  &1  /file 1");
    EXPECT_TRUE(later.mnuRecentFile[2].visible);
    EXPECT_FALSE(later.mnuRecentFile[3].visible);
    EXPECT_FALSE(later.mnuRecentFile[4].visible);
}

TEST_F(RecentTest, ThePlaceOfTheActiveChildGoesToTheEntryOfItsFile)
{
    Fill(3);
    Form window("window");
    window.Tag.prefix = TagPrefix();
    window.Tag.SetPath("/file 2");
    app.children.Show(window);
    window.place = Place{11, 22, 3300, 4400};
    UpdateRecentPlacement(app);
    EXPECT_EQ(Entry(2).Left, 11);
    EXPECT_EQ(Entry(2).Top, 22);
    EXPECT_EQ(Entry(2).Width, 3300);
    EXPECT_EQ(Entry(2).Height, 4400);
    EXPECT_EQ(Entry(1).Width, 0);
    app.children.Unload(window);
}

TEST_F(RecentTest, AChildWhoseFileIsNotInTheListChangesNothing)
{
    Fill(2);
    Form window("window");
    window.Tag.prefix = TagPrefix();
    window.Tag.SetPath("/another");
    app.children.Show(window);
    window.place = Place{11, 22, 3300, 4400};
    UpdateRecentPlacement(app);
    EXPECT_EQ(Entry(1).Width, 0);
    EXPECT_EQ(Entry(2).Width, 0);
    app.children.Unload(window);
    UpdateRecentPlacement(app);
}

TEST_F(RecentTest, ScansLeaveTheWorkingRecordWhereTheyStopped)
{
    Fill(2);
    AddRecent(app, "/new", 0);
    // The menu's refresh has stopped at the first empty entry.
    EXPECT_TRUE(app.WorkRecentRecord.Path.IsEmptyEntry());
}

TEST_F(RecentTest, AClickOnAFileThatHasGoneShowsItsMessageAndKeepsTheEntry)
{
    AddRecent(app, run.At("gone.pcg"), 0);
    EXPECT_TRUE(run.Choose(menu.mnuRecentFile[1]));
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].title, "Apertura di gone.pcg");
    EXPECT_EQ(run.face.boxes[0].text, "File assente");
    EXPECT_EQ(PathOf(1), run.At("gone.pcg"));
    EXPECT_EQ(app.settings.LastDir, run.folder->Path());
    EXPECT_FALSE(std::filesystem::exists(run.At("gone.pcg")));
}

TEST_F(RecentTest, AClickOnAnotherExtensionDoesNothing)
{
    AddRecent(app, run.At("a.Pcg"), 0);
    EXPECT_TRUE(run.Choose(menu.mnuRecentFile[1]));
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_TRUE(app.children.All().empty());
}

TEST_F(RecentTest, AClickWhileItsOpenCommandIsDisabledDoesNothing)
{
    AddRecent(app, run.At("gone.pcg"), 0);
    menu.mnuPcgApri.enabled = false;
    run.Choose(menu.mnuRecentFile[1]);
    EXPECT_TRUE(run.face.boxes.empty());
}
