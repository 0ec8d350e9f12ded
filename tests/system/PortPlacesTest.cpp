// A server gives the place of a port that has gone to the next one that comes, while the period that runs still has the connections of
// the one before. Where the next one is an input, JACK's library goes round from it to its predecessor's receiver and back: until a
// stack ends, in the process of the instrument or of the server.
#include "DevicesTest.h"

#include <algorithm>
#include <csignal>

namespace velluto::test {
namespace {

using Clock = std::chrono::steady_clock;

bool HasLine(Process &process, const std::string &end)
{
    return std::ranges::any_of(process.Lines(), [&](const std::string &line) { return line.ends_with(end); });
}

TEST_F(DevicesTest, AnOutputThatClosesIsGivenBackOnlyWhenNoPeriodHasItsConnection)
{
    constexpr int kLongPeriod = 8192; // frames: 171 ms
    StartAll(kLongPeriod);
    const MidiHandle out = OpenInstrument();
    Process monitor({"/usr/bin/stdbuf", "-oL", JACK_EVMON});
    ASSERT_TRUE(Eventually([&]() { return HasLine(monitor, "reordered"); }));
    EXPECT_EQ(midi_->midiOutClose(out), 0);
    ASSERT_TRUE(Eventually([&]() { return HasLine(monitor, " disconnected"); }));
    const auto disconnected = Clock::now();
    ASSERT_TRUE(Eventually([&]() { return HasLine(monitor, " unregistered"); }));
    EXPECT_GT(Clock::now() - disconnected, std::chrono::milliseconds(50)) << "what has been sent passes at the beginning of a period";
    monitor.End(SIGKILL);
}

} // namespace
} // namespace velluto::test
