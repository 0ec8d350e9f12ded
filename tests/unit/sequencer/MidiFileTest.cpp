// Which files are read, what they come to, and which are refused.
#include "unit/sequencer/MidiBytes.h"

#include "platform/sequencer/TrackReader.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

constexpr std::size_t k96 = 96; // ticks to a beat

// Frames a second as the file writes them, and the ticks of each.
std::size_t Frames(int perSecond, std::size_t ticks)
{
    return static_cast<std::size_t>(0x100 - perSecond) << 8 | ticks;
}

TEST(MidiFile, FourBeatsAreSixteenPositions)
{
    const MidiFile file = Read(File(0, k96, {EndAfter(4 * 96)}));
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.length, 16);
    EXPECT_EQ(file.song.duration, 2 * kSecond);
}

TEST(MidiFile, APartOfAPositionAtTheEndCountsAsAWholeOne)
{
    EXPECT_EQ(Read(File(0, k96, {EndAfter(96)})).song.length, 4);
    EXPECT_EQ(Read(File(0, k96, {EndAfter(97)})).song.length, 5);
    EXPECT_EQ(Read(File(0, k96, {EndAfter(120)})).song.length, 5);
    EXPECT_EQ(Read(File(0, k96, {EndAfter(1)})).song.length, 1);
}

TEST(MidiFile, ASongOfNothingHasNoLength)
{
    const MidiFile file = Read(File(0, k96, {{0, 0xFF, 0x2F, 0}}));
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.length, 0);
    EXPECT_EQ(file.song.duration, 0);
}

TEST(MidiFile, TheLongestTrackGivesTheLength)
{
    EXPECT_EQ(Read(File(1, k96, {EndAfter(96), EndAfter(480), EndAfter(192)})).song.length, 20);
}

TEST(MidiFile, TimeOfAFormat1FileIsThatOfItsTempoTrack)
{
    // One beat at 120 a minute, then one at 60, then one at 240.
    const Bytes tempo = {96, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 96, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90, 0, 0xFF, 0x2F, 0};
    const MidiFile file = Read(File(1, k96, {tempo, EndAfter(288)}));
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.length, 12);
    EXPECT_EQ(file.song.duration, kSecond / 2 + kSecond + kSecond / 4);
}

TEST(MidiFile, ATempoAtTheFirstTickTakesThePlaceOfTheUsualOne)
{
    const MidiFile file = Read(File(0, k96, {{0, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 96, 0xFF, 0x2F, 0}}));
    EXPECT_EQ(file.song.duration, kSecond);
}

TEST(MidiFile, OfSeveralTemposAtOneTickTheLastCounts)
{
    const Bytes tempos = {0, 0xFF, 0x51, 3, 0x03, 0xD0, 0x90, 0, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 96, 0xFF, 0x2F, 0};
    EXPECT_EQ(Read(File(0, k96, {tempos})).song.duration, kSecond);
}

TEST(MidiFile, AFileInFramesIsMeasuredInTenthsOfASecond)
{
    const MidiFile file = Read(File(0, Frames(25, 40), {EndAfter(2500)})); // a thousand ticks a second
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.length, 25);
    EXPECT_EQ(file.song.duration, kSecond * 5 / 2);
    EXPECT_EQ(Read(File(0, Frames(24, 1), {EndAfter(48)})).song.length, 20);
    EXPECT_EQ(Read(File(0, Frames(30, 2), {EndAfter(120)})).song.length, 20);
}

TEST(MidiFile, FramesThatAreDroppedLastAThousandthLonger)
{
    const MidiFile file = Read(File(0, Frames(29, 1), {EndAfter(3000)}));
    EXPECT_EQ(file.song.length, 1001);
    EXPECT_EQ(file.song.duration, kSecond * 1001 / 10);
}

TEST(MidiFile, ATempoMeansNothingToAFileInFrames)
{
    EXPECT_EQ(Read(File(0, Frames(25, 40), {{0, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 100, 0xFF, 0x2F, 0}})).song.duration, kSecond / 10);
}

TEST(MidiFile, AStatusIsLeftOutBehindOneOfTheSameKind)
{
    EXPECT_EQ(Read(File(0, k96, {{0, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0}})).song.length, 4);
}

TEST(MidiFile, AStatusStaysInForceBehindMetaEventsAndExclusiveMessages)
{
    const Bytes track = {0, 0x90, 60, 100, 0, 0xFF, 0x01, 1, 'x', 48, 60, 0, 0, 0xF0, 2, 0x42, 0xF7, 48, 62, 100, 0, 0xFF, 0x2F, 0};
    EXPECT_EQ(WordsOf(Read(File(0, k96, {track}))), "");
    EXPECT_EQ(Read(File(0, k96, {track})).song.length, 4);
}

TEST(MidiFile, MetaEventsOfEveryTypeArePassedOver)
{
    Bytes track;
    for (int type = 0; type < 0x80; ++type) {
        if (type != MetaType::kEndOfTrack && type != MetaType::kTempo) {
            Append(track, {1, 0xFF, static_cast<std::uint8_t>(type), 2, 0xF0, 0xFF});
        }
    }
    Append(track, {0, 0xFF, 0x2F, 0});
    const MidiFile file = Read(File(0, k96, {track}));
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.endTick, 126);
}

TEST(MidiFile, TheLongestNumberIsFourBytes)
{
    const MidiFile file = Read(File(0, 0x7FFF, {{0xFF, 0xFF, 0xFF, 0x7F, 0xFF, 0x2F, 0}}));
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.endTick, 0x0FFFFFFF);
}

TEST(MidiFile, ANumberMayBeLongerThanItNeeds)
{
    EXPECT_EQ(Read(File(0, k96, {{0x80, 0x80, 0x80, 96, 0xFF, 0x2F, 0x80, 0}})).song.length, 4);
}

TEST(MidiFile, OtherChunksAndALongerHeaderArePassedOver)
{
    Bytes bytes = Chunk("MThd", {0, 1, 0, 2, 0, 96, 7, 7, 7});
    Append(bytes, Chunk("XFIH", {1, 2, 3}));
    Append(bytes, Chunk("MTrk", EndAfter(96)));
    Append(bytes, Chunk("XFKM", {}));
    Append(bytes, Chunk("MTrk", EndAfter(192)));
    const MidiFile file = Read(bytes);
    EXPECT_EQ(WordsOf(file), "");
    EXPECT_EQ(file.song.length, 8);
}

TEST(MidiFile, WhatFollowsTheLastTrackIsNotLookedAt)
{
    Bytes bytes = File(0, k96, {EndAfter(96)});
    Append(bytes, {'M', 'T', 'r', 'k', 0xFF, 0xFF, 0xFF, 0xFF, 1});
    EXPECT_EQ(Read(bytes).song.length, 4);
}

TEST(MidiFile, AsManyTracksAsAreAllowedAreRead)
{
    const std::vector<Bytes> tracks(kMostTracks, EndAfter(96));
    EXPECT_EQ(Read(File(1, k96, tracks)).song.length, 4);
}

TEST(MidiFile, ASongOfADayIsReadAndALongerOneIsNot)
{
    // A tick lasts a tenth of a second: a beat of 9,600,000 microseconds in 96 ticks. 864,000 of them are a day.
    const auto ofTicks = [](std::uint8_t last) {
        return Read(File(0, k96, {{0, 0xFF, 0x51, 3, 0x92, 0x7C, 0x00, 0xB4, 0xDE, last, 0xFF, 0x2F, 0}}));
    };
    static_assert((0x34 << 14 | 0x5E << 7 | 0x00) == 864'000);
    EXPECT_EQ(WordsOf(ofTicks(0x00)), "");
    EXPECT_EQ(ofTicks(0x00).song.duration, kLongestSong);
    EXPECT_EQ(WordsOf(ofTicks(0x01)), "The MIDI file lasts longer than a day.");
}

TEST(MidiFile, AFileOfTheLargestTempoAndTheLargestTimesIsTooLong)
{
    Bytes track = {0, 0xFF, 0x51, 3, 0xFF, 0xFF, 0xFF};
    for (int i = 0; i < 1000; ++i) {
        Append(track, {0xFF, 0xFF, 0xFF, 0x7F, 0x90, 60, 100});
    }
    Append(track, {0, 0xFF, 0x2F, 0});
    EXPECT_EQ(WordsOf(Read(File(0, 1, {track}))), "The MIDI file lasts longer than a day.");
}

TEST(MidiFile, AFileLargerThanTheLimitIsRefused)
{
    Bytes bytes = File(0, k96, {EndAfter(96)});
    bytes.resize(kLargestMidiFile);
    EXPECT_EQ(WordsOf(Read(bytes)), "");
    bytes.push_back(0);
    EXPECT_EQ(WordsOf(Read(bytes)), "The MIDI file is larger than 16 MB.");
}

TEST(MidiFile, MoreEventsThanTheLimitAreRefused)
{
    const auto withEvents = [](std::int64_t events) {
        Bytes track = {0, 0xC0, 5};
        track.reserve(static_cast<std::size_t>(2 * events) + 8);
        for (std::int64_t i = 2; i < events; ++i) {
            track.push_back(0);
            track.push_back(5);
        }
        Append(track, {0, 0xFF, 0x2F, 0});
        return WordsOf(Read(File(0, k96, {track})));
    };
    EXPECT_EQ(withEvents(kMostEvents), "");
    EXPECT_EQ(withEvents(kMostEvents + 1), "The MIDI file has more than 4000000 events.");
}

// A file that is refused, and the words for it.
struct Refused {
    const char *name;
    Bytes bytes;
    const char *words;
};

// Built in the way of the file of one beat, which is read.
Bytes OneTrack(const Bytes &events)
{
    return File(0, k96, {events});
}

// By what stands around the tracks.
std::vector<Refused> RefusedByItsChunks()
{
    const Bytes track = Chunk("MTrk", EndAfter(96));
    const auto with = [](Bytes head, const Bytes &rest) {
        Append(head, rest);
        return head;
    };
    return {
        {"Empty", {}, "This is not a MIDI file."},
        {"OtherFile", {'R', 'I', 'F', 'F', 0, 0, 0, 4, 'R', 'M', 'I', 'D'}, "This is not a MIDI file."},
        {"ATrackAlone", track, "This is not a MIDI file."},
        {"HeaderOfFiveBytes", with(Chunk("MThd", {0, 0, 0, 1, 0}), track), "The MIDI file is damaged: its header is cut short."},
        {"HeaderLargerThanTheFile",
         {'M', 'T', 'h', 'd', 0xFF, 0xFF, 0xFF, 0xFF, 0, 0, 0, 1, 0, 96},
         "The MIDI file is damaged: its header is cut short."},
        {"Format3", with(Header(3, 1, 96), track), "The MIDI file is of an unknown format (3)."},
        {"Format65535", with(Header(65535, 1, 96), track), "The MIDI file is of an unknown format (65535)."},
        {"NoTracks", Header(1, 0, 96), "The MIDI file is damaged: a file of format 1 with 0 tracks."},
        {"Format0WithTwoTracks", with(Header(0, 2, 96), with(track, track)), "The MIDI file is damaged: a file of format 0 with 2 tracks."},
        {"Division0", with(Header(0, 1, 0), track), "The MIDI file is damaged: it counts no ticks to a beat."},
        {"FramesOf0Ticks", with(Header(0, 1, Frames(25, 0)), track),
         "The MIDI file is damaged: it counts time in frames of no known length."},
        {"TwentySixFramesASecond", with(Header(0, 1, Frames(26, 40)), track),
         "The MIDI file is damaged: it counts time in frames of no known length."},
        {"AHundredAndTwentyEightFramesASecond", with(Header(0, 1, 0x8001), track),
         "The MIDI file is damaged: it counts time in frames of no known length."},
        {"TooManyTracks", with(Header(1, 1025, 96), track), "The MIDI file has more than 1024 tracks."},
        {"TracksDeclared65535", with(Header(1, 65535, 96), track), "The MIDI file has more than 1024 tracks."},
        {"ATrackFewerThanDeclared", with(Header(1, 2, 96), track), "The MIDI file is damaged: track 2 of 2 is missing."},
        {"NoTrackAtAll", Header(0, 1, 96), "The MIDI file is damaged: track 1 of 1 is missing."},
        {"ATrackLargerThanTheFile", with(Header(0, 1, 96), {'M', 'T', 'r', 'k', 0, 0, 0, 6, 0x80, 96, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 is cut short."},
        {"ATrackOfTheLargestSize", with(Header(0, 1, 96), {'M', 'T', 'r', 'k', 0xFF, 0xFF, 0xFF, 0xFF, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 is cut short."},
        {"ATrackSmallerThanItsEvents", with(Header(0, 1, 96), {'M', 'T', 'r', 'k', 0, 0, 0, 4, 0x80, 96, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 ends in the middle of an event."},
        {"TwoHeaders", with(Header(0, 1, 96), with(Header(0, 1, 96), track)), "The MIDI file is damaged: it has a second header."},
    };
}

// By what stands in a track.
std::vector<Refused> RefusedByItsEvents()
{
    return {
        {"AnEmptyTrack", OneTrack({}), "The MIDI file is damaged: track 1 has no end."},
        {"EventsBehindTheEnd", OneTrack({0, 0xFF, 0x2F, 0, 0, 0x90, 60, 100}), "The MIDI file is damaged: track 1 goes on after its end."},
        {"AnEndThatIsNotEmpty", OneTrack({0, 0xFF, 0x2F, 1, 0}), "The MIDI file is damaged: track 1 has an end that is not empty."},
        {"DataBeforeAnyStatus", OneTrack({0, 60, 100, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds data that belong to no event."},
        {"DataBehindAMetaEventAlone", OneTrack({0, 0xFF, 0x01, 0, 0, 60, 100, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds data that belong to no event."},
        {"ANumberWithoutEnd", OneTrack({0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF}),
         "The MIDI file is damaged: track 1 holds a number of more than four bytes."},
        {"ANumberOfFiveBytes", OneTrack({0x80, 0x80, 0x80, 0x80, 0x00, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds a number of more than four bytes."},
        {"ALengthOfFiveBytes", OneTrack({0, 0xFF, 0x01, 0x80, 0x80, 0x80, 0x80, 0x00, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds a number of more than four bytes."},
        {"ATextLongerThanTheTrack", OneTrack({0, 0xFF, 0x01, 0x7F, 'a', 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 ends in the middle of an event."},
        {"AnExclusiveMessageLongerThanTheTrack", OneTrack({0, 0xF0, 0xFF, 0xFF, 0xFF, 0x7F, 0x42, 0xF7, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 ends in the middle of an event."},
        {"AMetaTypeAbove127", OneTrack({0, 0xFF, 0x80, 0, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds a data byte above 127."},
        {"ATempoOfTwoBytes", OneTrack({0, 0xFF, 0x51, 2, 0x07, 0xA1, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds a tempo that is none."},
        {"ATempoOf0", OneTrack({0, 0xFF, 0x51, 3, 0, 0, 0, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds a tempo that is none."},
        {"AClockMessage", OneTrack({0, 0xF8, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds an event that has no place in a file."},
        {"ASongPositionMessage", OneTrack({0, 0xF2, 0, 0, 0, 0xFF, 0x2F, 0}),
         "The MIDI file is damaged: track 1 holds an event that has no place in a file."},
    };
}

std::vector<Refused> Catalogue()
{
    std::vector<Refused> all = RefusedByItsChunks();
    std::ranges::move(RefusedByItsEvents(), std::back_inserter(all));
    return all;
}

class RefusedFile : public testing::TestWithParam<Refused> {};

TEST_P(RefusedFile, IsToldInPlainWords)
{
    const MidiFile file = Read(GetParam().bytes);
    EXPECT_EQ(WordsOf(file), GetParam().words);
    EXPECT_EQ(file.song.length, 0);
    EXPECT_TRUE(file.song.tracks.empty());
}

INSTANTIATE_TEST_SUITE_P(MidiFile, RefusedFile, testing::ValuesIn(Catalogue()),
                         [](const testing::TestParamInfo<Refused> &made) { return std::string(made.param.name); });

} // namespace
} // namespace velluto::test
