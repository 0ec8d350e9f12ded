// Songs on Windows' outputs, over the winmm.dll on paper: where they go, what they leave, and what the program's own choices change.
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"
#include "platform/windows/WinOutputs.h"

#include "Paper.h"
#include "unit/platform/PaperOutputs.h"
#include "unit/sequencer/MidiBytes.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>

#include <thread>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

// A program and a note, held for more than an hour.
const Bytes kHeld = File(0, 96, {{0, 0xC0, 5, 0, 0x90, 60, 100, 0xB0, 0x00, 0xFF, 0x2F, 0}});
// The same, and messages for the instrument itself before.
const Bytes kExclusives = File(0, 96, {{0, 0xC0, 5, 0, 0xF0, 5, 0x7E, 0x7F, 9, 1, 0xF7, 0, 0x90, 60, 100, 0xB0, 0x00, 0xFF, 0x2F, 0}});

// Follows the first messages.
const std::string kUnderWay = "timeBeginPeriod 1 = 0\n";

class WinSequencerTest : public testing::Test {
protected:
    WinSequencerTest()
    {
        Paper("reset");
        Paper("out Synth");
        Paper("out Keys");
        music = MakeMachineMusic(files, [this](std::function<void()> call) { mail.Post(std::move(call)); });
    }

    void Play(const Bytes &song)
    {
        const std::string path = folder.At("song.mid");
        WriteBytes(path, song);
        music.sequencer->SetFileName(path);
        music.sequencer->SetCommand("open");
        music.sequencer->SetCommand("play");
        EXPECT_EQ(music.sequencer->Error(), 0);
    }
    // The log since the test last asked, once it holds that.
    std::string LogWith(const std::string &line)
    {
        constexpr int kTries = 5000;
        std::string log;
        for (int tries = 0; tries < kTries && log.find(line) == std::string::npos; ++tries) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
            log = Paper("").substr(seen_);
        }
        EXPECT_THAT(log, HasSubstr(line));
        seen_ += log.size();
        return log;
    }
    std::string Log()
    {
        const std::string log = Paper("").substr(seen_);
        seen_ += log.size();
        return log;
    }
    int OpenOut(int number) { return music.midi->midiOutOpen(out, number); }

    TempFolder folder;
    MachineFiles files;
    Mail mail;
    MachineMusic music;
    MidiHandle out = 0;

private:
    std::size_t seen_ = 0;
};

TEST_F(WinSequencerTest, ASongSharesTheOutputThatTheProgramHasOpen)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    EXPECT_THAT(LogWith(kUnderWay), StartsWith("midiOutOpen 1 0 = 0\nmidiOutShortMsg 1 0005C0 = 0\nmidiOutShortMsg 1 643C90 = 0\n"));
    EXPECT_EQ(music.midi->midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 1, 40, 9)), 0);
    music.sequencer->SetCommand("stop");
    EXPECT_THAT(LogWith("007BB0 = 0\n"), HasSubstr("midiOutShortMsg 1 403C80 = 0\nmidiOutShortMsg 1 007BB0 = 0\n"));
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    EXPECT_THAT(Log(), HasSubstr("midiOutShortMsg 1 402881 = 0\nmidiOutClose 1 = 0\n")) << "the program's own note had gone on";
}

TEST_F(WinSequencerTest, WithoutAnOutputTheFirstDevicePlays)
{
    Play(kHeld);
    EXPECT_THAT(LogWith(kUnderWay), StartsWith("midiOutOpen 0 0 = 0\nmidiOutShortMsg 0 0005C0 = 0\nmidiOutShortMsg 0 643C90 = 0\n"));
}

TEST_F(WinSequencerTest, TheFirstDeviceIsGivenBackAfterAWhileAndTakenForTheNextPlay)
{
    auto midi = std::make_unique<WinMidi>();
    music.sequencer = std::make_shared<MachineSequencer>(
        files, std::make_unique<WinOutputs>(*midi), [this](std::function<void()> call) { mail.Post(std::move(call)); },
        std::chrono::milliseconds(1));
    music.midi = std::move(midi);
    for (int plays = 1; plays <= 2; ++plays) {
        Play(kHeld);
        EXPECT_THAT(LogWith(kUnderWay), HasSubstr("midiOutOpen 0 0 = 0\n"));
        music.sequencer->SetCommand("stop");
        LogWith("midiOutClose 0 = 0\n");
    }
}

TEST_F(WinSequencerTest, WhatIsOpenIsNotClosedByTheSong)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    LogWith(kUnderWay);
    music.sequencer.reset();
    EXPECT_THAT(Log(), Not(HasSubstr("midiOutClose")));
    EXPECT_EQ(music.midi->midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 1, 40, 9)), 0);
}

TEST_F(WinSequencerTest, AnOutputThatIsClosedInMidSongIsLeftSilentAndTheFirstDevicePlaysOn)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    LogWith(kUnderWay);
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    EXPECT_THAT(Log(), EndsWith("midiOutShortMsg 1 403C80 = 0\nmidiOutClose 1 = 0\n"));
    EXPECT_EQ(music.sequencer->Mode(), SequencerMode::kPlaying);
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(LogWith("0005C0 = 0\n"), HasSubstr("midiOutOpen 0 0 = 0\n")) << "the program of its channel is told anew";
    EXPECT_EQ(music.sequencer->Mode(), SequencerMode::kPlaying);
    EXPECT_EQ(mail.Waiting(), 0U);
}

TEST_F(WinSequencerTest, AChangeFromOneDeviceToAnotherIsOneMove)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    LogWith(kUnderWay);
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    ASSERT_EQ(OpenOut(0), 0);
    EXPECT_THAT(Log(), EndsWith("midiOutShortMsg 1 403C80 = 0\nmidiOutClose 1 = 0\nmidiOutOpen 0 0 = 0\n"));
    EXPECT_EQ(mail.Waiting(), 1U);
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(LogWith("0005C0 = 0\n"), Not(HasSubstr("midiOutOpen")));
    EXPECT_EQ(music.sequencer->Mode(), SequencerMode::kPlaying);
}

TEST_F(WinSequencerTest, TheProgramGetsTheFirstDeviceAlthoughASongPlaysOnIt)
{
    Play(kHeld);
    LogWith(kUnderWay);
    EXPECT_EQ(OpenOut(0), 0);
    EXPECT_THAT(Log(), EndsWith("midiOutShortMsg 0 403C80 = 0\nmidiOutClose 0 = 0\nmidiOutOpen 0 0 = 0\n"));
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(LogWith("0005C0 = 0\n"), Not(HasSubstr("midiOutOpen")));
}

TEST_F(WinSequencerTest, AfterAnOpenThatFailsTheSongHasItsDeviceAgain)
{
    for (const int code : {4, 68}) {
        Play(kHeld);
        LogWith(kUnderWay);
        Paper("fail midiOutOpen " + std::to_string(code));
        EXPECT_EQ(OpenOut(1), code);
        Paper("fail midiOutOpen 0");
        Log();
        ASSERT_TRUE(mail.RunNext());
        EXPECT_THAT(LogWith("0005C0 = 0\n"), HasSubstr("midiOutOpen 0 0 = 0\n"));
        music.sequencer->SetCommand("close");
        LogWith("timeEndPeriod 1 = 0\n");
        ASSERT_TRUE(mail.RunNext());
    }
}

TEST_F(WinSequencerTest, AFirstDeviceThatCannotBeHadLeavesASongInSilenceUntilTheNextPlay)
{
    for (const int code : {4, 68, 7}) {
        Paper("fail midiOutOpen " + std::to_string(code));
        Play(kHeld);
        EXPECT_EQ(music.sequencer->Mode(), SequencerMode::kPlaying);
        LogWith("timeBeginPeriod 1 = 0\n");
        music.sequencer->SetCommand("pause");
        EXPECT_THAT(LogWith("timeEndPeriod 1 = 0\n"), Not(HasSubstr("midiOutShortMsg")));
    }
    Paper("fail midiOutOpen 0");
    music.sequencer->SetCommand("play");
    LogWith("0005C0 = 0\n");
}

TEST_F(WinSequencerTest, WithoutAnyDeviceASongIsPlayedInSilence)
{
    Paper("reset");
    Play(File(0, 96, {{0, 0xFF, 0x51, 3, 0x00, 0x03, 0xE8, 0, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0}}));
    std::vector<int> told;
    music.sequencer->Done = [&](int code) { told.push_back(code); };
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kNormalEnd));
}

TEST_F(WinSequencerTest, ADeviceThatGoesTakesThePlayWithItAndTheNextGoesToTheFirst)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    LogWith(kUnderWay);
    Paper("pull out 1");
    music.sequencer->SetCommand("pause");
    EXPECT_EQ(music.sequencer->Mode(), SequencerMode::kPaused);
    LogWith("midiOutShortMsg 1 403C80 = 68\n");
    music.sequencer->SetCommand("play");
    EXPECT_THAT(LogWith("midiOutShortMsg 0 0005C0 = 0\n"), HasSubstr("midiOutOpen 0 0 = 0\n"));
}

TEST_F(WinSequencerTest, NotesOnADeviceThatWentEndWhenItIsBack)
{
    ASSERT_EQ(OpenOut(1), 0);
    Play(kHeld);
    LogWith(kUnderWay);
    Paper("pull out 1");
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    ASSERT_TRUE(mail.RunNext());
    Paper("plug out 1");
    Log();
    ASSERT_EQ(OpenOut(1), 0);
    EXPECT_THAT(Log(), HasSubstr("midiOutOpen 1 0 = 0\nmidiOutShortMsg 1 403C80 = 0\n"));
}

TEST_F(WinSequencerTest, ExclusiveMessagesGoOutWholeAndInOrder)
{
    Play(kExclusives);
    EXPECT_THAT(LogWith(kUnderWay),
                HasSubstr("0005C0 = 0\nmidiOutPrepareHeader 0 = 0\nmidiOutLongMsg 0 F07E7F0901F7 = 0\nmidiOutShortMsg 0 643C90"));
    music.sequencer->SetCommand("close");
    ASSERT_EQ(OpenOut(1), 0); // which sends the song's own away
    EXPECT_THAT(Log(), HasSubstr("midiOutUnprepareHeader 0 = 0\nmidiOutClose 0 = 0\n"));
}

TEST_F(WinSequencerTest, ExclusiveMessagesThatTheDeviceDoesNotReadAreTakenBackAtTheClose)
{
    Paper("hold 1");
    ASSERT_EQ(OpenOut(1), 0);
    Play(kExclusives);
    LogWith(kUnderWay);
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    EXPECT_THAT(Log(), HasSubstr("midiOutReset 1 = 0\nmidiOutUnprepareHeader 1 = 0\nmidiOutClose 1 = 0\n"));
}

TEST_F(WinSequencerTest, AnExclusiveMessageThatTheSystemRefusesIsLeftOut)
{
    Paper("fail midiOutLongMsg 67");
    ASSERT_EQ(OpenOut(1), 0);
    Play(kExclusives);
    LogWith(kUnderWay);
    EXPECT_EQ(music.midi->midiOutClose(out), 0);
    EXPECT_THAT(Log(), HasSubstr("midiOutUnprepareHeader 1 = 0\nmidiOutClose 1 = 0\n"));
}

TEST_F(WinSequencerTest, AnExclusiveMessageTooLongForTheSystemIsLeftOut)
{
    constexpr std::size_t kLong = 70'000;
    Bytes track = {0, 0xF0, 0x84, 0xA2, 0x70}; // 70,000 bytes follow
    track.resize(track.size() + kLong - 1, 1);
    Append(track, {0xF7, 0, 0x90, 60, 100, 0xB0, 0x00, 0xFF, 0x2F, 0});
    Play(File(0, 96, {track}));
    EXPECT_THAT(LogWith(kUnderWay), Not(HasSubstr("midiOutLongMsg")));
}

TEST_F(WinSequencerTest, TheTimersAreFineOnlyWhileASongPlays)
{
    Play(kHeld);
    LogWith("timeBeginPeriod 1 = 0\n");
    music.sequencer->SetCommand("pause");
    LogWith("timeEndPeriod 1 = 0\n");
    music.sequencer->SetCommand("play");
    LogWith("timeBeginPeriod 1 = 0\n");
    music.sequencer.reset();
    EXPECT_THAT(Log(), HasSubstr("timeEndPeriod 1 = 0\n"));
}

TEST_F(WinSequencerTest, TheEndLeavesNoNote)
{
    Play(kHeld);
    LogWith(kUnderWay);
    music.sequencer.reset();
    music.midi.reset();
    const std::string log = Log();
    EXPECT_THAT(log, HasSubstr("midiOutShortMsg 0 403C80 = 0\nmidiOutShortMsg 0 007BB0 = 0\n"));
    EXPECT_THAT(log, EndsWith("midiOutClose 0 = 0\n"));
}

} // namespace
} // namespace velluto::test
