// What follows the end of a file, and the handlers that wait meanwhile.
#include "player/EndOfFile.h"

#include "unit/player/SongsRun.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class EndOfFile : public SongsRun {};

TEST_F(EndOfFile, AFileThatEndsStandsStill)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Play();
    Clock(1000);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().Command(), "stop");
    EXPECT_EQ(Buttons(), "1110000");
    EXPECT_FALSE(form().Timer1.enabled);
    EXPECT_FALSE(session.ticks.Running());
    Clock(10000);
    EXPECT_EQ(device().Mode(), 525);
}

TEST_F(EndOfFile, TheTimeOfTheLastTickIsShownWhereTheFileEndsBetweenTwoLooks)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Play();
    Clock(1000);
    EXPECT_EQ(state().TickCount, 5); // the tick of that moment was counted
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "7 (70%)");
}

TEST_F(EndOfFile, OtherCodesDoNothing)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    MMControl1_Done(form(), 2);
    MMControl1_Done(form(), 8);
    EXPECT_EQ(device().Command(), "open");
}

TEST_F(EndOfFile, NothingHappensUnlessTheDeviceIsStopped)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Play();
    MMControl1_Done(form(), 1);
    MMControl1_Done(form(), 4);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().Command(), "play");
}

TEST_F(EndOfFile, NothingHappensWithoutAnOpenFile)
{
    StartWithPanel();
    form().LabTrackPosition.caption = std::string("as it was");
    MMControl1_Done(form(), 4);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "as it was");
    MMControl1_Done(form(), 1);
    EXPECT_EQ(device().Command(), "");
}

TEST_F(EndOfFile, TheStopMarkGivesTheAddButtonsBack)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Set(form().HScrollStop, 10);
    Play();
    EXPECT_FALSE(form().CommAddAll.enabled);
    Clock(1250);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_TRUE(form().CommAddAll.enabled);
    EXPECT_TRUE(form().CommAdd.enabled);
}

TEST_F(EndOfFile, ARowChosenWhileAFileOfTheCompilationPlaysCannotBeRemoved)
{
    StartWithCompilation();
    Play();
    Click(form().ListMidiCorr, 1);
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_FALSE(form().CommRimAll.enabled);
}

TEST_F(EndOfFile, ARowChosenWhileTheFilePlayedIsOpenedAtItsEnd)
{
    StartWithCompilation();
    Play();
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    Clock(2000);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(state().CurrentCompRow, 1);
}

TEST_F(EndOfFile, AFileRemovedFromItsCompilationWhileItPlayedIsClosedAtItsEnd)
{
    Start();
    Click(form().ListComp, 0);
    DoubleClick(form().ListMidiCorr, 0); // leaves the button that removes on
    Press(form().CommRim);
    ASSERT_EQ(form().ListMidiCorr.Rows(), Rows{"b.mid   (3)"});
    EXPECT_EQ(device().Mode(), 526);
    Clock(2000);
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    EXPECT_EQ(form().LabStart.caption.Get(), "Start");
}

TEST_F(EndOfFile, WithAnotherCompilationShownNoRowIsOpened)
{
    StartWithCompilation();
    Play();
    Click(form().ListComp, 1);
    Click(form().ListMidiCorr, 0);
    Clock(2000);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
}

TEST_F(EndOfFile, PlayAllGoesOnAfterAGap)
{
    StartWithCompilation();
    Press(form().CommPlayAll);
    Play();
    Clock(2000);
    EXPECT_EQ(device().Mode(), 524); // closed for the gap
    EXPECT_EQ(device().Command(), "close");
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
    EXPECT_EQ(form().ListMidiCorr.ListIndex(), 1);
    EXPECT_EQ(settings().PlayerFile, At("d/b.mid"));
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_EQ(Buttons(), "1110000");
    Clock(599);
    EXPECT_EQ(device().Mode(), 524);
    Clock(1);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
    EXPECT_EQ(form().CommPlayAll.color, kToggledColor);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "10");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    EXPECT_EQ(form().LabStop.caption.Get(), "10");
    EXPECT_EQ(form().HScrollStop.value, 10);
    EXPECT_EQ(form().HScrollStop.max, 10);
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_FALSE(state().MarksActive);
    EXPECT_TRUE(form().CommPlayAll.enabled);
    EXPECT_FALSE(form().CommAddAll.enabled);
    EXPECT_EQ(Buttons(), "1101111");
}

TEST_F(EndOfFile, PlayAllOfACompilationWrapsAndLeavesItsLastRowSelected)
{
    StartWithCompilation();
    Press(form().CommPlayAll);
    Play();
    Clock(2000 + 600 + 1000); // the end of b
    EXPECT_EQ(state().CurrentCompRow, 0);
    EXPECT_EQ(form().ListMidiCorr.ListIndex(), 0);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(0, 1));
    Clock(600);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(device().Mode(), 526);
    Clock(2000 + 600); // and so on
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

TEST_F(EndOfFile, PlayAllOfOneRowPlaysItAgainAndAgain)
{
    Start();
    Click(form().ListComp, 1);
    Click(form().ListMidiCorr, 0);
    Press(form().CommPlayAll);
    Play();
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(device().Mode(), 526);
        Clock(3000);
        EXPECT_EQ(device().Mode(), 524);
        Clock(600);
    }
    EXPECT_EQ(device().FileName, At("d/c.mid"));
}

TEST_F(EndOfFile, PlayAllComesBackToItsCompilation)
{
    StartWithCompilation();
    Press(form().CommPlayAll);
    Play();
    Click(form().ListComp, 1);
    ASSERT_EQ(form().ListMidiCorr.Rows(), Rows{"c.mid   (3)"});
    Clock(2600);
    EXPECT_EQ(form().ListComp.ListIndex(), 0);
    EXPECT_EQ(form().Text2.text.Get(), "mix");
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

TEST_F(EndOfFile, PlayAllOfACompilationWhoseRowHasGoneLeavesTheOneShown)
{
    StartWithCompilation();
    Press(form().CommPlayAll);
    Play();
    Click(form().ListComp, 1);
    state().CompilationIndex = 2; // its row was the last one, and has been deleted
    Clock(2600);
    EXPECT_EQ(form().ListComp.ListIndex(), 1);
    EXPECT_EQ(form().ListMidiCorr.Rows(), Rows{"c.mid   (3)"});
    EXPECT_EQ(device().FileName, At("d/c.mid"));
}

TEST_F(EndOfFile, PlayAllPutsBackARowThatWasMoved)
{
    WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0c.mid\0\xFF"s);
    StartWithCompilation();
    Play();
    Press(form().CommPlayAll);
    state().PlayAllArmed = false;
    Click(form().ListMidiCorr, 2);
    Clock(2600);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
}

TEST_F(EndOfFile, PlayAllGoesThroughTheFolderAndRoundIt)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Press(form().CommPlayAll);
    Play();
    Clock(1000);
    EXPECT_EQ(state().NextFilePath, At("d/c.mid"));
    EXPECT_EQ(state().PlayingFileRow, 2);
    Clock(600);
    EXPECT_EQ(device().FileName, At("d/c.mid"));
    Clock(3600);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(0));
}

TEST_F(EndOfFile, PlayAllEndsInAnotherFolder)
{
    Song("e/z.mid", 10);
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Clock(5000);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
}

TEST_F(EndOfFile, PlayAllEndsWithoutThePanel)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Press(form().CommSel);
    Clock(5000);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_EQ(device().Mode(), 525);
}

TEST_F(EndOfFile, PlayAllEndsInAFolderThatHasBecomeEmpty)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    for (const char *name : {"d/a.mid", "d/b.mid", "d/c.mid"}) {
        std::filesystem::remove(At(name));
    }
    Do("set frmMIDIPlayer DirMidiSel " + At("d"));
    ASSERT_EQ(form().ListMidiSel.ListCount(), 0);
    ASSERT_EQ(state().PlayDir, settings().PlayerDir);
    Clock(5000);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_EQ(device().Mode(), 525);
}

TEST_F(EndOfFile, AFileThatDoesNotOpenEndsPlayAllWithoutAMessage)
{
    StartWithPanel();
    session.sequencer.songs[At("d/b.mid")] = {0, 301, InWords("This is no MIDI file.")};
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(10000);
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
}

TEST_F(EndOfFile, InTheGapTheListsAreInForceAgain)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(2200); // one tick of the gap
    Click(form().ListMidiSel, 2);
    EXPECT_EQ(device().FileName, At("d/c.mid"));
    EXPECT_EQ(device().Mode(), 525);
    Clock(400); // the handler goes on with the file that it was about to open
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_EQ(device().Mode(), 526);
}

TEST_F(EndOfFile, AHandlerWaitsForTicksWhoeverCountsThem)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(2200);
    DoubleClick(form().ListMidiSel, 2);
    Transport(TransportButton::Stop); // the tick ends, and with it the waiting
    Clock(60000);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(state().waiting.size(), 1U);
    Play();
    Clock(600); // the third tick of that play
    EXPECT_TRUE(state().waiting.empty());
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

TEST_F(EndOfFile, TheEndOfTheWindowEndsAWait)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(2100);
    EXPECT_EQ(state().waiting.size(), 1U);
    Do("close frmMIDIPlayer");
    EXPECT_TRUE(state().waiting.empty());
    Clock(5000);
    EXPECT_EQ(session.sequencer.Mode(), 524);
}

TEST_F(EndOfFile, TheEndOfTheProgramEndsAWait)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(2100);
    Do("exit");
    EXPECT_FALSE(session.Running());
    Clock(5000);
    EXPECT_EQ(session.sequencer.Mode(), 524);
}

TEST_F(EndOfFile, AFileWithoutLengthEndsAtOnceAndPlayAllGoesOn)
{
    session.sequencer.songs[At("d/a.mid")] = {0, 0, {}};
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Play();
    Clock(0);
    EXPECT_EQ(device().Mode(), 524);
    Clock(600);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

} // namespace
} // namespace velluto::test
