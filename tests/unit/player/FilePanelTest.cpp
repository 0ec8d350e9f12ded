// The file panel: its drives, its folders and their files, and the two widths of the window.
#include "player/FilePanel.h"

#include "unit/player/PlayerRun.h"
#include "unit/support/HiddenFile.h"

namespace velluto::test {
namespace {

using testing::ElementsAre;

class FilePanel : public PlayerRun {
protected:
    FilePanel()
    {
        Song("d/a.mid", 100);
        Song("d/b.mid", 60);
    }
    void StartAgain()
    {
        Do("exit");
        Start();
    }
};

TEST_F(FilePanel, ThePanelMakesItWideAndNarrow)
{
    Start();
    const int narrow = form().Width();
    EXPECT_FALSE(form().Frame4.visible);
    Press(form().CommSel);
    const int wide = form().Width();
    EXPECT_GT(wide, narrow);
    EXPECT_TRUE(settings().PlayerPanelOpen);
    EXPECT_TRUE(form().Frame4.visible);
    EXPECT_EQ(form().CommSel.color, 0x00FF00);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - ");
    Press(form().CommSel);
    EXPECT_EQ(form().Width(), narrow);
    EXPECT_EQ(settings().PlacementTable[16].Width, narrow);
    EXPECT_FALSE(settings().PlayerPanelOpen);
    EXPECT_FALSE(form().Frame4.visible);
    EXPECT_EQ(form().CommSel.color, Button::kPlainColor);
    EXPECT_FALSE(form().CommAdd.enabled);
    EXPECT_FALSE(form().CommAddAll.enabled);
}

TEST_F(FilePanel, ThePanelStaysOpenBetweenRuns)
{
    StartWithPanel();
    const int wide = form().Width();
    StartAgain();
    EXPECT_EQ(form().Width(), wide);
    EXPECT_TRUE(form().Frame4.visible);
    EXPECT_EQ(form().CommSel.color, 0x00FF00);
    EXPECT_EQ(form().DirMidiSel.path, At("d"));
    EXPECT_EQ(form().ListMidiSel.Rows(), (Rows{"a.mid   (3)", "b.mid   (3)"}));
    EXPECT_TRUE(form().CommAddAll.enabled);
    EXPECT_FALSE(form().CommAdd.enabled);
}

TEST_F(FilePanel, APanelThatIsOpenAtTheLoadLeavesItsButtonGreenForTheRun)
{
    StartWithPanel();
    StartAgain();
    Press(form().CommSel);
    EXPECT_FALSE(form().Frame4.visible);
    EXPECT_EQ(form().CommSel.color, 0x00FF00);
    EXPECT_EQ(form().CommRep.color, Button::kPlainColor);
}

TEST_F(FilePanel, AClosedPanelFillsItsListAtTheLoadAndOffersAllOfIt)
{
    StartWithPanel();
    Press(form().CommSel);
    EXPECT_FALSE(form().CommAddAll.enabled); // as long as this run lasts
    StartAgain();
    EXPECT_EQ(form().ListMidiSel.ListCount(), 2);
    EXPECT_TRUE(form().CommAddAll.enabled);
    EXPECT_FALSE(form().CommAdd.enabled);
}

TEST_F(FilePanel, AFolderShowsItsMidiFilesInAnyCase)
{
    Song("e/Zed.MID", 10, 123456);
    Song("e/amber.mid", 10, 0);
    Song("e/Bell.Mid", 10);
    Song("e/notes.midi", 10);
    Song("e/.hidden.mid", 10);
    Hide(At("e/.hidden.mid"));
    std::filesystem::create_directory(At("e/folder.mid"));
    StartWithPanel();
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    EXPECT_EQ(form().ListMidiSel.Rows(), (Rows{"amber.mid   (0)", "Bell.Mid   (3)", "Zed.MID   (123456)"}));
    EXPECT_EQ(form().FileMidiSel.Rows(), (Rows{"amber.mid", "Bell.Mid", "Zed.MID"}));
    EXPECT_FALSE(form().FileMidiSel.visible);
    EXPECT_EQ(settings().PlayerDir, At("e"));
    EXPECT_TRUE(form().CommAddAll.enabled);
}

TEST_F(FilePanel, AFolderWithoutFilesOffersNothing)
{
    std::filesystem::create_directory(At("e"));
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    EXPECT_EQ(form().ListMidiSel.ListCount(), 0);
    EXPECT_FALSE(form().CommAddAll.enabled);
    EXPECT_FALSE(form().CommAdd.enabled);
}

TEST_F(FilePanel, ATrailingSeparatorIsCut)
{
    StartWithPanel();
    ASSERT_FALSE(OpenFolder(form(), At("d") + Native("//")).Failed());
    EXPECT_EQ(settings().PlayerDir, At("d"));
    ASSERT_FALSE(OpenFolder(form(), Root()).Failed());
    EXPECT_EQ(settings().PlayerDir, Root());
    EXPECT_EQ(form().DirMidiSel.Row(0), Root());
}

TEST_F(FilePanel, TheRootStandsInTheFolderListOnce)
{
    StartWithPanel();
    Do("set frmMIDIPlayer DirMidiSel " + Root());
    EXPECT_EQ(form().DirMidiSel.Row(0), Root());
    EXPECT_EQ(form().DirMidiSel.ListIndex(), 0);
    EXPECT_THAT(form().DirMidiSel.Rows(), testing::Not(testing::Contains("  " + Root()))) << "nor below itself";
}

#ifdef _WIN32
TEST_F(FilePanel, APathFromAShareBeginsWithTheShare)
{
    StartWithPanel();
    const std::string front = R"(\\?\)"; // the system takes it as a server, and the drive as its share
    ASSERT_FALSE(OpenFolder(form(), front + At("d")).Failed());
    EXPECT_EQ(form().DirMidiSel.Row(0), front + At("d").substr(0, 3));
    EXPECT_EQ(form().ListMidiSel.ListCount(), 2);
    DoubleClick(form().DirMidiSel, 0);
    EXPECT_EQ(settings().PlayerDir, front + At("d").substr(0, 2));
    EXPECT_EQ(form().DirMidiSel.ListIndex(), 0);
}
#endif

TEST_F(FilePanel, TheFolderListLeadsUpAndDown)
{
    std::filesystem::create_directories(At("d/inner"));
    std::filesystem::create_directories(At("d/Other"));
    StartWithPanel();
    const auto rows = form().DirMidiSel.Rows();
    ASSERT_GE(rows.size(), 4U);
    const int open = static_cast<int>(rows.size()) - 3;
    EXPECT_EQ(form().DirMidiSel.ListIndex(), open);
    EXPECT_EQ(rows[static_cast<std::size_t>(open)], std::string(2 * static_cast<std::size_t>(open), ' ') + "d");
    EXPECT_EQ(rows.back(), std::string(2 * static_cast<std::size_t>(open) + 2, ' ') + "Other");
    Click(form().DirMidiSel, open + 1); // a click only selects
    EXPECT_EQ(settings().PlayerDir, At("d"));
    DoubleClick(form().DirMidiSel, open + 1);
    EXPECT_EQ(settings().PlayerDir, At("d/inner"));
    DoubleClick(form().DirMidiSel, 0);
    EXPECT_EQ(settings().PlayerDir, Root());
}

TEST_F(FilePanel, AFolderThatHasGoneLeavesAllAsItWas)
{
    std::filesystem::create_directories(At("d/inner"));
    StartWithPanel();
    const int inner = form().DirMidiSel.ListCount() - 1;
    std::filesystem::remove(At("d/inner"));
    DoubleClick(form().DirMidiSel, inner);
    EXPECT_EQ(settings().PlayerDir, At("d"));
    EXPECT_EQ(form().ListMidiSel.ListCount(), 2);
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(FilePanel, TheDrivesAreTheRootTheHomeFolderAndMore)
{
    StartWithPanel();
    EXPECT_EQ(form().DriveMidiSel.rows.front(), Root());
    Do("set frmMIDIPlayer DriveMidiSel " + Root());
    EXPECT_EQ(settings().PlayerDir, Root());
    EXPECT_EQ(form().DriveMidiSel.Drive(), Root());
    Do("set frmMIDIPlayer DriveMidiSel " + At("d"));
    EXPECT_EQ(settings().PlayerDir, At("d"));
    EXPECT_EQ(form().DriveMidiSel.Drive(), At("d"));
}

TEST_F(FilePanel, TheDriveShownIsTheOneOfTheFolder)
{
    StartWithPanel();
    EXPECT_EQ(form().DriveMidiSel.Drive(), Root());
    Do("set frmMIDIPlayer DriveMidiSel " + At("d"));
    std::filesystem::create_directories(At("d2"));
    Do("set frmMIDIPlayer DirMidiSel " + At("d2")); // beside it, not on it
    EXPECT_EQ(form().DriveMidiSel.Drive(), Root());
}

TEST_F(FilePanel, OpenedAgainThePanelKeepsItsSelection)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Press(form().CommSel);
    Press(form().CommSel);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
    EXPECT_TRUE(form().CommAdd.enabled);
    Press(form().CommSel);
    Song("d/c.mid", 10); // what is new is listed
    Press(form().CommSel);
    EXPECT_EQ(form().ListMidiSel.ListCount(), 3);
}

TEST_F(FilePanel, AFolderOfTheLastRunThatIsGoneIsToldWhenThePanelOpens)
{
    StartWithPanel();
    Press(form().CommSel);
    Do("exit");
    std::filesystem::remove_all(At("d"));
    Start();
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_EQ(settings().PlayerDir, At("d"));
    EXPECT_EQ(form().DirMidiSel.path, folder.Path()); // the search for another one begins here
    Press(form().CommSel);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].title, At("d") + " Opening ");
    EXPECT_EQ(session.face.boxes[0].text, "Path not found");
    EXPECT_TRUE(settings().PlayerPanelOpen);
    DoubleClick(form().DirMidiSel, form().DirMidiSel.ListIndex());
    EXPECT_EQ(settings().PlayerDir, folder.Path());
}

TEST_F(FilePanel, AFirstRunBeginsInTheProgramsFolder)
{
    Start();
    EXPECT_EQ(form().DirMidiSel.path, folder.Path());
    EXPECT_EQ(settings().PlayerDir, ""); // nobody has chosen one yet
    WriteText("own.mid", "x");
    Press(form().CommSel);
    EXPECT_EQ(settings().PlayerDir, folder.Path());
    EXPECT_EQ(form().ListMidiSel.Rows(), Rows{"own.mid   (1)"});
}

} // namespace
} // namespace velluto::test
