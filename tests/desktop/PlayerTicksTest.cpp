// Real timers: the ticks themselves, and the player whose clock, gaps and loops they drive.
#include "desktop/PlayerDesk.h"

namespace velluto::test {

namespace {

constexpr int kFast = 1; // milliseconds

class TicksTest : public testing::Test {
protected:
    // Until a timer of the test's own, as fast as the ticks, has come so often.
    static void LetTimePass(int times)
    {
        int came = 0;
        QTimer other;
        QObject::connect(&other, &QTimer::timeout, &other, [&came] { ++came; });
        other.start(kFast);
        EXPECT_TRUE(QTest::qWaitFor([&came, times] { return came >= times; }));
    }

    EventGate gate;
    QtTicks ticks{gate};
    int count = 0;
};

TEST_F(TicksTest, ComeUntilTheyAreKilled)
{
    const QtTicks::TimerId id = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
    EXPECT_NE(id, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return count >= 3; }));
    ticks.timeKillEvent(id);
    const int before = count;
    LetTimePass(5);
    EXPECT_EQ(count, before);
}

TEST_F(TicksTest, TwoTimersAreTwoAndAnUnknownOneIsNone)
{
    int other = 0;
    const QtTicks::TimerId first = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
    const QtTicks::TimerId second = ticks.timeSetEvent(kFast, kFast, [&other] { ++other; });
    EXPECT_NE(first, second);
    ticks.timeKillEvent(first);
    ticks.timeKillEvent(first);
    ticks.timeKillEvent(0);
    EXPECT_TRUE(QTest::qWaitFor([&other] { return other >= 3; }));
    EXPECT_EQ(count, 0);
    ticks.timeKillEvent(second);
}

TEST_F(TicksTest, CountInsideAHandlerTooButAreToldOfBetweenTwo)
{
    int told = 0;
    ticks.Ticked = [&told] { ++told; };
    const QtTicks::TimerId id = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
    {
        const EventGate::Pass handler(gate);
        EXPECT_TRUE(QTest::qWaitFor([this] { return count >= 3; })); // as in a message box
        EXPECT_EQ(told, 0);
    }
    EXPECT_TRUE(QTest::qWaitFor([&told] { return told > 0; }));
    ticks.timeKillEvent(id);
}

TEST_F(TicksTest, WhoIsToldMayEndTheTimerAndStartAnother)
{
    QtTicks::TimerId id = 0;
    int restarts = 0;
    ticks.Ticked = [&] {
        ticks.timeKillEvent(id);
        if (++restarts < 3) {
            id = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
        }
    };
    id = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
    EXPECT_TRUE(QTest::qWaitFor([&restarts] { return restarts == 3; }));
    LetTimePass(5);
    EXPECT_EQ(restarts, 3);
}

TEST_F(TicksTest, AreSilentWithoutAnybodyToTell)
{
    const QtTicks::TimerId id = ticks.timeSetEvent(kFast, kFast, [this] { ++count; });
    EXPECT_TRUE(QTest::qWaitFor([this] { return count >= 3; }));
    ticks.timeKillEvent(id);
}

class PlayerTicksTest : public PlayerDesk {};

TEST_F(PlayerTicksTest, TheElapsedTimeRuns)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 0);
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<QLabel>(Form().Label1).text() == QStringLiteral("0:01"); }));
    Transport(6);
    EXPECT_EQ(Of<QLabel>(Form().Label1).text(), QStringLiteral("0:00"));
}

TEST_F(PlayerTicksTest, ThePositionAndTheCursorFollowTheDevice)
{
    Open();
    DoubleClickRow(Form().ListMidiSel, 0);
    const int before = Form().Line1.X1();
    sequencer.Advance(std::chrono::seconds(10));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Of<QLabel>(Form().LabTrackPosition).text() == QStringLiteral("100 (50%)"); }));
    EXPECT_GT(Form().Line1.X1(), before);
}

TEST_F(PlayerTicksTest, AtTheStopMarkThePlayStops)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Form().HScrollStop.value = 100;
    Transport(2);
    sequencer.Advance(std::chrono::seconds(11));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kStopped; }));
}

TEST_F(PlayerTicksTest, PlayAllGoesOnAfterAGapAndRoundTheEnd)
{
    Song("b.mid", 30);
    std::filesystem::remove(In("c.mid"));
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Click(Form().CommPlayAll);
    Transport(2);
    for (const char *next : {"b.mid", "a.mid"}) {
        PlayToTheEnd();
        EXPECT_EQ(Mode(), SequencerMode::kNotReady); // in the gap
        EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kPlaying; }));
        EXPECT_EQ(sequencer.FileName(), In(next));
    }
    EXPECT_EQ(Window(Form()).windowTitle(), QStringLiteral("MIDI PLAYER - a.mid"));
}

TEST_F(PlayerTicksTest, AWindowClosedInTheGapPlaysNoMore)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Click(Form().CommPlayAll);
    Transport(2);
    PlayToTheEnd();
    Window(Form()).close();
    Settle();
    int came = 0; // as long as the gap would have been
    tickTimer.timeSetEvent(200, 200, [&came] { ++came; });
    EXPECT_TRUE(QTest::qWaitFor([&came] { return came >= 4; }));
    EXPECT_EQ(sequencer.Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(sequencer.FileName(), In("a.mid"));
}

TEST_F(PlayerTicksTest, RepeatPlaysTheMarkedSectionAgain)
{
    Open();
    ClickRow(Form().ListMidiSel, 0);
    Form().HScrollStart.value = 40;
    Form().HScrollStop.value = 100;
    Click(Form().CommRep);
    Transport(2);
    sequencer.Advance(std::chrono::seconds(7));
    EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kStopped; }));
    EXPECT_TRUE(sequencer.Deliver());
    EXPECT_TRUE(QTest::qWaitFor([this] { return Mode() == SequencerMode::kPlaying; }));
    EXPECT_EQ(sequencer.Position(), 40);
}

} // namespace

} // namespace velluto::test
