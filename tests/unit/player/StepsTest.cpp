// Back and forward by 5%, and the times that go with the positions.
#include "player/Transport.h"

#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

class Steps : public PlayerRun {
protected:
    Steps() { Song("d/a.mid", 100); }
    void StartWithFile()
    {
        StartWithPanel();
        Click(form().ListMidiSel, 0);
    }
};

TEST_F(Steps, ForwardStepsBy5PercentAndEstimatesTheTime)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(2000); // position 20, 10 ticks
    Transport(TransportButton::Forward);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(device().From(), 25);
    EXPECT_EQ(device().Position(), 25);
    EXPECT_EQ(state().TickCount, 12); // 25 times 10 by 20
    EXPECT_TRUE(form().Timer1.enabled);
    EXPECT_TRUE(session.ticks.Running());
}

TEST_F(Steps, ForwardStopsAtTheStopMark)
{
    StartWithFile();
    Set(form().HScrollStop, 22);
    Transport(TransportButton::Play);
    Clock(2000);
    Transport(TransportButton::Forward);
    EXPECT_EQ(device().From(), 22);
    EXPECT_EQ(state().TickCount, 12); // as if it had gone all the way
}

TEST_F(Steps, ForwardAtTheVeryStartLeavesTheTime)
{
    StartWithFile();
    Transport(TransportButton::Play);
    state().TickCount = 4;
    Transport(TransportButton::Forward);
    EXPECT_EQ(device().From(), 5);
    EXPECT_EQ(state().TickCount, 4);
}

TEST_F(Steps, ForwardFromPausedPlays)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(2000);
    Transport(TransportButton::Pause);
    Transport(TransportButton::Forward);
    EXPECT_EQ(device().Mode(), 526);
    EXPECT_EQ(Buttons(), "1111111"); // as the pause has left them
}

TEST_F(Steps, BackGoesToTheNearestPositionBeforeWhoseTimeIsKnown)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(2000); // Timer1 has seen 2, 5, 7, 10, 12, 15, 17, 20
    EXPECT_EQ(state().TickMap[15], 7);
    EXPECT_EQ(state().TickMap[12], 6);
    EXPECT_EQ(state().TickMap[13], 0);
    Transport(TransportButton::Back); // 15
    EXPECT_EQ(device().From(), 15);
    EXPECT_EQ(state().TickCount, 7);
    Clock(100);                       // 16
    Transport(TransportButton::Back); // 11: nothing is known there, at 10 it is
    EXPECT_EQ(device().From(), 10);
    EXPECT_EQ(state().TickCount, 5);
    EXPECT_EQ(device().Mode(), 526);
}

TEST_F(Steps, TheNextPositionIsShownAWholeIntervalAfterTheStep)
{
    StartWithFile();
    for (const int step : {TransportButton::Forward, TransportButton::Back}) {
        Transport(TransportButton::Play);
        Clock(2100); // 100 ms after Timer1
        const std::string shown = form().LabTrackPosition.caption;
        Transport(step);
        Clock(200);
        EXPECT_EQ(form().LabTrackPosition.caption.Get(), shown);
        Clock(50);
        EXPECT_NE(form().LabTrackPosition.caption.Get(), shown);
        Transport(TransportButton::Stop);
    }
}

TEST_F(Steps, BackStopsAtTheStartMark)
{
    StartWithFile();
    Set(form().HScrollStart, 30);
    Transport(TransportButton::Play);
    Clock(250); // 32
    state().TickMap[30] = 1;
    Transport(TransportButton::Back);
    EXPECT_EQ(device().From(), 30);
    EXPECT_EQ(state().TickCount, 1);
}

TEST_F(Steps, BackWithoutAKnownTimeGoesToTheBeginning)
{
    StartWithFile();
    Set(form().HScrollStart, 30);
    Transport(TransportButton::Play);
    Clock(100);
    Transport(TransportButton::Back); // the start mark, or the nearest earlier position for which a time is known
    EXPECT_EQ(device().From(), 0);
    EXPECT_EQ(state().TickCount, 0);
}

TEST_F(Steps, BackToTheBeginningTakesTheTimeThatWasLastSeenThere)
{
    StartWithFile();
    Transport(TransportButton::Play);
    Clock(200);
    state().TickMap[0] = 3; // a slow song: ticks pass at position 0
    Transport(TransportButton::Back);
    EXPECT_EQ(device().From(), 0);
    EXPECT_EQ(state().TickCount, 3);
}

TEST_F(Steps, BackFromBeyondTheTableFallsToItsLastKnownPosition)
{
    session.sequencer.songs[At("d/a.mid")].length = 100000;
    StartWithFile();
    Set(form().HScrollStart, 40000);
    Transport(TransportButton::Play);
    state().TickMap[29999] = 77;
    Transport(TransportButton::Back);
    EXPECT_EQ(device().From(), 29999);
    EXPECT_EQ(state().TickCount, 77);
}

} // namespace
} // namespace velluto::test
