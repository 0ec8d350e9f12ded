// Marks, markers, position and time.
#include "player/Marks.h"

#include "player/PlayerClock.h"
#include "player/Transport.h"
#include "unit/player/PlayerRun.h"

#include <algorithm>

namespace velluto::test {
namespace {

class Marks : public PlayerRun {
protected:
    Marks() { Song("d/a.mid", 200); }
    void StartWithFile()
    {
        StartWithPanel();
        Click(form().ListMidiSel, 0);
    }
    [[nodiscard]] int Scale() { return form().Picture1.place.Get().width - 135; }
    [[nodiscard]] int Start() { return form().Picture2.place.Get().left; }
    [[nodiscard]] int Stop() { return form().Picture3.place.Get().left; }
};

TEST_F(Marks, ShowPositionTellsNumberAndShare)
{
    StartWithFile();
    ShowPosition(form(), 67);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "67 (33%)");
    EXPECT_EQ(form().Line1.X1(), Scale() * 33 / 100 + 30);
    ShowPosition(form(), 200);
    EXPECT_EQ(form().Line1.X1(), Scale() + 30);
}

TEST_F(Marks, ShowPositionWithoutALengthIsAtTheStart)
{
    PlayerRun::Start();
    ShowPosition(form(), 12);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "12 (0%)");
    EXPECT_EQ(form().Line1.X1(), 30);
}

TEST_F(Marks, ShowPositionOfAVeryLongFileDoesNotOverflow)
{
    StartWithFile();
    state().TrackLength = 2000000000;
    ShowPosition(form(), 1000000000);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "1000000000 (50%)");
}

TEST_F(Marks, TheStartMarkMovesItsMarkerAndThePosition)
{
    StartWithFile();
    Set(form().HScrollStart, 50);
    EXPECT_EQ(state().StartMark, 50);
    EXPECT_EQ(form().LabStart.caption.Get(), "50");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "50 (25%)");
    EXPECT_EQ(Start(), Scale() * 25 / 100 + 100);
    EXPECT_TRUE(state().MarksActive);
    EXPECT_FALSE(form().CommPlayAll.enabled);
}

TEST_F(Marks, TheStartMarkCannotPassTheStopMark)
{
    StartWithFile();
    Set(form().HScrollStop, 80);
    Set(form().HScrollStart, 120);
    EXPECT_EQ(form().HScrollStart.value, 80);
    EXPECT_EQ(form().LabStart.caption.Get(), "80");
    EXPECT_EQ(state().StartMark, 80);
    EXPECT_EQ(Start(), Scale() * 40 / 100 + 100);
}

TEST_F(Marks, TheStopMarkCannotPassTheStartMark)
{
    StartWithFile();
    Set(form().HScrollStart, 80);
    Set(form().HScrollStop, 20);
    EXPECT_EQ(form().HScrollStop.value, 80);
    EXPECT_EQ(form().LabStop.caption.Get(), "80");
    EXPECT_EQ(state().StopMark, 80);
    EXPECT_EQ(Stop(), Scale() * 40 / 100 + 100);
}

TEST_F(Marks, TheStopMarkLeavesThePosition)
{
    StartWithFile();
    Set(form().HScrollStop, 100);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0 (0%)");
    EXPECT_EQ(state().StopMark, 100);
    EXPECT_TRUE(state().MarksActive);
}

TEST_F(Marks, BothAtTheEndsAreNoMarks)
{
    StartWithFile();
    EXPECT_FALSE(state().MarksActive);
    EXPECT_EQ(Start(), 100);
    EXPECT_EQ(Stop(), Scale() + 100);
    Set(form().HScrollStart, 1);
    EXPECT_TRUE(state().MarksActive);
    Set(form().HScrollStart, 0);
    EXPECT_FALSE(state().MarksActive);
    EXPECT_TRUE(form().CommPlayAll.enabled);
    Set(form().HScrollStop, 199);
    EXPECT_TRUE(state().MarksActive);
    Set(form().HScrollStop, 200);
    EXPECT_FALSE(state().MarksActive);
}

TEST_F(Marks, AMarkSwitchesPlayAllOffButLeavesItArmed)
{
    StartWithFile();
    form().CommPlayAll.color = kToggledColor;
    state().PlayAllArmed = true;
    Set(form().HScrollStop, 100);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_TRUE(state().PlayAllArmed);
}

TEST_F(Marks, WhilePlayingTheStartMarkLeavesThePosition)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(1000);
    Set(form().HScrollStart, 50);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "10 (5%)");
    EXPECT_EQ(state().StartMark, 50);
}

TEST_F(Marks, UnderTheGuardTheStartMarkDoesNothing)
{
    StartWithFile();
    state().SelectionGuard = true;
    Set(form().HScrollStart, 50);
    EXPECT_EQ(state().StartMark, 0);
    EXPECT_EQ(form().LabStart.caption.Get(), "0");
    Set(form().HScrollStop, 100); // has no guard
    EXPECT_EQ(state().StopMark, 100);
}

TEST_F(Marks, ADragMovesMarkerLabelAndLineOnly)
{
    StartWithFile();
    Set(form().HScrollStop, 80);
    Drag(form().HScrollStart, 120); // beyond the stop mark
    EXPECT_EQ(form().LabStart.caption.Get(), "120");
    EXPECT_EQ(Start(), Scale() * 60 / 100 + 100);
    EXPECT_EQ(form().Line1.X1(), Start() - 70);
    EXPECT_EQ(state().StartMark, 0);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0 (0%)");
    Set(form().HScrollStart, 120); // let go
    EXPECT_EQ(form().LabStart.caption.Get(), "80");
    EXPECT_EQ(state().StartMark, 80);
}

TEST_F(Marks, ADragOfTheStopSlider)
{
    StartWithFile();
    Drag(form().HScrollStop, 100);
    EXPECT_EQ(form().LabStop.caption.Get(), "100");
    EXPECT_EQ(Stop(), Scale() * 50 / 100 + 100);
    EXPECT_EQ(form().Line1.X1(), 30);
    EXPECT_FALSE(state().MarksActive);
    EXPECT_EQ(state().StopMark, 200);
}

TEST_F(Marks, LabelsMayCrossWhileASliderIsHeldButNotOnceItIsLetGo)
{
    StartWithFile();
    Set(form().HScrollStart, 80);
    Drag(form().HScrollStop, 20);
    EXPECT_EQ(form().LabStart.caption.Get(), "80");
    EXPECT_EQ(form().LabStop.caption.Get(), "20");
    EXPECT_EQ(state().StopMark, 200);
    Set(form().HScrollStop, 20); // lets it go where it is
    EXPECT_EQ(form().LabStop.caption.Get(), "80");
    EXPECT_EQ(form().HScrollStop.value, 80);
    EXPECT_EQ(state().StopMark, 80);
}

TEST_F(Marks, ADragWhilePlayingLeavesTheLine)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Drag(form().HScrollStart, 100);
    EXPECT_EQ(form().Line1.X1(), 30);
}

TEST_F(Marks, LabelsStandAsTheirContents)
{
    StartWithFile();
    EXPECT_EQ(form().LabStart.alignment, Alignment::Right);
    EXPECT_EQ(form().LabStop.alignment, Alignment::Right);
    DisableMarks(form());
    EXPECT_EQ(form().LabStart.alignment, Alignment::Centre);
    EXPECT_EQ(form().LabStop.caption.Get(), "Stop");
    EXPECT_FALSE(form().HScrollStop.enabled);
}

TEST_F(Marks, WordsInTheLabelsAreNoNumbers)
{
    StartWithFile();
    DisableMarks(form());
    form().HScrollStop.value = 100; // as the next file of "Play all" writes it
    form().HScrollStop.value = 200;
    EXPECT_FALSE(state().MarksActive);
}

TEST_F(Marks, TheTimerShowsPositionTimeAndKeepsTheTime)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(249);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    Clock(1);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "2 (1%)");
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_EQ(state().TickMap[2], 1);
    Clock(750);
    EXPECT_EQ(form().Label1.caption.Get(), "0:01"); // the tick of that moment counts
    EXPECT_EQ(state().TickMap[10], 5);
}

TEST_F(Marks, TheTimeIsMinutesAndTwoDigitsOfSeconds)
{
    StartWithFile();
    state().TickCount = 5 * 65 + 4;
    Timer1_Timer(form());
    EXPECT_EQ(form().Label1.caption.Get(), "1:05");
    state().TickCount = 5 * 3725;
    Timer1_Timer(form());
    EXPECT_EQ(form().Label1.caption.Get(), "62:05");
}

TEST_F(Marks, ThePositionIsAtLeastWhereThePlayBegan)
{
    StartWithFile();
    device().From(90);
    Timer1_Timer(form());
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "90 (45%)");
}

TEST_F(Marks, ATimeThatNoCellHoldsIsKeptAsTheLargest)
{
    StartWithFile();
    state().TickCount = 100000;
    Timer1_Timer(form());
    EXPECT_EQ(state().TickMap[0], 32767);
}

TEST_F(Marks, BeyondThePositionsOfTheTableNothingIsKept)
{
    StartWithFile();
    state().TrackLength = 40000;
    form().HScrollStop.max = 40000;
    form().HScrollStop.value = 40000;
    state().TickCount = 9;
    for (const int position : {29999, 30000, 35000}) {
        device().From(position);
        Timer1_Timer(form());
    }
    EXPECT_EQ(state().TickMap[29999], 9);
    EXPECT_EQ(state().TickMap[30000], 0);
    EXPECT_EQ(std::ranges::count(state().TickMap, 9), 1);
}

TEST_F(Marks, WithoutALengthTheTimerShowsTheTimeAlone)
{
    StartWithFile();
    state().TrackLength = 0;
    form().LabTrackPosition.caption = std::string("as it was");
    state().TickCount = 10;
    Timer1_Timer(form());
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "as it was");
    EXPECT_EQ(form().Label1.caption.Get(), "0:02");
    EXPECT_EQ(state().TickMap[0], 10);
}

TEST_F(Marks, TheStopMarkStopsThePlay)
{
    StartWithFile();
    Set(form().HScrollStop, 11);
    Transport(TransportButton::Play);
    Clock(1249);
    EXPECT_EQ(device().Mode(), 526);
    Clock(1); // seen 12, overrun by a little
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().Position(), 12);
    EXPECT_EQ(Buttons(), "1110000");
    EXPECT_FALSE(form().Timer1.enabled);
    EXPECT_FALSE(session.ticks.Running());
}

TEST_F(Marks, TheTickCountsEach200Milliseconds)
{
    StartWithFile();
    ContaSecStart(form());
    Clock(199);
    EXPECT_EQ(state().TickCount, 0);
    Clock(1);
    EXPECT_EQ(state().TickCount, 1);
    Clock(2000);
    EXPECT_EQ(state().TickCount, 11);
    StartTickTimer(form()); // ends the running one first
    Clock(200);
    EXPECT_EQ(state().TickCount, 12);
    ContaSecStop(form());
    Clock(1000);
    EXPECT_EQ(state().TickCount, 12);
    ContaSecContinua(form());
    EXPECT_TRUE(form().Timer1.enabled);
    Clock(200);
    EXPECT_EQ(state().TickCount, 13);
}

TEST_F(Marks, SwitchedOffAndOnTheTimerBeginsAnew)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(200);
    Transport(TransportButton::Forward); // off and on within one handler
    form().LabTrackPosition.caption = std::string("as it was");
    Clock(249);
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "as it was");
    Clock(1);
    EXPECT_NE(form().LabTrackPosition.caption.Get(), "as it was");
}

} // namespace
} // namespace velluto::test
