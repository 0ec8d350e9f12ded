// What is sent so that an instrument sounds as the song wants it, and so that it falls silent.
#include "platform/sequencer/ChannelState.h"
#include "unit/sequencer/MidiBytes.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ChannelStates After(const std::vector<Bytes> &messages)
{
    ChannelStates channels;
    for (const Bytes &message : messages) {
        Absorb(channels, message);
    }
    return channels;
}

std::vector<Bytes> BytesOf(const std::vector<ShortMessage> &messages)
{
    std::vector<Bytes> bytes;
    for (const ShortMessage &message : messages) {
        bytes.emplace_back(message.View().begin(), message.View().end());
    }
    return bytes;
}

// To an instrument of which nothing is known.
std::vector<Bytes> Fresh(const std::vector<Bytes> &messages)
{
    return BytesOf(Restoring(After(messages), ChannelStates(), true));
}

std::vector<Bytes> Changes(const std::vector<Bytes> &wanted, const std::vector<Bytes> &told)
{
    return BytesOf(Restoring(After(wanted), After(told), false));
}

std::vector<Bytes> Ends(const std::vector<Bytes> &told)
{
    return BytesOf(Silencing(After(told)));
}

TEST(Restoring, WhatWasNeverSetIsNotSent)
{
    EXPECT_THAT(Fresh({}), IsEmpty());
    EXPECT_THAT(Fresh({{0x90, 60, 100}, {0xA0, 60, 1}, {0xF0, 0x42, 0xF7}}), IsEmpty());
}

TEST(Restoring, BankProgramControllersPressureAndBendComeInThisOrder)
{
    EXPECT_THAT(Fresh({{0xE2, 1, 70}, {0xD2, 9}, {0xB2, 7, 90}, {0xB2, 1, 30}, {0xB2, 0, 121}, {0xB2, 32, 3}, {0xC2, 5}}),
                ElementsAre(Bytes{0xB2, 0, 121}, Bytes{0xB2, 32, 3}, Bytes{0xC2, 5}, Bytes{0xB2, 1, 30}, Bytes{0xB2, 7, 90}, Bytes{0xD2, 9},
                            Bytes{0xE2, 1, 70}));
}

TEST(Restoring, TheLastValueCounts)
{
    EXPECT_THAT(Fresh({{0xC0, 5}, {0xC0, 6}, {0xB0, 7, 90}, {0xB0, 7, 91}}), ElementsAre(Bytes{0xC0, 6}, Bytes{0xB0, 7, 91}));
}

TEST(Restoring, EachChannelIsItsOwn)
{
    EXPECT_THAT(Fresh({{0xCF, 5}, {0xC0, 6}}), ElementsAre(Bytes{0xC0, 6}, Bytes{0xCF, 5}));
}

TEST(Restoring, AProgramGetsTheBankThatWasSelectedBeforeIt)
{
    EXPECT_THAT(Fresh({{0xB0, 0, 1}, {0xB0, 32, 2}, {0xC0, 5}, {0xB0, 0, 3}}),
                ElementsAre(Bytes{0xB0, 0, 1}, Bytes{0xB0, 32, 2}, Bytes{0xC0, 5}, Bytes{0xB0, 0, 3}, Bytes{0xB0, 32, 2}));
}

TEST(Restoring, ABankWithoutAProgramIsSent)
{
    EXPECT_THAT(Fresh({{0xB0, 0, 1}}), ElementsAre(Bytes{0xB0, 0, 1}));
}

TEST(Restoring, AParameterIsChosenSetAndTheChoicePutBack)
{
    // Pitch bend range 12, then no parameter; then the fine tuning's second data entry.
    EXPECT_THAT(Fresh({{0xB0, 101, 0}, {0xB0, 100, 0}, {0xB0, 6, 12}, {0xB0, 101, 127}, {0xB0, 100, 127}, {0xB0, 6, 99}}),
                ElementsAre(Bytes{0xB0, 101, 0}, Bytes{0xB0, 100, 0}, Bytes{0xB0, 6, 12}, Bytes{0xB0, 101, 127}, Bytes{0xB0, 100, 127}));
    EXPECT_THAT(Fresh({{0xB0, 99, 1}, {0xB0, 98, 8}, {0xB0, 6, 70}, {0xB0, 38, 5}}),
                ElementsAre(Bytes{0xB0, 99, 1}, Bytes{0xB0, 98, 8}, Bytes{0xB0, 6, 70}, Bytes{0xB0, 38, 5}, Bytes{0xB0, 99, 1},
                            Bytes{0xB0, 98, 8}));
}

TEST(Restoring, ADataEntryWithoutAParameterIsLost)
{
    EXPECT_THAT(Fresh({{0xB0, 6, 12}, {0xB0, 38, 1}, {0xB0, 96, 0}}), IsEmpty());
    EXPECT_THAT(Fresh({{0xB0, 101, 0}, {0xB0, 6, 12}}), ElementsAre(Bytes{0xB0, 101, 0}));
}

TEST(Restoring, ResetAllControllersIsKnownForWhatItDoes)
{
    EXPECT_THAT(Fresh({{0xB0, 1, 30}, {0xB0, 7, 90}, {0xE0, 0, 0}, {0xB0, 121, 0}}),
                ElementsAre(Bytes{0xB0, 1, 0}, Bytes{0xB0, 7, 90}, Bytes{0xB0, 11, 127}, Bytes{0xB0, 64, 0}, Bytes{0xB0, 65, 0},
                            Bytes{0xB0, 66, 0}, Bytes{0xB0, 67, 0}, Bytes{0xB0, 101, 127}, Bytes{0xB0, 100, 127}, Bytes{0xD0, 0},
                            Bytes{0xE0, 0, 64}));
}

TEST(Restoring, WhatTheInstrumentHasAlreadyIsNotSentAgain)
{
    const std::vector<Bytes> messages = {{0xB0, 0, 1},   {0xC0, 5},     {0xB0, 7, 90}, {0xB0, 101, 0},
                                         {0xB0, 100, 0}, {0xB0, 6, 12}, {0xD0, 9},     {0xE0, 1, 70}};
    EXPECT_THAT(Changes(messages, messages), IsEmpty());
    std::vector<Bytes> other = messages;
    other.push_back({0xB0, 7, 91});
    other.push_back({0xB0, 6, 13});
    EXPECT_THAT(Changes(messages, other), ElementsAre(Bytes{0xB0, 7, 90}, Bytes{0xB0, 101, 0}, Bytes{0xB0, 100, 0}, Bytes{0xB0, 6, 12},
                                                      Bytes{0xB0, 101, 0}, Bytes{0xB0, 100, 0}));
}

TEST(Restoring, WhatTheSongHasNotSetGoesBackToRest)
{
    EXPECT_THAT(Changes({}, {{0xB0, 1, 30}, {0xB0, 11, 50}, {0xB0, 64, 127}, {0xD0, 9}, {0xE0, 1, 70}}),
                ElementsAre(Bytes{0xB0, 1, 0}, Bytes{0xB0, 11, 127}, Bytes{0xB0, 64, 0}, Bytes{0xD0, 0}, Bytes{0xE0, 0, 64}));
    EXPECT_THAT(Changes({}, {{0xB0, 1, 0}, {0xB0, 11, 127}, {0xD0, 0}, {0xE0, 0, 64}}), IsEmpty());
}

TEST(Restoring, ProgramsAndVolumesThatTheSongHasNotSetStay)
{
    EXPECT_THAT(Changes({}, {{0xC0, 5}, {0xB0, 7, 90}, {0xB0, 10, 3}, {0xB0, 0, 1}}), IsEmpty());
}

TEST(Silencing, EndsTheNotesThatSound)
{
    EXPECT_THAT(Ends({{0x90, 60, 100}, {0x90, 64, 100}, {0x93, 60, 1}}),
                ElementsAre(Bytes{0x80, 60, 64}, Bytes{0x80, 64, 64}, Bytes{0xB0, 123, 0}, Bytes{0x83, 60, 64}, Bytes{0xB3, 123, 0}));
}

TEST(Silencing, NotesThatHaveEndedAreLeftAlone)
{
    EXPECT_THAT(Ends({{0x90, 60, 100}, {0x80, 60, 64}, {0x91, 60, 100}, {0x91, 60, 0}}), IsEmpty());
    EXPECT_THAT(Ends({{0x90, 60, 100}, {0xB0, 123, 0}}), IsEmpty());
    EXPECT_THAT(Ends({{0x90, 60, 100}, {0xB0, 120, 0}}), IsEmpty());
    EXPECT_THAT(Ends({{0x90, 60, 100}, {0xB0, 126, 1}}), IsEmpty());
}

TEST(Silencing, ReleasesThePedalsThatHoldNotes)
{
    EXPECT_THAT(Ends({{0xB0, 64, 127}, {0xB1, 66, 64}, {0xB2, 69, 90}}),
                ElementsAre(Bytes{0xB0, 64, 0}, Bytes{0xB1, 66, 0}, Bytes{0xB2, 69, 0}));
    EXPECT_THAT(Ends({{0xB0, 64, 63}, {0xB0, 67, 127}}), IsEmpty());
}

TEST(Silencing, LeavesNothingToEnd)
{
    ChannelStates told = After({{0x90, 60, 100}, {0xB0, 64, 127}, {0xB0, 66, 127}});
    for (const ShortMessage &message : Silencing(told)) {
        Absorb(told, message.View());
    }
    EXPECT_THAT(BytesOf(Silencing(told)), IsEmpty());
}

} // namespace
} // namespace velluto::test
