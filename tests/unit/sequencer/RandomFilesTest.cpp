// Files made at random: faultless ones are read as a plain reader reads them, damaged ones as far as they go.
#include "platform/sequencer/SongCursor.h"
#include "unit/sequencer/StrictReader.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

StrictSong Played(const Song &song)
{
    StrictSong played{{}, song.endTick, song.duration};
    for (SongCursor cursor(song); !cursor.AtEnd();) {
        const std::int64_t tick = cursor.Tick();
        const std::span<const std::uint8_t> message = cursor.Take();
        played.events.push_back({tick, TimeOf(song, tick), Bytes(message.begin(), message.end())});
    }
    return played;
}

TEST(RandomFiles, AFaultlessOneHasTheEventsAndTimesOfAPlainReader)
{
    std::size_t events = 0;
    for (unsigned seed = 1; seed <= 500; ++seed) {
        const Bytes bytes = RandomSong(seed).File();
        const StrictSong expected = StrictReader(bytes).Read();
        const MidiFile file = Read(bytes);
        ASSERT_EQ(WordsOf(file), "") << seed;
        const StrictSong played = Played(file.song);
        ASSERT_TRUE(played.events == expected.events) << seed;
        ASSERT_EQ(played.endTick, expected.endTick) << seed;
        ASSERT_EQ(played.nanoseconds, expected.nanoseconds) << seed;
        events += played.events.size();
    }
    EXPECT_GT(events, 100'000U);
}

Bytes Damaged(Bytes bytes, RandomSong &random)
{
    for (std::size_t left = random.Below(8) + 1; left > 0 && !bytes.empty(); --left) {
        const auto at = bytes.begin() + static_cast<std::ptrdiff_t>(random.Below(bytes.size()));
        const auto byte = static_cast<std::uint8_t>(random.Below(256));
        switch (random.Below(5)) {
        case 0:
            bytes.insert(at, byte);
            break;
        case 1:
            bytes.erase(at);
            break;
        case 2:
            bytes.erase(at, bytes.end());
            break;
        default:
            *at = byte;
        }
    }
    return bytes;
}

TEST(RandomFiles, ADamagedOneIsRefusedOrPlayedInTheOrderOfTime)
{
    int played = 0;
    for (unsigned seed = 1; seed <= 2000; ++seed) {
        RandomSong random(seed);
        const Bytes whole = random.File();
        const MidiFile file = Read(Damaged(whole, random));
        ASSERT_EQ(file.song.tracks.empty(), static_cast<bool>(file.refusal)) << seed;
        if (file.refusal) {
            continue;
        }
        ++played;
        std::int64_t last = 0;
        for (const StrictEvent &event : Played(file.song).events) {
            ASSERT_GE(event.tick, last) << seed;
            ASSERT_LE(event.tick, file.song.endTick) << seed;
            ASSERT_LE(event.nanoseconds, file.song.duration) << seed;
            ASSERT_TRUE(event.message.size() > 3 || std::all_of(event.message.begin() + 1, event.message.end(),
                                                                [](std::uint8_t data) { return data < 0x80 || data == 0xF7; }))
                << seed;
            last = event.tick;
        }
    }
    EXPECT_GT(played, 1000);
}

} // namespace
} // namespace velluto::test
