// The time of a song, and the order in which its messages come.
#include "platform/sequencer/SongCursor.h"
#include "unit/sequencer/MidiBytes.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;

Song Taken(const Bytes &bytes)
{
    const MidiFile file = Read(bytes);
    EXPECT_EQ(WordsOf(file), "");
    return file.song;
}

// Tick and bytes of every message, in the order in which they come.
std::vector<std::pair<std::int64_t, Bytes>> MessagesOf(const Song &song)
{
    std::vector<std::pair<std::int64_t, Bytes>> messages;
    for (SongCursor cursor(song); !cursor.AtEnd();) {
        const std::int64_t tick = cursor.Tick();
        const std::span<const std::uint8_t> message = cursor.Take();
        messages.emplace_back(tick, Bytes(message.begin(), message.end()));
    }
    return messages;
}

using At = std::pair<std::int64_t, Bytes>;

TEST(Song, APositionIsAQuarterOfABeat)
{
    const Song song = Taken(File(0, 96, {EndAfter(960)}));
    EXPECT_EQ(PositionOf(song, 0), 0);
    EXPECT_EQ(PositionOf(song, 23), 0);
    EXPECT_EQ(PositionOf(song, 24), 1);
    EXPECT_EQ(PositionOf(song, 960), 40);
    EXPECT_EQ(TickOf(song, 0), 0);
    EXPECT_EQ(TickOf(song, 1), 24);
    EXPECT_EQ(TickOf(song, 40), 960);
}

TEST(Song, APositionBeginsAtTheFirstWholeTickWhereABeatIsNoMultipleOfFour)
{
    const Song song = Taken(File(0, 5, {EndAfter(50)}));
    EXPECT_EQ(TickOf(song, 1), 2); // 1.25
    EXPECT_EQ(TickOf(song, 3), 4); // 3.75
    EXPECT_EQ(PositionOf(song, 1), 0);
    EXPECT_EQ(PositionOf(song, 2), 1);
    EXPECT_EQ(PositionOf(song, 4), 3);
}

TEST(Song, TimeFollowsTheTempos)
{
    // 120 a minute for a beat, 60 for two, 240 from there on.
    const Bytes track = {96, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 0x81, 0x40, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90, 96, 0xFF, 0x2F, 0};
    const Song song = Taken(File(0, 96, {track}));
    EXPECT_EQ(TimeOf(song, 48), kSecond / 4);
    EXPECT_EQ(TimeOf(song, 96), kSecond / 2);
    EXPECT_EQ(TimeOf(song, 192), kSecond * 3 / 2);
    EXPECT_EQ(TimeOf(song, 288), kSecond * 5 / 2);
    EXPECT_EQ(TimeOf(song, 384), kSecond * 11 / 4);
    EXPECT_EQ(TickAt(song, kSecond / 2 - 1), 95);
    EXPECT_EQ(TickAt(song, kSecond / 2), 96);
    EXPECT_EQ(TickAt(song, kSecond * 3 / 2), 192);
    EXPECT_EQ(TickAt(song, kSecond * 11 / 4), 384);
}

TEST(Song, EveryTickHasComeAtItsTime)
{
    // A third of a nanosecond is left over at each tick: 500,000 microseconds in 480 ticks.
    const Song song = Taken(File(0, 480, {EndAfter(9600)}));
    for (std::int64_t tick = 0; tick <= 9600; ++tick) {
        ASSERT_EQ(TickAt(song, TimeOf(song, tick)), tick);
        ASSERT_EQ(TickAt(song, TimeOf(song, tick + 1) - 1), tick);
    }
}

TEST(Song, RoundingAtTempoChangesStaysBelowANanosecondEach)
{
    // A thousand changes of tempo, each for one tick of 1/7 of 500,001 microseconds: each rounds up by a nanosecond at most.
    Bytes track;
    for (int i = 0; i < 1000; ++i) {
        Append(track, {1, 0xFF, 0x51, 3, 0x07, 0xA1, 0x21});
    }
    Append(track, {0, 0xFF, 0x2F, 0});
    const Song song = Taken(File(0, 7, {track}));
    const Nanoseconds exact = Nanoseconds{999} * 500'001'000 / 7 + 500'000'000 / 7;
    EXPECT_NEAR(static_cast<double>(song.duration), static_cast<double>(exact), 1001.0);
}

TEST(SongCursor, MessagesComeInTheOrderOfTimeAndWithinATickTrackByTrack)
{
    const Bytes first = {0, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0};
    const Bytes second = {0, 0xC1, 5, 48, 0x91, 64, 90, 48, 64, 0, 0, 0xFF, 0x2F, 0};
    EXPECT_THAT(
        MessagesOf(Taken(File(1, 96, {first, second}))),
        ElementsAre(At{0, {0x90, 60, 100}}, At{0, {0xC1, 5}}, At{48, {0x91, 64, 90}}, At{96, {0x90, 60, 0}}, At{96, {0x91, 64, 0}}));
}

TEST(SongCursor, MessagesOfOneTickAndTrackKeepTheirOrder)
{
    const Bytes track = {0, 0xB0, 0, 121, 0, 32, 3, 0, 0xC0, 5, 0, 0xE0, 0, 64, 0, 0xD0, 7, 0, 0xA0, 60, 1, 0, 0xFF, 0x2F, 0};
    EXPECT_THAT(MessagesOf(Taken(File(0, 96, {track}))), ElementsAre(At{0, {0xB0, 0, 121}}, At{0, {0xB0, 32, 3}}, At{0, {0xC0, 5}},
                                                                     At{0, {0xE0, 0, 64}}, At{0, {0xD0, 7}}, At{0, {0xA0, 60, 1}}));
}

TEST(SongCursor, AnExclusiveMessageIsOneMessage)
{
    EXPECT_THAT(MessagesOf(Taken(File(0, 96, {{5, 0xF0, 5, 0x7E, 0x7F, 0x09, 0x01, 0xF7, 0, 0xFF, 0x2F, 0}}))),
                ElementsAre(At{5, {0xF0, 0x7E, 0x7F, 0x09, 0x01, 0xF7}}));
}

TEST(SongCursor, AnExclusiveMessageInPartsComesWithItsLastPart)
{
    const Bytes track = {0, 0xF0, 2, 0x42, 0x01, 10, 0xF7, 1, 0x02, 10, 0xF7, 2, 0x03, 0xF7, 0, 0xFF, 0x2F, 0};
    EXPECT_THAT(MessagesOf(Taken(File(0, 96, {track}))), ElementsAre(At{20, {0xF0, 0x42, 0x01, 0x02, 0x03, 0xF7}}));
}

TEST(SongCursor, AWholeExclusiveMessageMayComeAsBytesAsTheyAre)
{
    EXPECT_THAT(MessagesOf(Taken(File(0, 96, {{0, 0xF7, 3, 0xF0, 0x42, 0xF7, 0, 0xFF, 0x2F, 0}}))), ElementsAre(At{0, {0xF0, 0x42, 0xF7}}));
}

TEST(SongCursor, ExclusiveMessagesThatAreNotWellFormedAreLeftOut)
{
    const Bytes track = {0, 0xF0, 3,  0x42, 0x90, 0xF7,          // a status within
                         0, 0xF0, 2,  0x42, 0x01,                // broken off by a note
                         0, 0x90, 60, 100,  0,    0xF7, 1, 0xF7, // an end of nothing
                         0, 0xF7, 1,  0xFA,                      // a message that no file should send
                         0, 0xF0, 0,  0,    0xFF, 0x2F, 0};
    EXPECT_THAT(MessagesOf(Taken(File(0, 96, {track}))), ElementsAre(At{0, {0x90, 60, 100}}));
}

TEST(SongCursor, ASongWithoutMessagesIsAtItsEnd)
{
    EXPECT_TRUE(SongCursor(Taken(File(0, 96, {EndAfter(96)}))).AtEnd());
    EXPECT_TRUE(SongCursor().AtEnd());
}

} // namespace
} // namespace velluto::test
