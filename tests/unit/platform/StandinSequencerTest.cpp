#include "standin/StandinSequencer.h"

#include "standin/StandinTicks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velluto {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;

class StandinSequencerTest : public testing::Test {
protected:
    StandinSequencerTest()
    {
        device.songs["a"] = {20, 0, {}};
        device.songs["bad"] = {0, 301, InWords("No.")};
        device.Done = [this](int code) { done.push_back(code); };
    }
    void Open(const char *path)
    {
        device.SetFileName(path);
        device.SetCommand("open");
    }
    void Pass(int time)
    {
        device.Advance(milliseconds{time});
        while (device.Deliver()) {
        }
    }
    StandinSequencer device;
    std::vector<int> done;
};

TEST_F(StandinSequencerTest, BeginsNotReady)
{
    EXPECT_EQ(device.Mode(), 524);
    EXPECT_EQ(device.Length(), 0);
    EXPECT_EQ(device.Position(), 0);
    EXPECT_EQ(device.Command(), "");
    device.SetCommand("play");
    EXPECT_EQ(device.Error(), SequencerError::kNotOpen);
    EXPECT_EQ(device.Mode(), 524);
    device.SetCommand("stop");
    device.SetCommand("close");
    EXPECT_EQ(device.Error(), 0);
    EXPECT_EQ(device.Mode(), 524);
    Pass(1000);
    EXPECT_TRUE(done.empty());
}

TEST_F(StandinSequencerTest, OpensWhatItWasToldOf)
{
    Open("a");
    EXPECT_EQ(device.Mode(), 525);
    EXPECT_EQ(device.Length(), 20);
    EXPECT_EQ(device.From(), 0);
    Open("bad");
    EXPECT_EQ(device.Mode(), 524);
    EXPECT_EQ(device.Error(), 301);
    EXPECT_EQ(device.Reason().words, "No.");
    EXPECT_EQ(device.Length(), 0);
    Open("unknown");
    EXPECT_EQ(device.Error(), SequencerError::kFileNotFound);
    device.OtherSong = [](const std::string &path) { return StandinSong{static_cast<int>(path.size()), 0, {}}; };
    Open("unknown");
    EXPECT_EQ(device.Length(), 7);
    EXPECT_EQ(device.Error(), 0);
}

TEST_F(StandinSequencerTest, PlaysToTheEnd)
{
    Open("a");
    device.SetCommand("play");
    EXPECT_EQ(device.Mode(), 526);
    EXPECT_EQ(device.UntilEnd(), milliseconds{2000});
    Pass(1999);
    EXPECT_EQ(device.Position(), 19);
    EXPECT_EQ(device.UntilEnd(), milliseconds{1});
    EXPECT_TRUE(done.empty());
    Pass(1);
    EXPECT_EQ(device.Mode(), 525);
    EXPECT_EQ(device.Position(), 20);
    EXPECT_THAT(done, ElementsAre(1));
    EXPECT_EQ(device.UntilEnd(), std::nullopt);
}

TEST_F(StandinSequencerTest, TellsOfTheEndOnlyWhenAsked)
{
    Open("a");
    device.SetCommand("play");
    device.SetCommand("stop");
    EXPECT_TRUE(done.empty());
    EXPECT_TRUE(device.Deliver());
    EXPECT_FALSE(device.Deliver());
    EXPECT_THAT(done, ElementsAre(4));
}

TEST_F(StandinSequencerTest, OnlyARunningPlayIsAborted)
{
    Open("a");
    device.SetCommand("stop");
    device.SetCommand("play");
    device.SetCommand("pause");
    EXPECT_EQ(device.Mode(), 529);
    device.SetCommand("stop");
    device.SetCommand("close");
    EXPECT_FALSE(device.Deliver());
    Open("a");
    device.SetCommand("play");
    device.SetCommand("close");
    EXPECT_EQ(device.Mode(), 524);
    EXPECT_EQ(device.Position(), 0);
    EXPECT_TRUE(device.Deliver());
    Open("a");
    device.SetCommand("play");
    Open("a"); // a file that is open makes way
    EXPECT_TRUE(device.Deliver());
    EXPECT_THAT(done, ElementsAre(4, 4));
}

TEST_F(StandinSequencerTest, FromMovesTheNextPlayOnly)
{
    Open("a");
    device.SetFrom(5);
    EXPECT_EQ(device.Position(), 0);
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 5);
    Pass(300);
    device.SetCommand("stop");
    EXPECT_EQ(device.Position(), 8);
    EXPECT_EQ(device.From(), 5); // reads as last written
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 8);
    device.SetFrom(2);
    device.SetCommand("stop");
    EXPECT_EQ(device.Position(), 8);
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 2);
    Open("a");
    EXPECT_EQ(device.From(), 0);
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 0);
}

TEST_F(StandinSequencerTest, FromOutsideIsBroughtInside)
{
    Open("a");
    device.SetFrom(-3);
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 0);
    device.SetFrom(21);
    device.SetCommand("play");
    EXPECT_EQ(device.Position(), 20);
    EXPECT_EQ(device.UntilEnd(), milliseconds{0});
    Pass(0);
    EXPECT_THAT(done, ElementsAre(1));
}

TEST_F(StandinSequencerTest, APauseStandsStill)
{
    Open("a");
    device.SetCommand("play");
    Pass(500);
    device.SetCommand("pause");
    Pass(5000);
    EXPECT_EQ(device.Position(), 5);
    device.SetCommand("play");
    Pass(100);
    EXPECT_EQ(device.Position(), 6);
}

TEST_F(StandinSequencerTest, TheRateCountsFromTheNextPlay)
{
    device.rate = milliseconds{10};
    Open("a");
    device.SetCommand("play");
    Pass(50);
    EXPECT_EQ(device.Position(), 5);
}

TEST_F(StandinSequencerTest, AnUnknownWordIsAnErrorAndTheLastCommand)
{
    Open("a");
    device.SetCommand("rewind");
    EXPECT_EQ(device.Error(), SequencerError::kUnknownCommand);
    EXPECT_EQ(device.Command(), "rewind");
    EXPECT_EQ(device.Mode(), 525);
    device.SetCommand("play");
    EXPECT_EQ(device.Error(), 0);
}

TEST_F(StandinSequencerTest, LetGoItTellsNothingMore)
{
    Open("a");
    device.SetCommand("play");
    device.SetCommand("stop");
    device.Release();
    EXPECT_FALSE(device.Deliver());
    EXPECT_EQ(device.Mode(), 524);
    EXPECT_EQ(device.songs.size(), 2U);
}

TEST(StandinTicks, CallBackAtTheirPaceUntilKilled)
{
    StandinTicks ticks;
    int slow = 0;
    int fast = 0;
    const auto first = ticks.timeSetEvent(200, 200, [&slow] { ++slow; });
    EXPECT_NE(first, 0);
    ticks.Advance(milliseconds{100});
    const auto second = ticks.timeSetEvent(50, 50, [&fast] { ++fast; });
    EXPECT_NE(first, second);
    EXPECT_EQ(ticks.UntilNext(), milliseconds{50});
    ticks.Advance(milliseconds{100});
    EXPECT_EQ(slow, 1);
    EXPECT_EQ(fast, 2);
    ticks.timeKillEvent(second);
    EXPECT_EQ(ticks.UntilNext(), milliseconds{200});
    ticks.Advance(milliseconds{1000});
    EXPECT_EQ(slow, 6);
    EXPECT_EQ(fast, 2);
    ticks.timeKillEvent(second);
    ticks.timeKillEvent(first);
    EXPECT_FALSE(ticks.Running());
    EXPECT_EQ(ticks.UntilNext(), std::nullopt);
}

} // namespace
} // namespace velluto
