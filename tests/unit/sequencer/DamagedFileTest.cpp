// Files with faults, as they are found: what is played of them.
#include "platform/sequencer/SongCursor.h"
#include "unit/sequencer/MidiBytes.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;

using At = std::pair<std::int64_t, Bytes>;
using Messages = std::vector<At>;

const Bytes kEnd = {0, 0xFF, 0x2F, 0};
const Bytes kNote = {0, 0x90, 60, 100};
const Bytes kNoteLater = {96, 0x91, 64, 90};

Bytes Joined(std::initializer_list<Bytes> parts)
{
    Bytes all;
    for (const Bytes &part : parts) {
        Append(all, part);
    }
    return all;
}

Messages Played(const Bytes &bytes)
{
    const MidiFile file = Read(bytes);
    EXPECT_EQ(WordsOf(file), "");
    Messages messages;
    for (SongCursor cursor(file.song); !cursor.AtEnd();) {
        const std::int64_t tick = cursor.Tick();
        const std::span<const std::uint8_t> message = cursor.Take();
        messages.emplace_back(tick, Bytes(message.begin(), message.end()));
    }
    return messages;
}

Messages PlayedTrack(const Bytes &events)
{
    return Played(File(0, 96, {events}));
}

const At kFirstNote = {0, {0x90, 60, 100}};
const At kSecondNote = {96, {0x91, 64, 90}};

TEST(DamagedFile, DataAbove127CountAs127)
{
    const Bytes track = Joined({{0, 0x90, 0x80, 100, 0, 60, 0xFF, 0, 0xC0, 0xFF}, kEnd});
    EXPECT_THAT(PlayedTrack(track), ElementsAre(At{0, {0x90, 127, 100}}, At{0, {0x90, 60, 127}}, At{0, {0xC0, 127}}));
}

TEST(DamagedFile, DataAbove127CountAs127AmongManyMessages)
{
    Bytes track = {0, 0x90, 60, 100};
    for (int i = 0; i < 100; ++i) {
        Append(track, {1, 61, static_cast<std::uint8_t>(i == 50 ? 0xC0 : 100)});
    }
    Append(track, kEnd);
    const Messages messages = PlayedTrack(track);
    ASSERT_EQ(messages.size(), 101U);
    EXPECT_EQ(messages[51], (At{51, {0x90, 61, 127}}));
    EXPECT_EQ(messages[100], (At{100, {0x90, 61, 100}}));
}

TEST(DamagedFile, WhatStandsBehindTheEndOfATrackIsPassedOver)
{
    const Bytes bytes = File(1, 96, {Joined({kNote, kEnd, {0, 0x90, 1, 1}, kEnd}), Joined({kNoteLater, kEnd})});
    EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kSecondNote));
    EXPECT_EQ(Read(bytes).song.endTick, 96);
}

TEST(DamagedFile, AnEndThatIsNotEmptyIsAnEnd)
{
    EXPECT_THAT(PlayedTrack(Joined({kNote, {0, 0xFF, 0x2F, 2, 0, 0}, kNoteLater, kEnd})), ElementsAre(kFirstNote));
}

TEST(DamagedFile, ATrackWithoutEndPlaysToItsLastEvent)
{
    const Bytes bytes = File(1, 96, {Joined({kNote, kNoteLater}), Joined({kNote, kEnd})});
    EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kFirstNote, kSecondNote));
    EXPECT_EQ(Read(bytes).song.endTick, 96);
    EXPECT_EQ(Read(bytes).song.length, 4);
}

TEST(DamagedFile, AFileCutOffAtAnyBytePlaysItsWholeEvents)
{
    const Bytes whole = File(1, 96, {Joined({kNote, kEnd}), Joined({kNote, kNoteLater, {0, 0xF0, 2, 0x42, 0xF7}, kEnd})});
    const std::size_t second = 14 + 16 + 8; // where the events of the second track begin
    for (std::size_t length = 0; length < 14 + 8 + kNote.size(); ++length) {
        const MidiFile file = Read(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        EXPECT_NE(WordsOf(file), "") << length;
        EXPECT_TRUE(file.song.tracks.empty()) << length;
    }
    for (std::size_t length = 14 + 8 + kNote.size(); length <= whole.size(); ++length) {
        const Messages messages = Played(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        const std::size_t expected =
            1U + (length >= second + 4 ? 1U : 0U) + (length >= second + 8 ? 1U : 0U) + (length >= second + 13 ? 1U : 0U);
        EXPECT_EQ(messages.size(), expected) << length;
    }
}

// A track of a note, an event that breaks it, and another note; and a track behind it.
class BrokenTrack : public testing::TestWithParam<Bytes> {};

TEST_P(BrokenTrack, PlaysUpToItsLastWholeEvent)
{
    const Bytes broken = Joined({kNote, GetParam(), kNote, kNote, kEnd});
    EXPECT_THAT(Played(File(1, 96, {broken, Joined({kNoteLater, kEnd})})), ElementsAre(kFirstNote, kSecondNote));
}

INSTANTIATE_TEST_SUITE_P(DamagedFile, BrokenTrack,
                         testing::Values(Bytes{0, 0xF8}, Bytes{0, 0xF2, 0, 0}, Bytes{0, 0xF4},          // statuses of a cable
                                         Bytes{0x80, 0x80, 0x80, 0x80, 0, 0x90, 1, 1},                  // a number of five bytes
                                         Bytes{0, 0xFF, 0x01, 0x80, 0x80, 0x80, 0x80, 0},               // the same of a length
                                         Bytes{0, 0xFF, 0x01, 0x7F, 'a'}, Bytes{0, 0xF0, 0xFF, 0x7F})); // more than there is

TEST(DamagedFile, DataBeforeAnyStatusArePassedOverTwoByTwo)
{
    EXPECT_THAT(PlayedTrack(Joined({{96, 60, 100, 0x81, 0, 1, 1}, kNote, kEnd})), ElementsAre(At{96 + 128, {0x90, 60, 100}}));
    EXPECT_THAT(Played(File(1, 96, {Joined({kNote, kEnd}), Joined({{0, 62, 0}, kNoteLater, kEnd})})), ElementsAre(kFirstNote, kSecondNote));
}

TEST(DamagedFile, ATempoThatIsNoneIsPassedOver)
{
    const Bytes tempos = {0, 0xFF, 0x51, 2, 7, 1, 0, 0xFF, 0x51, 3, 0, 0, 0, 0, 0xFF, 0x51, 0};
    const Bytes bytes = File(0, 96, {Joined({tempos, kNote, kNoteLater, kEnd})});
    EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kSecondNote));
    EXPECT_EQ(Read(bytes).song.duration, kSecond / 2);
}

TEST(DamagedFile, AMetaEventOfATypeAbove127IsPassedOver)
{
    EXPECT_THAT(PlayedTrack(Joined({{0, 0xFF, 0x80, 1, 0}, kNote, kEnd})), ElementsAre(kFirstNote));
}

TEST(DamagedFile, FewerAndMoreTracksThanDeclaredAllPlay)
{
    const Bytes tracks = Joined({Chunk("MTrk", Joined({kNote, kEnd})), Chunk("MTrk", Joined({kNoteLater, kEnd}))});
    for (const std::size_t declared : {0U, 1U, 2U, 3U, 65535U}) {
        EXPECT_THAT(Played(Joined({Header(1, declared, 96), tracks})), ElementsAre(kFirstNote, kSecondNote)) << declared;
    }
}

TEST(DamagedFile, Format0WithSeveralTracksAndUnknownFormatsPlayAsFormat1)
{
    for (const std::size_t format : {0U, 3U, 65535U}) {
        EXPECT_THAT(Played(File(format, 96, {Joined({kNoteLater, kEnd}), Joined({kNote, kEnd})})), ElementsAre(kFirstNote, kSecondNote))
            << format;
    }
}

TEST(DamagedFile, MoreTracksThanTheLimitAreRefused)
{
    const std::vector<Bytes> tracks(kMostTracks, Joined({kNote, kEnd}));
    EXPECT_EQ(Played(File(1, 96, tracks)).size(), kMostTracks);
    const Bytes more = Joined({File(1, 96, tracks), Chunk("MTrk", kEnd)});
    EXPECT_EQ(WordsOf(Read(more)), "The MIDI file has more than 1024 tracks.");
}

TEST(DamagedFile, ADivisionThatCountsNothingIs96TicksABeat)
{
    for (const std::size_t division : {0x0000U, 0xE700U}) {
        const Bytes bytes = File(0, division, {Joined({kNote, kNoteLater, kEnd})});
        EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kSecondNote));
        EXPECT_EQ(Read(bytes).song.length, 4);
        EXPECT_EQ(Read(bytes).song.duration, kSecond / 2);
    }
}

TEST(DamagedFile, FramesMayBeAsManyASecondAsTheyLike)
{
    const auto lasts = [](std::size_t division) { return Read(File(0, division, {Joined({kNote, kNoteLater, kEnd})})).song.duration; };
    EXPECT_EQ(lasts(0xD001), kSecond * 2); // 48 frames
    EXPECT_EQ(lasts(0x8003), kSecond / 4); // 128 frames of three ticks
}

TEST(DamagedFile, AHeaderCutShortIsFilledUp)
{
    const Bytes tracks = Joined({Chunk("MTrk", Joined({kNote, kEnd})), Chunk("MTrk", Joined({kNoteLater, kEnd}))});
    for (std::ptrdiff_t length = 0; length < 6; ++length) {
        const Bytes whole = {0, 1, 0, 2, 0, 96};
        const Bytes cut(whole.begin(), whole.begin() + length);
        EXPECT_THAT(Played(Joined({Chunk("MThd", cut), tracks})), ElementsAre(kFirstNote, kSecondNote)) << length;
    }
}

TEST(DamagedFile, AHeaderOfAnUntrueLengthIsReadAsOneOfSixBytes)
{
    const Bytes track = Chunk("MTrk", Joined({kNote, kNoteLater, kEnd}));
    for (const Bytes &length : {Bytes{0, 0, 0, 0}, {0, 0, 0, 5}, {0, 0, 0, 7}, {0, 0, 0, 20}, {6, 0, 0, 0}, {0xFF, 0xFF, 0xFF, 0xFF}}) {
        const Bytes bytes = Joined({{'M', 'T', 'h', 'd'}, length, {0, 0, 0, 1, 0, 48}, track});
        EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kSecondNote));
        EXPECT_EQ(Read(bytes).song.duration, kSecond);
    }
}

TEST(DamagedFile, ALongerHeaderOtherChunksAndAFurtherHeaderArePassedOver)
{
    const Bytes bytes = Joined({Chunk("MThd", {0, 1, 0, 2, 0, 96, 7, 7, 7}), Chunk("XFIH", {1, 2, 3}), Chunk("MTrk", Joined({kNote, kEnd})),
                                Header(0, 1, 5), Chunk("\x01zzz", {1}), Chunk("MTrk", Joined({kNoteLater, kEnd}))});
    EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, kSecondNote));
}

TEST(DamagedFile, TracksAreFoundBehindUntrueLengths)
{
    const Bytes first = Joined({kNote, kEnd});
    const Bytes second = Chunk("MTrk", Joined({kNoteLater, kEnd}));
    const auto with = [&](const Bytes &length) { return Joined({Header(1, 2, 96), {'M', 'T', 'r', 'k'}, length, first, second}); };
    for (const Bytes &length : {Bytes{0, 0, 0, 0}, {0, 0, 0, 2}, {0, 0, 0, 7}, {0, 0, 0, 9}, {0, 0, 0, 18}, {8, 0, 0, 0}}) {
        EXPECT_THAT(Played(with(length)), ElementsAre(kFirstNote, kSecondNote)) << int{length[3]};
    }
}

TEST(DamagedFile, AByteBetweenTracksIsPassedOver)
{
    const Bytes bytes =
        Joined({Header(1, 2, 96), Chunk("MTrk", {0, 0xC0, 5, 0, 0xFF, 0x2F, 0}), {0}, Chunk("MTrk", Joined({kNote, kEnd})), {0}});
    EXPECT_THAT(Played(bytes), ElementsAre(At{0, {0xC0, 5}}, kFirstNote));
}

TEST(DamagedFile, AFileIsFoundBehindForeignBytes)
{
    const Bytes file = File(0, 96, {Joined({kNote, kEnd})});
    EXPECT_THAT(Played(Joined({{'M', 'T', 'h'}, file})), ElementsAre(kFirstNote));
    EXPECT_THAT(Played(Joined({Bytes(128), file, Bytes(77, 0xFF)})), ElementsAre(kFirstNote));
    EXPECT_THAT(Played(Joined({Bytes(8192, 'M'), file})), ElementsAre(kFirstNote));
    EXPECT_EQ(WordsOf(Read(Joined({Bytes(8193, 'M'), file}))), "This is not a MIDI file.");
}

Bytes RiffChunk(const std::string &name, const Bytes &content)
{
    Bytes bytes = Chunk(name, content);
    std::reverse(bytes.begin() + 4, bytes.begin() + 8);
    if (content.size() % 2 != 0) {
        bytes.push_back(0);
    }
    return bytes;
}

TEST(DamagedFile, AFileIsFoundInARiffWrapper)
{
    const Bytes file = File(0, 96, {Joined({kNote, kEnd})});
    const auto wrapped = [](const Bytes &content) { return RiffChunk("RIFF", Joined({{'R', 'M', 'I', 'D'}, content})); };
    EXPECT_THAT(Played(wrapped(RiffChunk("data", file))), ElementsAre(kFirstNote));
    EXPECT_THAT(Played(wrapped(Joined({RiffChunk("LIST", Bytes(20001, 'x')), RiffChunk("data", file)}))), ElementsAre(kFirstNote));
    EXPECT_THAT(Played(wrapped(Joined({RiffChunk("data", Joined({Header(0, 1, 96), Chunk("MTrk", kNote)})), RiffChunk("LIST", {1, 2})}))),
                ElementsAre(kFirstNote));
    EXPECT_THAT(Played(Joined({{'R', 'I', 'F', 'F', 0, 0, 0, 0, 'R', 'M', 'I', 'D', 'd', 'a', 't', 'a', 0, 0, 0, 0}, file})),
                ElementsAre(kFirstNote));
    EXPECT_EQ(WordsOf(Read(wrapped(RiffChunk("LIST", {1, 2, 3})))), "This is not a MIDI file.");
}

TEST(DamagedFile, AWrapperThatEndsAnywhereIsNoMidiFile)
{
    const Bytes file = RiffChunk("RIFF", Joined({{'R', 'M', 'I', 'D'}, RiffChunk("LIST", {1, 2, 3}), RiffChunk("data", {'M', 'T'})}));
    for (std::size_t length = 1; length <= file.size(); ++length) {
        const Bytes cut(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(WordsOf(Read(cut)), "This is not a MIDI file.") << length;
    }
}

// The tempos are those of each sequence: one of a beat at 60 a minute, one without, one of a beat at 240.
TEST(FormatTwo, SequencesPlayOneAfterAnotherEachInItsTempo)
{
    const Bytes slow = Joined({{0, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40}, kNote, EndAfter(96)});
    const Bytes usual = Joined({kNote, EndAfter(96)});
    const Bytes fast = Joined({{0, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90}, kNote, EndAfter(96)});
    const Bytes bytes = File(2, 96, {slow, usual, fast});
    EXPECT_THAT(Played(bytes), ElementsAre(kFirstNote, At{96, {0x90, 60, 100}}, At{192, {0x90, 60, 100}}));
    const Song song = Read(bytes).song;
    EXPECT_EQ(TimeOf(song, 96), kSecond);
    EXPECT_EQ(TimeOf(song, 192), kSecond * 3 / 2);
    EXPECT_EQ(song.duration, kSecond * 7 / 4);
    EXPECT_EQ(song.length, 12);
}

TEST(FormatTwo, AChangeOfTempoAtTheVeryEndOfASequenceIsNotTheNextOnes)
{
    const Bytes first = Joined({kNote, {96, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40}, kEnd});
    EXPECT_EQ(Read(File(2, 96, {first, Joined({kNote, EndAfter(96)})})).song.duration, kSecond);
}

TEST(FormatTwo, ManySequencesCountTogetherToTheLimits)
{
    const Bytes hours = Joined({kNote, {0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0x2F, 0}}); // 22.4
    EXPECT_EQ(WordsOf(Read(File(2, 1664, {hours}))), "");
    EXPECT_EQ(WordsOf(Read(File(2, 1664, {hours, hours}))), "The MIDI file lasts longer than a day.");
}

TEST(DamagedFile, WhatHasNoMessageToPlayIsRefusedForItsFirstFault)
{
    EXPECT_EQ(WordsOf(Read(File(1, 96, {Joined({{0, 0xFF, 0x01, 0}, kEnd}), {0, 0xFF, 0x01, 0}}))),
              "The MIDI file is damaged: track 2 has no end.");
    EXPECT_EQ(WordsOf(Read(File(2, 96, {kEnd}))), ""); // without a fault
}

} // namespace
} // namespace velluto::test
