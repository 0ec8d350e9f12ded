// The sequencer on its own thread: commands, errors, what it says when.
#include "unit/platform/SequencerOnPaper.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Why = Refusal::Why;

struct MachineSequencerTest : SequencerOnPaper {};

TEST_F(MachineSequencerTest, AtFirstNothingIsOpen)
{
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(sequencer->Command(), "");
    EXPECT_EQ(sequencer->Position(), 0);
    EXPECT_EQ(sequencer->Length(), 0);
    EXPECT_EQ(sequencer->Error(), 0);
    EXPECT_EQ(sequencer->Reason().why, Why::None);
}

TEST_F(MachineSequencerTest, OpenTellsTheLengthAndStandsAtTheBeginning)
{
    Open(Place(kLong));
    EXPECT_EQ(sequencer->Error(), 0);
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
    EXPECT_EQ(sequencer->Length(), (192 + (0x30 << 7)) * 4 / 96);
    EXPECT_EQ(sequencer->Position(), 0);
    EXPECT_EQ(sequencer->Command(), "open");
    EXPECT_EQ(heard.shown, 1);
    EXPECT_EQ(heard.woken, 0);
}

TEST_F(MachineSequencerTest, PlayOfNothingIsAnError)
{
    sequencer->SetCommand("play");
    EXPECT_EQ(sequencer->Error(), SequencerError::kNotOpen);
    EXPECT_EQ(sequencer->Reason().why, Why::NoFileOpen);
    EXPECT_EQ(heard.woken, 0);
}

TEST_F(MachineSequencerTest, PauseStopAndCloseOfNothingAreNone)
{
    for (const char *word : {"pause", "stop", "close"}) {
        sequencer->SetCommand(word);
        EXPECT_EQ(sequencer->Error(), 0) << word;
        EXPECT_EQ(sequencer->Command(), word);
    }
    EXPECT_EQ(mail.Waiting(), 0U);
}

TEST_F(MachineSequencerTest, AnyOtherWordIsAnError)
{
    Open(Place(kLong));
    for (const char *word : {"", "Play", "rewind"}) {
        sequencer->SetCommand(word);
        EXPECT_EQ(sequencer->Error(), SequencerError::kUnknownCommand) << word;
        EXPECT_EQ(sequencer->Reason().why, Why::UnknownCommand);
        EXPECT_EQ(sequencer->Command(), word);
    }
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
}

TEST_F(MachineSequencerTest, APlayEndsByItselfAndTellsOneLater)
{
    Open(Place(kShort));
    sequencer->SetCommand("play");
    EXPECT_THAT(told, IsEmpty());
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kNormalEnd));
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
    EXPECT_EQ(sequencer->Position(), 4);
    EXPECT_THAT(Arrived(2), ElementsAre(Bytes{0x90, 60, 100}, Bytes{0x90, 60, 0}));
}

TEST_F(MachineSequencerTest, AStopTellsFourLaterAndEndsTheNotes)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kPlaying);
    Arrived(1);
    sequencer->SetCommand("stop");
    EXPECT_THAT(told, IsEmpty());
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
    EXPECT_THAT(Arrived(3), ElementsAre(Bytes{0x90, 60, 100}, Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}));
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kAborted));
    sequencer->SetCommand("stop");
    EXPECT_EQ(mail.Waiting(), 0U);
}

TEST_F(MachineSequencerTest, ACloseOfARunningPlayTellsFourAndEndsTheNotes)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    Arrived(1);
    sequencer->SetCommand("close");
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kNotReady);
    EXPECT_EQ(sequencer->Length(), 0);
    EXPECT_EQ(Arrived(3).size(), 3U);
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kAborted));
}

TEST_F(MachineSequencerTest, OpenOfAnotherFileBreaksARunningPlayOff)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    Arrived(1);
    Open(Place(kShort));
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
    EXPECT_EQ(sequencer->Length(), 4);
    EXPECT_EQ(Arrived(3).size(), 3U);
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kAborted));
}

TEST_F(MachineSequencerTest, PauseTellsNothingAndEndsTheNotes)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    Arrived(1);
    sequencer->SetCommand("pause");
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kPaused);
    EXPECT_EQ(Arrived(3).size(), 3U);
    sequencer->SetCommand("stop");
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kStopped);
    EXPECT_EQ(mail.Waiting(), 0U);
}

TEST_F(MachineSequencerTest, FromReadsAsWrittenAndMovesTheNextPlay)
{
    Open(Place(kLong));
    sequencer->SetFrom(8);
    EXPECT_EQ(sequencer->From(), 8);
    EXPECT_EQ(sequencer->Position(), 0);
    sequencer->SetCommand("play");
    EXPECT_GE(sequencer->Position(), 8);
    EXPECT_THAT(Arrived(2), ElementsAre(Bytes{0xC0, 5}, Bytes{0x90, 61, 100}));
    EXPECT_EQ(sequencer->From(), 8);
    sequencer->SetCommand("stop");
    const std::int32_t stood = sequencer->Position();
    sequencer->SetCommand("play"); // without a fresh From it goes on
    EXPECT_GE(sequencer->Position(), stood);
    sequencer->SetCommand("close");
    EXPECT_EQ(Arrived(4).size(), 4U); // 61 did not sound a second time, as it would have from 8
}

TEST_F(MachineSequencerTest, OpenPutsFromBackAndForgetsIt)
{
    Open(Place(kLong));
    sequencer->SetFrom(8);
    Open(Place(kShort));
    EXPECT_EQ(sequencer->From(), 0);
    sequencer->SetCommand("play");
    EXPECT_THAT(Arrived(2), ElementsAre(Bytes{0x90, 60, 100}, Bytes{0x90, 60, 0}));
}

TEST_F(MachineSequencerTest, AFromOutsideTheFileIsBroughtIntoIt)
{
    Open(Place(kShort));
    sequencer->SetFrom(1000);
    EXPECT_EQ(sequencer->From(), 1000);
    sequencer->SetCommand("play");
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(told, ElementsAre(NotifyCode::kNormalEnd));
    EXPECT_EQ(sequencer->Position(), 4);
}

TEST_F(MachineSequencerTest, OutputsThatWereMadeAnewAreToldEverything)
{
    Open(Place(kLong));
    sequencer->SetFrom(8);
    sequencer->SetCommand("play");
    Arrived(2);
    sequencer->SetCommand("pause");
    heard.knowsNothing = true;
    sequencer->SetCommand("play");
    const std::vector<Bytes> messages = Arrived(5);
    EXPECT_EQ(messages.back(), (Bytes{0xC0, 5}));
}

TEST_F(MachineSequencerTest, ADeviceIsChosenAtOnceWhereNothingPlays)
{
    PlayOn("PA80");
    PlayOn("PA80");
    PlayOn("");
    EXPECT_THAT(heard.chosen, ElementsAre("PA80", ""));
    EXPECT_EQ(heard.woken, 0);
    EXPECT_EQ(mail.Waiting(), 0U);
}

TEST_F(MachineSequencerTest, ASongThatPlaysMovesToTheDeviceThatIsChosenLast)
{
    Open(Place(kLong));
    sequencer->SetFrom(8);
    sequencer->SetCommand("play");
    Arrived(2);
    PlayOn("Other");
    PlayOn("PA80");
    EXPECT_THAT(heard.chosen, IsEmpty());
    heard.knowsNothing = true;
    const std::int32_t position = sequencer->Position();
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(heard.chosen, ElementsAre("PA80"));
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kPlaying);
    EXPECT_GE(sequencer->Position(), position);
    EXPECT_THAT(Arrived(5), ElementsAre(Bytes{0xC0, 5}, Bytes{0x90, 61, 100}, Bytes{0x80, 61, 64}, Bytes{0xB0, 123, 0}, Bytes{0xC0, 5}));
    EXPECT_EQ(mail.Waiting(), 0U);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(MachineSequencerTest, ASongThatHasStoppedBeforeItMovesStaysSilent)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    Arrived(1);
    PlayOn("PA80");
    sequencer->SetCommand("pause");
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(heard.chosen, ElementsAre("PA80"));
    EXPECT_EQ(sequencer->Mode(), SequencerMode::kPaused);
    EXPECT_EQ(heard.woken, 1);
    EXPECT_EQ(Arrived(3).size(), 3U);
}

TEST_F(MachineSequencerTest, AMoveThatComesAfterTheEndOfTheSequencerIsNone)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    PlayOn("PA80");
    sequencer.reset();
    ASSERT_TRUE(mail.RunNext());
    EXPECT_THAT(heard.chosen, IsEmpty());
}

TEST_F(MachineSequencerTest, TheEndOfTheSequencerEndsTheNotesAndTellsNoMore)
{
    Open(Place(kLong));
    sequencer->SetCommand("play");
    Arrived(1);
    sequencer->SetCommand("stop");
    sequencer->SetCommand("play");
    sequencer.reset();
    ASSERT_TRUE(mail.RunNext());
    EXPECT_EQ(mail.Waiting(), 0U);
    EXPECT_THAT(told, IsEmpty());
    EXPECT_THAT(heard.messages, ElementsAre(Bytes{0x90, 60, 100}, Bytes{0x80, 60, 64}, Bytes{0xB0, 123, 0}));
}

TEST_F(MachineSequencerTest, TheOutputsRestAfterAPlayAndAreWokenForTheNext)
{
    sequencer = std::make_unique<MachineSequencer>(
        store, std::make_unique<PaperOutputs>(heard), [this](std::function<void()> call) { mail.Post(std::move(call)); },
        std::chrono::milliseconds(1));
    Open(Place(kShort));
    EXPECT_EQ(heard.woken, 0);
    for (int plays = 1; plays <= 2; ++plays) {
        sequencer->SetFrom(0);
        sequencer->SetCommand("play");
        EXPECT_EQ(heard.woken, plays);
        std::unique_lock lock(heard.mutex);
        ASSERT_TRUE(heard.came.wait_for(lock, std::chrono::seconds(10), [this]() { return heard.rests; }));
        heard.rests = false;
    }
}

TEST_F(MachineSequencerTest, TimeIsKeptOnlyWhileASongPlays)
{
    const auto times = [this](std::size_t count) {
        std::unique_lock lock(heard.mutex);
        heard.came.wait_for(lock, std::chrono::seconds(10), [&]() { return heard.keepsTime.size() >= count; });
        return heard.keepsTime;
    };
    Open(Place(kLong));
    sequencer->SetCommand("play");
    EXPECT_THAT(times(1), ElementsAre(true));
    sequencer->SetCommand("pause");
    EXPECT_THAT(times(2), ElementsAre(true, false));
    sequencer->SetCommand("play");
    EXPECT_THAT(times(3), ElementsAre(true, false, true));
    sequencer.reset();
    EXPECT_THAT(heard.keepsTime, ElementsAre(true, false, true, false));
}

TEST_F(MachineSequencerTest, MillionsOfMessagesAtOnceDoNotHoldTheInterfaceUp)
{
    constexpr std::size_t kMessages = 3'000'000;
    Bytes track = {0, 0xC0, 5};
    track.resize(3 + 2 * kMessages); // each: no time, program 0
    Append(track, EndAfter(96));
    Open(Place(File(0, 96, {track})));
    sequencer->SetCommand("play");
    Arrived(1);
    sequencer->SetCommand("stop"); // long before all have come
    EXPECT_LT(heard.messages.size(), kMessages);
}

} // namespace
} // namespace velluto::test
