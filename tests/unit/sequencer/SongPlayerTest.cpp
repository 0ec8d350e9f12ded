// Playing against a clock that stands where the test puts it.
#include "platform/sequencer/SongPlayer.h"
#include "unit/sequencer/MidiBytes.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Moment kMorning = 1000 * kSecond; // where the clock stands at first
constexpr Nanoseconds kBeat = kSecond / 2;
constexpr int kMany = 1000;

// Four beats of 96 ticks: program and volume, a note on each beat that lasts half a beat, a bend on the second and a pedal on
// the third.
const Bytes kSong =
    File(0, 96, {{0,  0xC0, 5,  0,  0xB0, 7, 90,   0,  0x90, 60, 100,  48, 60, 0,  48, 61,  100,  0,  0xE0, 0, 80,   48,   0x90,
                  61, 0,    48, 62, 100,  0, 0xB0, 64, 127,  48, 0x90, 62, 0,  48, 63, 100, 0x60, 63, 0,    0, 0xFF, 0x2F, 0}});

struct PlayerTest : testing::Test, SongOutput {
    void Send(std::span<const std::uint8_t> message, Moment due) override
    {
        EXPECT_GE(due, lastDue);
        lastDue = due;
        dues.push_back(due);
        heard.emplace_back(message.begin(), message.end());
    }
    void Open(const Bytes &bytes)
    {
        const MidiFile file = Read(bytes);
        ASSERT_EQ(WordsOf(file), "");
        player.Open(std::make_shared<const Song>(file.song));
    }
    // The song goes on until so long after the morning.
    SongPlayer::Step RunUntil(Nanoseconds passed) { return player.Run(kMorning + passed, kMany); }
    std::vector<Bytes> Heard() { return std::exchange(heard, {}); }

    SongPlayer player{*this};
    std::vector<Bytes> heard;
    std::vector<Moment> dues;
    Moment lastDue = 0;
};

TEST_F(PlayerTest, WithoutASongNothingIsReadyAndNothingHappens)
{
    EXPECT_EQ(player.Mode(), SequencerMode::kNotReady);
    player.Play(kMorning, std::nullopt);
    player.Pause(kMorning);
    player.Stop(kMorning);
    player.Close(kMorning);
    EXPECT_EQ(player.Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(player.Position(kMorning), 0);
    EXPECT_EQ(player.Length(), 0);
    EXPECT_FALSE(RunUntil(0).next);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PlayerTest, ASongStandsAtItsBeginningWhenItIsOpened)
{
    Open(kSong);
    EXPECT_EQ(player.Mode(), SequencerMode::kStopped);
    EXPECT_EQ(player.Position(kMorning), 0);
    EXPECT_EQ(player.Length(), 16);
    EXPECT_FALSE(RunUntil(kBeat).next);
    EXPECT_THAT(heard, IsEmpty());
}

TEST_F(PlayerTest, WhatIsDueIsSentAndTheNextMomentTold)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(player.Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(RunUntil(0).next, kMorning + kBeat / 2);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xC0, 5}, Bytes{0xB0, 7, 90}, Bytes{0x90, 60, 100}));
    EXPECT_EQ(RunUntil(kBeat / 2 - 1).next, kMorning + kBeat / 2);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(RunUntil(kBeat / 2).next, kMorning + kBeat);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x90, 60, 0}));
}

TEST_F(PlayerTest, MessagesAreDueAtTheirTimeHoweverLateTheyAreSent)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat + 7);
    EXPECT_THAT(dues, ElementsAre(kMorning, kMorning, kMorning, kMorning + kBeat / 2, kMorning + kBeat, kMorning + kBeat));
    // What comes after a late moment is not late for it.
    EXPECT_EQ(RunUntil(kBeat + 7).next, kMorning + kBeat * 3 / 2);
}

TEST_F(PlayerTest, NoMoreIsSentAtOnceThanWasAskedFor)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(player.Run(kMorning, 2).next, kMorning);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xC0, 5}, Bytes{0xB0, 7, 90}));
    EXPECT_EQ(player.Run(kMorning, 2).next, kMorning + kBeat / 2);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x90, 60, 100}));
}

TEST_F(PlayerTest, ThePositionFollowsTheClock)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(player.Position(kMorning + kBeat / 4 - 1), 0);
    EXPECT_EQ(player.Position(kMorning + kBeat / 4), 1);
    EXPECT_EQ(player.Position(kMorning + 3 * kBeat), 12);
}

TEST_F(PlayerTest, ThePositionStaysBelowTheLengthUntilTheEnd)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(player.Position(kMorning + 9 * kBeat), 15);
    EXPECT_TRUE(RunUntil(9 * kBeat).ended);
    EXPECT_EQ(player.Position(kMorning + 9 * kBeat), 16);
}

TEST_F(PlayerTest, TheEndComesWithTheEndOfTheTracks)
{
    Open(File(0, 96, {{0, 0x90, 60, 100, 48, 60, 0, 48, 0xFF, 0x2F, 0}}));
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(RunUntil(kBeat / 2).next, kMorning + kBeat);
    EXPECT_FALSE(RunUntil(kBeat - 1).ended);
    const SongPlayer::Step last = RunUntil(kBeat);
    EXPECT_TRUE(last.ended);
    EXPECT_FALSE(last.next);
    EXPECT_EQ(player.Mode(), SequencerMode::kStopped);
    EXPECT_FALSE(RunUntil(2 * kBeat).ended);
}

TEST_F(PlayerTest, ASongOfNothingEndsAtOnce)
{
    Open(File(0, 96, {{0, 0xFF, 0x2F, 0}}));
    player.Play(kMorning, std::nullopt);
    EXPECT_EQ(player.Position(kMorning), 0);
    EXPECT_TRUE(RunUntil(0).ended);
}

TEST_F(PlayerTest, TheEndLeavesNoNoteSounding)
{
    Open(File(0, 96, {{0, 0x90, 60, 100, 0, 0xB0, 64, 127, 96, 0xFF, 0x2F, 0}}));
    player.Play(kMorning, std::nullopt);
    RunUntil(0);
    Heard();
    RunUntil(kBeat);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}, Bytes{0xB0, 64, 0}));
}

TEST_F(PlayerTest, PauseLeavesNoNoteSoundingAndKeepsItsPlace)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat / 4);
    Heard();
    player.Pause(kMorning + kBeat / 4);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}));
    EXPECT_EQ(player.Mode(), SequencerMode::kPaused);
    EXPECT_EQ(player.Position(kMorning + 99 * kBeat), 1);
    EXPECT_FALSE(RunUntil(99 * kBeat).next);
}

TEST_F(PlayerTest, PlayAfterPauseGoesOnFromThere)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat / 4);
    player.Pause(kMorning + kBeat / 4);
    Heard();
    player.Play(kMorning + 10 * kBeat, std::nullopt);
    EXPECT_EQ(player.Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(RunUntil(10 * kBeat).next, kMorning + 10 * kBeat + kBeat / 4);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(player.Position(kMorning + 10 * kBeat), 1);
}

TEST_F(PlayerTest, PlayAfterPausePutsThePedalDownAgain)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(2 * kBeat + kBeat * 3 / 4);
    player.Pause(kMorning + 2 * kBeat + kBeat * 3 / 4);
    Heard();
    player.Play(kMorning + 10 * kBeat, std::nullopt);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xB0, 64, 127}));
}

TEST_F(PlayerTest, PauseOfASongThatDoesNotPlayChangesNothing)
{
    Open(kSong);
    player.Pause(kMorning);
    EXPECT_EQ(player.Mode(), SequencerMode::kStopped);
}

TEST_F(PlayerTest, StopKeepsItsPlaceAndPlayGoesOn)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat / 4);
    Heard();
    player.Stop(kMorning + kBeat / 4);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}));
    EXPECT_EQ(player.Mode(), SequencerMode::kStopped);
    EXPECT_EQ(player.Position(kMorning + 5 * kBeat), 1);
    player.Play(kMorning + 5 * kBeat, std::nullopt);
    EXPECT_EQ(player.Position(kMorning + 5 * kBeat), 1);
}

TEST_F(PlayerTest, StopOfAPausedSongStopsItWhereItStands)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    player.Pause(kMorning + kBeat);
    player.Stop(kMorning + 2 * kBeat);
    EXPECT_EQ(player.Mode(), SequencerMode::kStopped);
    EXPECT_EQ(player.Position(kMorning + 2 * kBeat), 4);
}

TEST_F(PlayerTest, CloseLeavesNoNoteSounding)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(0);
    Heard();
    player.Close(kMorning + 1);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}));
    EXPECT_EQ(player.Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(player.Length(), 0);
}

TEST_F(PlayerTest, APlayFromTheMiddleFirstRestoresTheChannels)
{
    Open(kSong);
    player.Play(kMorning, 8); // the third beat: program, volume and bend came before
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xC0, 5}, Bytes{0xB0, 7, 90}, Bytes{0xE0, 0, 80}));
    EXPECT_EQ(player.Position(kMorning), 8);
    EXPECT_EQ(RunUntil(0).next, kMorning + kBeat / 2);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x90, 62, 100}, Bytes{0xB0, 64, 127}));
}

TEST_F(PlayerTest, APlayFromTheMiddleHasTheTempoOfThatPlace)
{
    // A beat at 120 a minute, then 60.
    Open(File(0, 96, {{96, 0xFF, 0x51, 3, 0x0F, 0x42, 0x40, 96, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0}}));
    player.Play(kMorning, 6);
    EXPECT_EQ(RunUntil(0).next, kMorning + kSecond / 2);
    EXPECT_EQ(player.Position(kMorning + kSecond / 4), 7);
}

TEST_F(PlayerTest, AJumpBackTakesBackWhatTheSongHadSetLater)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(3 * kBeat);
    player.Stop(kMorning + 3 * kBeat);
    Heard();
    player.Play(kMorning + 3 * kBeat, 0);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xE0, 0, 64}));
}

TEST_F(PlayerTest, AJumpOfAPlayingSongEndsItsNotesFirst)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(0);
    Heard();
    player.Play(kMorning + 1, 4);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}, Bytes{0xC0, 5}, Bytes{0xB0, 7, 90}));
    EXPECT_EQ(player.Position(kMorning + 1), 4);
    EXPECT_EQ(player.Mode(), SequencerMode::kPlaying);
}

TEST_F(PlayerTest, PlayOfAPlayingSongChangesNothing)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(0);
    Heard();
    player.Play(kMorning + 1, std::nullopt);
    EXPECT_THAT(Heard(), IsEmpty());
    EXPECT_EQ(RunUntil(1).next, kMorning + kBeat / 2);
}

TEST_F(PlayerTest, APositionOutsideTheSongIsBroughtIntoIt)
{
    Open(kSong);
    player.Play(kMorning, -5);
    EXPECT_EQ(player.Position(kMorning), 0);
    player.Play(kMorning, 1000);
    EXPECT_TRUE(RunUntil(0).ended);
    EXPECT_EQ(player.Position(kMorning), 16);
}

TEST_F(PlayerTest, PlayAtTheEndEndsAtOnceAgain)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(4 * kBeat);
    Heard();
    player.Play(kMorning + 5 * kBeat, std::nullopt);
    EXPECT_TRUE(RunUntil(5 * kBeat).ended);
}

TEST_F(PlayerTest, AnInstrumentThatIsNewIsToldEverything)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat);
    player.Pause(kMorning + kBeat);
    Heard();
    player.InstrumentIsNew();
    player.Play(kMorning + kBeat, std::nullopt);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xC0, 5}, Bytes{0xB0, 7, 90}, Bytes{0xE0, 0, 80}));
}

TEST_F(PlayerTest, TheNextSongTakesBackTheBendOfTheOneBefore)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(kBeat);
    player.Close(kMorning + kBeat);
    Open(kSong);
    Heard();
    player.Play(kMorning + kBeat, std::nullopt);
    EXPECT_THAT(Heard(), ElementsAre(Bytes{0xE0, 0, 64}));
}

TEST_F(PlayerTest, WhatWasLateAtAHaltIsDueAfterIt)
{
    Open(kSong);
    player.Play(kMorning, std::nullopt);
    RunUntil(0);
    player.Pause(kMorning + 3 * kBeat); // nothing was run meanwhile
    player.Play(kMorning + 4 * kBeat, std::nullopt);
    RunUntil(4 * kBeat); // Send sees to it that no message is due before an earlier one
    EXPECT_EQ(heard.back(), (Bytes{0x90, 63, 100}));
    EXPECT_EQ(lastDue, kMorning + 4 * kBeat);
}

} // namespace
} // namespace velluto::test
