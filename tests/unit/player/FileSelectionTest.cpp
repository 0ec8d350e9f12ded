// Clicks and double clicks on the two file lists.
#include "player/FileSelection.h"

#include "player/Transport.h"
#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class FileSelection : public PlayerRun {
protected:
    FileSelection()
    {
        Song("d/a.mid", 100);
        Song("d/b.mid", 60);
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0\xFF"s);
    }
    void StartWithCompilation()
    {
        StartWithPanel();
        Click(form().ListComp, 0);
    }
};

TEST_F(FileSelection, AClickInTheFolderOpensTheFileAndLeavesItStopped)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_EQ(state().PlayingFileRow, 1);
    EXPECT_EQ(state().CurrentFileRow, 1);
    EXPECT_EQ(state().NextFilePath, "b.mid"); // the name alone
    EXPECT_EQ(state().PlayDir, At("d"));
    EXPECT_FALSE(state().PlayFromCompilation);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "60");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0 (0%)");
    EXPECT_TRUE(form().HScrollStart.enabled);
    EXPECT_EQ(form().HScrollStart.max, 60);
    EXPECT_EQ(form().HScrollStart.largeChange, 6);
    EXPECT_EQ(form().HScrollStop.value, 60);
    EXPECT_EQ(form().LabStop.caption.Get(), "60");
    EXPECT_EQ(form().LabStart.caption.Get(), "0");
    EXPECT_EQ(Buttons(), "1110000");
    EXPECT_TRUE(form().CommAdd.enabled);
    Click(form().ListMidiSel, 0); // closes the one and opens the other
    EXPECT_EQ(device().FileName, At("d/a.mid"));
}

TEST_F(FileSelection, UnselectingTheLastRowClosesTheFile)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    CtrlClick(form().ListMidiSel, 1);
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(state().NextFilePath, "");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    EXPECT_FALSE(form().HScrollStart.enabled);
    EXPECT_EQ(form().LabStart.caption.Get(), "Start");
    EXPECT_EQ(Buttons(), "0000000");
    EXPECT_FALSE(form().CommAdd.enabled);
}

TEST_F(FileSelection, WithAnotherRowStillSelectedTheCurrentRowIsOpenedEvenWhereItWasUnselected)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    CtrlClick(form().ListMidiSel, 1);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    CtrlClick(form().ListMidiSel, 0);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(state().PlayingFileRow, 0);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
}

TEST_F(FileSelection, AClickInTheFolderDropsTheFileOfTheCompilation)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 0);
    EXPECT_EQ(settings().PlayerFile, At("d/a.mid"));
    EXPECT_EQ(settings().PlayerName, "mix");
    Click(form().ListMidiSel, 1);
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(settings().PlayerName, "");
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre());
    EXPECT_FALSE(state().SelectionGuard);
}

TEST_F(FileSelection, AFileThatTheDeviceRefusesIsToldInItsWords)
{
    StartWithPanel();
    session.sequencer.songs[At("d/b.mid")] = {0, 301, InWords("This is no MIDI file.")};
    Click(form().ListMidiSel, 0);
    Click(form().ListMidiSel, 1);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].text, "This is no MIDI file.");
    EXPECT_EQ(device().Command(), "close");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    EXPECT_EQ(Buttons(), "0000000");
    EXPECT_EQ(form().ListMidiSel.ListCount(), 2);
    Click(form().ListMidiSel, 0); // and back
    EXPECT_EQ(Buttons(), "1110000");
}

TEST_F(FileSelection, AVanishedFileIsToldAndTheListStays)
{
    StartWithPanel();
    std::filesystem::remove(At("d/b.mid"));
    session.sequencer.songs.erase(At("d/b.mid"));
    Click(form().ListMidiSel, 1);
    EXPECT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(form().ListMidiSel.ListCount(), 2);
}

TEST_F(FileSelection, WhileAFilePlaysClicksOnlySelect)
{
    StartWithCompilation();
    Click(form().ListMidiSel, 0);
    Transport(TransportButton::Play);
    Click(form().ListMidiSel, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_TRUE(form().CommRim.enabled); // what plays is no file of a compilation
    Transport(TransportButton::Pause);
    Click(form().ListMidiSel, 0);
    EXPECT_EQ(device().Mode(), 529);
}

TEST_F(FileSelection, WithPlayAllArmedClicksOnlySelect)
{
    StartWithCompilation();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Click(form().ListMidiSel, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_TRUE(form().CommRim.enabled);
}

TEST_F(FileSelection, UnderTheGuardClicksDoNothing)
{
    StartWithCompilation();
    state().SelectionGuard = true;
    Click(form().ListMidiSel, 1);
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(device().Command(), "");
    EXPECT_FALSE(form().CommRim.enabled);
}

TEST_F(FileSelection, AClickInTheCompilationOpensTheFile)
{
    StartWithCompilation();
    Click(form().ListMidiSel, 0);
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_TRUE(state().PlayFromCompilation);
    EXPECT_EQ(state().CurrentCompRow, 1);
    EXPECT_EQ(state().CompilationIndex, 0);
    EXPECT_EQ(settings().PlayerName, "mix");
    EXPECT_EQ(settings().PlayerFile, At("d/b.mid"));
    EXPECT_EQ(state().NextFilePath, "");
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre());
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
    EXPECT_EQ(form().HScrollStop.value, 60);
    EXPECT_EQ(Buttons(), "1110000");
    EXPECT_TRUE(form().CommRim.enabled);
}

TEST_F(FileSelection, UnselectingTheLastRowOfTheCompilationForgetsItsFile)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 1);
    CtrlClick(form().ListMidiCorr, 1);
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    EXPECT_EQ(form().LabStop.caption.Get(), "Stop");
    EXPECT_FALSE(form().CommRim.enabled);
}

TEST_F(FileSelection, OfSeveralRowsTheCurrentOneIsTaken)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 0);
    CtrlClick(form().ListMidiCorr, 1);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    CtrlClick(form().ListMidiCorr, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(state().CurrentCompRow, 0);
    EXPECT_EQ(form().ListMidiCorr.ListIndex(), 1);
}

TEST_F(FileSelection, AFileOfTheCompilationThatIsRefused)
{
    StartWithCompilation();
    session.sequencer.songs[At("d/b.mid")] = {0, 301, InWords("This is no MIDI file.")};
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
    EXPECT_EQ(Buttons(), "0000000");
    EXPECT_FALSE(state().PlayFromCompilation);
}

TEST_F(FileSelection, ADoubleClickInTheFolderPlays)
{
    StartWithPanel();
    DoubleClick(form().ListMidiSel, 1);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(state().OpenFilePath, At("d/b.mid"));
    EXPECT_EQ(state().PlayDir, At("d"));
    EXPECT_EQ(state().CurrentFileRow, 1);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
    EXPECT_EQ(Buttons(), "1101111");
    EXPECT_TRUE(form().Timer1.enabled);
    EXPECT_TRUE(form().CommAdd.enabled); // it locks nothing
    Clock(1000);
    DoubleClick(form().ListMidiSel, 0); // from playing as well
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(state().TickCount, 0);
    EXPECT_EQ(state().CurrentFileRow, 0);
    EXPECT_EQ(state().PlayingFileRow, 1); // kept by clicks only
}

TEST_F(FileSelection, ADoubleClickInAnotherFolderWhileAFilePlaysPlaysOnInThatFolder)
{
    Song("e/c.mid", 40);
    StartWithPanel();
    DoubleClick(form().ListMidiSel, 1);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    EXPECT_EQ(state().PlayDir, At("d"));
    DoubleClick(form().ListMidiSel, 0);
    EXPECT_EQ(device().FileName, At("e/c.mid"));
    EXPECT_EQ(state().PlayDir, At("e"));
}

TEST_F(FileSelection, ADoubleClickInTheCompilationPlays)
{
    StartWithCompilation();
    DoubleClick(form().ListMidiSel, 0);
    DoubleClick(form().ListMidiCorr, 1);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_EQ(settings().PlayerName, "mix");
    EXPECT_EQ(settings().PlayerFile, At("d/b.mid"));
    EXPECT_TRUE(state().PlayFromCompilation);
    EXPECT_EQ(state().CurrentCompRow, 1);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "60");
    EXPECT_EQ(form().HScrollStop.value, 60);
}

TEST_F(FileSelection, ADoubleClickOnARefusedFileSaysSoOnceAndPlaysNothing)
{
    StartWithPanel();
    session.sequencer.songs[At("d/b.mid")] = {0, 301, InWords("This is no MIDI file.")};
    DoubleClick(form().ListMidiSel, 1);
    EXPECT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(device().Mode(), 524);
    Clock(250);
    EXPECT_FALSE(form().Timer1.enabled);
}

} // namespace
} // namespace velluto::test
