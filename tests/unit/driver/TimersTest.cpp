#include "driver/Timers.h"

#include "standin/StandinClock.h"
#include "view/Control.h"

#include <gtest/gtest.h>

namespace velluto::driver {
namespace {

using std::chrono::milliseconds;

struct Window : Form {
    Window() : Form("Window")
    {
        slow.Tick = [this] { order += 'S'; };
        fast.Tick = [this] { order += 'f'; };
    }
    Timer slow{*this, "slow", 1000};
    Timer fast{*this, "fast", 300};
    std::string order;
};

struct TimersTest : testing::Test {
    Window window;
    Timers timers;
    milliseconds elapsed{0};

    void Pass(int time)
    {
        timers.Pass(
            milliseconds{time}, [this](milliseconds passed) { elapsed += passed; },
            [this] {
                std::vector<Timer *> running;
                for (Timer *timer : {&window.slow, &window.fast}) {
                    if (timer->enabled) {
                        running.push_back(timer);
                    }
                }
                return running;
            });
    }
};

TEST_F(TimersTest, FireInTheOrderInWhichTheyComeDue)
{
    Pass(1500);
    EXPECT_EQ(window.order, "fffSff");
    EXPECT_EQ(elapsed, milliseconds{1500});
}

TEST_F(TimersTest, GoOnFromWhereTheLastCommandLeftThem)
{
    Pass(299);
    EXPECT_EQ(window.order, "");
    Pass(1);
    EXPECT_EQ(window.order, "f");
    Pass(0);
    EXPECT_EQ(window.order, "f");
}

TEST_F(TimersTest, StandStillWhileDisabledAndBeginAnew)
{
    window.slow.enabled = false;
    Pass(200);
    window.fast.enabled = false;
    Pass(500);
    EXPECT_EQ(window.order, "");
    window.fast.enabled = true;
    Pass(299);
    EXPECT_EQ(window.order, "");
    Pass(1);
    EXPECT_EQ(window.order, "f");
}

TEST_F(TimersTest, MayStopThemselves)
{
    window.slow.enabled = false;
    window.fast.Tick = [this] {
        window.order += 'f';
        window.fast.enabled = false;
    };
    Pass(2000);
    EXPECT_EQ(window.order, "f");
}

TEST_F(TimersTest, SeeTheTimeAtWhichTheyFire)
{
    milliseconds seen{0};
    window.slow.Tick = [&] { seen = elapsed; };
    Pass(1999);
    EXPECT_EQ(seen, milliseconds{1000});
}

TEST_F(TimersTest, BeginAnewWhereTheyWereSwitchedOffAndOnInOneGo)
{
    window.slow.enabled = false;
    Pass(200);
    window.fast.enabled = false;
    window.fast.enabled = true;
    Pass(299);
    EXPECT_EQ(window.order, "");
    Pass(1);
    EXPECT_EQ(window.order, "f");
}

TEST_F(TimersTest, ComeBehindWhatElseHappensAtTheirMoment)
{
    window.slow.enabled = false;
    milliseconds other{150}; // happens each 150 ms
    timers.Pass(
        milliseconds{600},
        [&](milliseconds passed) {
            other -= passed;
            if (other == milliseconds{0}) {
                window.order += 'o';
                other = milliseconds{150};
            }
        },
        [this] { return std::vector<Timer *>{&window.fast}; }, [&other] { return std::optional(other); });
    EXPECT_EQ(window.order, "oofoof");
}

TEST_F(TimersTest, FireNoMoreWhereWhatElseHappensStopsThem)
{
    window.slow.enabled = false;
    bool running = true;
    timers.Pass(
        milliseconds{1000}, [&running](milliseconds passed) { running = running && passed < milliseconds{300}; },
        [&] { return running ? std::vector<Timer *>{&window.fast} : std::vector<Timer *>{}; });
    EXPECT_EQ(window.order, "");
}

TEST(StandinClock, WritesDateAndTimeAsSet)
{
    StandinClock clock;
    clock.Set(std::chrono::sys_days{std::chrono::February / 28 / 2004} + std::chrono::hours{23} + std::chrono::minutes{59} +
              std::chrono::seconds{5});
    EXPECT_EQ(clock.LongDate(), "Saturday, 28 February 2004");
    EXPECT_EQ(clock.ShortDate(), "28/02/2004");
    EXPECT_EQ(clock.Time(), "23:59:05");
}

TEST(StandinClock, GoesOnOverMidnightAndLeapDays)
{
    StandinClock clock;
    clock.Set(std::chrono::sys_days{std::chrono::February / 28 / 2004} + std::chrono::hours{23});
    clock.Advance(std::chrono::hours{1});
    EXPECT_EQ(clock.ShortDate(), "29/02/2004");
    EXPECT_EQ(clock.Time(), "00:00:00");
}

TEST(StandinClock, BeginsWhereItSaysItDoes)
{
    StandinClock clock;
    const std::string before = clock.LongDate() + clock.ShortDate() + clock.Time();
    clock.Advance(milliseconds{0});
    EXPECT_EQ(clock.LongDate() + clock.ShortDate() + clock.Time(), before);
}

} // namespace
} // namespace velluto::driver
