// The seven buttons and the two toggles.
#include "player/Transport.h"

#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

using testing::ElementsAre;

class Transport : public PlayerRun {
protected:
    // Three files in the folder d: a, b, c with 100, 60 and 40 units.
    Transport()
    {
        Song("d/a.mid", 100);
        Song("d/b.mid", 60);
        Song("d/c.mid", 40);
    }
    // The three as a compilation, shown.
    void StartWithCompilation()
    {
        using namespace std::string_literals;
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0c.mid\0\xFF"s);
        Start();
        Click(form().ListComp, 0);
    }
    static constexpr int kPrevious = TransportButton::Previous;
    static constexpr int kNext = TransportButton::Next;
    static constexpr int kPlay = TransportButton::Play;
    static constexpr int kPause = TransportButton::Pause;
    static constexpr int kStop = TransportButton::Stop;
    void Transported(int button) { PlayerRun::Transport(button); }
};

TEST_F(Transport, PlayWithoutAFileTriesToOpenOneAndThenSaysThatItIsNotReady)
{
    Start();
    Transported(kPlay);
    EXPECT_EQ(device().Command(), "open");
    EXPECT_TRUE(state().DeviceOpenTried);
    EXPECT_TRUE(session.face.boxes.empty());
    Transported(kPlay);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].text, "MCI device not ready");
    EXPECT_EQ(device().Command(), "open");
}

TEST_F(Transport, PlayFromStopped)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 1);
    EXPECT_EQ(Buttons(), "1110000");
    state().TickMap[7] = 3;
    Transported(kPlay);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(Buttons(), "1101111");
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "60");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    EXPECT_EQ(state().TrackLength, 60);
    EXPECT_EQ(state().OpenFilePath, At("d/b.mid"));
    EXPECT_EQ(state().TickMap[7], 0);
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_FALSE(form().CommRimAll.enabled);
    EXPECT_FALSE(form().CommAdd.enabled);
    EXPECT_FALSE(form().CommAddAll.enabled);
    EXPECT_TRUE(form().Timer1.enabled);
    EXPECT_TRUE(session.ticks.Running());
}

TEST_F(Transport, PlayFromStoppedBeginsAtTheStartMark)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Set(form().HScrollStart, 25);
    Transported(kPlay);
    EXPECT_EQ(device().From(), 25);
    EXPECT_EQ(device().Position(), 25);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0"); // where the device stood before
}

TEST_F(Transport, PlayTellsOfAnErrorOfTheLastCommand)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    device().Command("nonsense");
    Transported(kPlay);
    EXPECT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_FALSE(form().Timer1.enabled);
}

TEST_F(Transport, PauseAndPlayCountTheTimeFromZero)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Transported(kPlay);
    Clock(3000);
    EXPECT_EQ(form().Label1.caption.Get(), "0:03");
    Transported(kPause);
    EXPECT_EQ(device().Mode(), 529);
    EXPECT_EQ(Buttons(), "1111111");
    EXPECT_FALSE(session.ticks.Running());
    EXPECT_FALSE(form().Timer1.enabled);
    Clock(1000);
    Transported(kPlay);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(Buttons(), "1101111");
    Clock(1000);
    EXPECT_EQ(form().Label1.caption.Get(), "0:01");
    EXPECT_EQ(device().Position(), 40);
}

TEST_F(Transport, PauseAndPauseLetTheTimeGoOn)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Transported(kPlay);
    Clock(3000);
    Transported(kPause);
    Clock(1000);
    Transported(kPause);
    EXPECT_EQ(device().Mode(), 526);
    Clock(1000);
    EXPECT_EQ(form().Label1.caption.Get(), "0:04");
}

TEST_F(Transport, NextGoesRoundTheFolder)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Transported(kNext);
    EXPECT_EQ(device().Mode(), 525); // the switch comes outside the click
    EXPECT_EQ(state().CurrentFileRow, 2);
    EXPECT_EQ(state().NextFilePath, At("d/c.mid"));
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(2));
    EXPECT_EQ(form().ListMidiSel.ListIndex(), 2);
    EXPECT_FALSE(state().SelectionGuard);
    Clock(9);
    EXPECT_EQ(device().Mode(), 525);
    Clock(1);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().FileName, At("d/c.mid"));
    EXPECT_FALSE(form().TimerComandi.enabled);
    Transported(kNext); // from the last row
    Clock(10);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - a.mid");
}

TEST_F(Transport, PreviousGoesRoundTheCompilation)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 0);
    Transported(kPrevious);
    EXPECT_EQ(state().CurrentCompRow, 2);
    EXPECT_EQ(settings().PlayerFile, At("d/c.mid"));
    EXPECT_FALSE(state().SelectionGuard);
    Clock(10);
    EXPECT_EQ(device().FileName, At("d/c.mid"));
    Transported(kPrevious);
    Clock(10);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
}

TEST_F(Transport, PreviousInTheFolderLeavesTheGuardUp)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Transported(kPrevious);
    Clock(10);
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    EXPECT_TRUE(state().SelectionGuard);
    Transported(kStop);
    Click(form().ListMidiSel, 2); // only changes its selection now
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    Transported(kNext); // lowers it
    EXPECT_FALSE(state().SelectionGuard);
}

TEST_F(Transport, NextStartsFromTheRowOfTheOpenFile)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Transported(kPlay);
    Click(form().ListMidiSel, 2); // while a file plays it only changes the selection
    EXPECT_EQ(device().FileName, At("d/a.mid"));
    Transported(kNext);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
    Clock(10);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

TEST_F(Transport, NextUnselectsTheCurrentRowAndThatOfTheOpenFile)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Transported(kPlay);
    CtrlClick(form().ListMidiSel, 2);
    ASSERT_THAT(Selected(form().ListMidiSel), ElementsAre(0, 2));
    Transported(kNext);
    EXPECT_THAT(Selected(form().ListMidiSel), ElementsAre(1));
    EXPECT_EQ(form().ListMidiSel.ListIndex(), 1);
}

TEST_F(Transport, NextInAnEmptyListDoesNothing)
{
    Start();
    Transported(kNext);
    Transported(kPrevious);
    EXPECT_FALSE(form().TimerComandi.enabled);
    EXPECT_FALSE(state().SelectionGuard);
    Clock(100);
    EXPECT_EQ(device().Command(), "");
}

TEST_F(Transport, NextInAListThatHasBecomeShorterStaysInside)
{
    StartWithPanel();
    Click(form().ListMidiSel, 2);
    Song("e/z.mid", 10);
    Do("set frmMIDIPlayer DirMidiSel " + At("e"));
    Transported(kNext);
    Clock(10);
    EXPECT_EQ(device().FileName, At("e/z.mid"));
    Transported(kPrevious);
    Clock(10);
    EXPECT_EQ(device().FileName, At("e/z.mid"));
}

TEST_F(Transport, TheSwitchStopsWhatPlaysAndShowsTheNewFile)
{
    StartWithCompilation();
    Click(form().ListMidiCorr, 0);
    Set(form().HScrollStart, 20);
    Set(form().HScrollStop, 50);
    EXPECT_TRUE(state().MarksActive);
    Transported(kPlay);
    Clock(1000);
    Transported(kNext);
    Clock(10);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().Position(), 0);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "60");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0 (0%)");
    EXPECT_EQ(form().HScrollStart.value, 0);
    EXPECT_EQ(form().HScrollStop.value, 60);
    EXPECT_EQ(form().HScrollStop.max, 60);
    EXPECT_EQ(form().LabStart.caption.Get(), "0");
    EXPECT_EQ(form().LabStop.caption.Get(), "60");
    EXPECT_EQ(state().StopMark, 60);
    EXPECT_EQ(state().StartMark, 0);
    EXPECT_FALSE(state().MarksActive);
    EXPECT_TRUE(form().CommPlayAll.enabled);
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_EQ(state().TickCount, 0);
    EXPECT_EQ(Buttons(), "1101111");
}

TEST_F(Transport, AMarkThatStandsWhereTheNewFileEndsIsNoMarkAnyMore)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Set(form().HScrollStop, 40);
    EXPECT_FALSE(form().CommPlayAll.enabled);
    Click(form().ListMidiSel, 2); // 40 units
    EXPECT_FALSE(state().MarksActive);
    EXPECT_TRUE(form().CommPlayAll.enabled);
    EXPECT_EQ(form().Picture3.place.Get().left, form().Picture1.place.Get().width - 135 + 100);
}

TEST_F(Transport, AFileThatDoesNotOpenInTheSwitchIsNotTold)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    session.sequencer.songs[At("d/b.mid")] = {0, 301, InWords("This is no MIDI file.")};
    Transported(kNext);
    Clock(10);
    EXPECT_TRUE(session.face.boxes.empty());
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(form().LabTrackLenght.caption.Get(), "0");
    Clock(250); // position 0 is at the stop mark
    EXPECT_FALSE(form().Timer1.enabled);
    EXPECT_EQ(Buttons(), "1110000");
}

TEST_F(Transport, TheSwitchLocksWhatRemovesAndNotWhatAdds)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    ASSERT_TRUE(form().CommAdd.enabled);
    form().CommRim.enabled = true;
    form().CommRimAll.enabled = true;
    Transported(kNext);
    Clock(10);
    EXPECT_FALSE(form().CommRim.enabled);
    EXPECT_FALSE(form().CommRimAll.enabled);
    EXPECT_TRUE(form().CommAdd.enabled);
    EXPECT_TRUE(form().CommAddAll.enabled);
}

TEST_F(Transport, RepeatAndPlayAllExcludeEachOtherAsTheyDo)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommRep);
    EXPECT_EQ(form().CommRep.color, 0x00FF00);
    Press(form().CommPlayAll);
    EXPECT_EQ(form().CommRep.color, Button::kPlainColor);
    EXPECT_EQ(form().CommPlayAll.color, 0x00FF00);
    EXPECT_TRUE(state().PlayAllArmed);
    EXPECT_FALSE(form().HScrollStart.enabled);
    EXPECT_EQ(form().LabStart.caption.Get(), "Start");
    EXPECT_EQ(form().LabStop.caption.Get(), "Stop");
    Press(form().CommRep);
    EXPECT_EQ(form().CommRep.color, 0x00FF00);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_TRUE(form().HScrollStart.enabled);
    EXPECT_EQ(form().LabStop.caption.Get(), "100");
    Press(form().CommRep);
    EXPECT_EQ(form().CommRep.color, Button::kPlainColor);
}

TEST_F(Transport, RepeatLeavesPlayAllGreenOnceItIsNoLongerArmed)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    state().PlayAllArmed = false; // as behind the first file
    Press(form().CommRep);
    EXPECT_EQ(form().CommPlayAll.color, 0x00FF00);
    EXPECT_EQ(form().CommRep.color, 0x00FF00);
}

TEST_F(Transport, PlayAllOffGivesTheMarksBack)
{
    StartWithPanel();
    Click(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Press(form().CommPlayAll);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_TRUE(form().HScrollStop.enabled);
    EXPECT_EQ(form().LabStart.caption.Get(), "0");
}

TEST_F(Transport, EachButtonFirstGivesTheFocusToTheCompilation)
{
    Start();
    int focused = 0;
    form().ListMidiCorr.observer = [&focused](Aspect aspect) { focused += aspect == Aspect::Focus ? 1 : 0; };
    for (int button = 0; button < kTransportButtons; ++button) {
        form().MCIPuls[button].enabled = true;
        Transported(button);
        EXPECT_EQ(focused, button + 1);
    }
    form().ListMidiCorr.observer = nullptr;
}

} // namespace
} // namespace velluto::test
