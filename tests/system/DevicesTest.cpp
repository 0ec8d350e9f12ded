// Connections to real ports: what arrives, what sounds on, and what happens when ports and servers go.
#include "DevicesTest.h"

#include <csignal>

namespace velluto::test {
namespace {

using testing::Contains;
using testing::Not;

TEST_F(DevicesTest, WithoutAServerThereAreNoDevicesAndNoWords)
{
    testing::internal::CaptureStderr();
    midi_ = MakeMachineMusic(files_, {}).midi;
    const std::vector<std::string> outs = Outs();
    const std::vector<std::string> ins = Ins();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_THAT(outs, Not(Contains(testing::HasSubstr("pa80"))));
    EXPECT_THAT(ins, Not(Contains(testing::HasSubstr("keys"))));
}

TEST_F(DevicesTest, PortsAreListedByNameAndTheProgramsOwnAreNot)
{
    StartAll();
    EXPECT_THAT(Outs(), Contains("pa80:midi_in"));
    EXPECT_THAT(Ins(), Contains("keys:midi_out"));
    OpenInstrument();
    OpenKeys();
    EXPECT_THAT(Outs(), Not(Contains(testing::StartsWith("Velluto"))));
    EXPECT_THAT(Ins(), Not(Contains(testing::StartsWith("Velluto"))));
}

TEST_F(DevicesTest, TheBytesOfASelectionArriveAsTheyWereSent)
{
    StartAll();
    const MidiHandle out = OpenInstrument();
    for (const std::uint32_t message : {0x7900B0U, 0x4020B0U, 0x0004C0U}) {
        EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(message)), 0);
    }
    EXPECT_TRUE(Arrives({"B0 00 79", "B0 20 40", "C0 04"}));
}

TEST_F(DevicesTest, TheBuiltInSynthesizerIsTheFirstOutput)
{
    ::unsetenv("VELLUTO_SOUNDFONT");
    StartAll();
    const std::vector<std::string> outs = Outs();
    if (NumberOf(outs, "Velluto Synthesizer") < 0) {
        GTEST_SKIP() << "no SoundFont on this machine";
    }
    EXPECT_EQ(outs.front(), "Velluto Synthesizer");
    MidiHandle out = 0;
    EXPECT_EQ(midi_->midiOutOpen(out, 0), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(kNoteOn)), 0);
    const MidiHandle in = OpenKeys();
    EXPECT_EQ(midi_->midiConnect(in, out), 0);
    EXPECT_EQ(midi_->midiInStart(in), 0);
    EXPECT_EQ(midi_->midiDisconnect(in, out), 0);
    EXPECT_EQ(midi_->midiOutClose(out), 0);
}

TEST_F(DevicesTest, ClosingEndsTheNotesAtTheInstrument)
{
    StartAll();
    const MidiHandle out = OpenInstrument();
    midi_->midiOutShortMsg(out, ShortMessage(kNoteOn));
    midi_->midiOutShortMsg(out, ShortMessage(0x7F40B3));
    EXPECT_EQ(midi_->midiOutClose(out), 0);
    EXPECT_TRUE(Arrives({"90 3C 64", "B3 40 7F", "80 3C 40", "B3 40 00"}));
}

TEST_F(DevicesTest, TheEndOfTheProgramEndsTheNotesAtTheInstrument)
{
    StartAll();
    midi_->midiOutShortMsg(OpenInstrument(), ShortMessage(kNoteOn));
    midi_.reset();
    EXPECT_TRUE(Arrives({"90 3C 64", "80 3C 40"}));
}

TEST_F(DevicesTest, ThruPassesMessagesFromOneClientToAnother)
{
    StartAll();
    static std::atomic<int> heard;
    heard = 0;
    const MidiHandle in = OpenKeys({[](MidiHandle, std::uint32_t message, void *, std::uint32_t packed, std::uint32_t) {
                                        heard += message == 0x3C3 && packed == kNoteOn ? 1 : 0;
                                    },
                                    nullptr});
    const MidiHandle out = OpenInstrument();
    ASSERT_EQ(midi_->midiConnect(in, out), 0);
    ASSERT_EQ(midi_->midiInStart(in), 0);
    for (const char *message : {"90 3C 64", "F0 42 30 3B 7F F7", "80 3C 40", "C1 07"}) {
        keys_->Write(message);
    }
    EXPECT_TRUE(Arrives({"90 3C 64", "F0 42 30 3B 7F F7", "80 3C 40", "C1 07"}));
    EXPECT_EQ(heard, 1);
    ASSERT_EQ(midi_->midiDisconnect(in, out), 0);
    keys_->Write("90 40 64");
    midi_->midiOutShortMsg(out, ShortMessage(0x0004C0));
    EXPECT_TRUE(Arrives({"90 3C 64", "F0 42 30 3B 7F F7", "80 3C 40", "C1 07", "C0 04"}));
}

TEST_F(DevicesTest, AKeyboardThatGoesAwayLeavesNoNoteOfThru)
{
    StartAll();
    const MidiHandle in = OpenKeys();
    midi_->midiConnect(in, OpenInstrument());
    midi_->midiInStart(in);
    keys_->Write("90 3C 64");
    ASSERT_TRUE(Arrives({"90 3C 64"}));
    keys_->Leave();
    EXPECT_TRUE(Arrives({"90 3C 64", "80 3C 40"}));
}

TEST_F(DevicesTest, AnInstrumentThatGoesAwayGives68AndComesBackUnderItsNumber)
{
    StartAll();
    MidiHandle out = OpenInstrument();
    const int number = NumberOf(Outs(), "pa80:midi_in");
    instrument_->Leave();
    EXPECT_EQ(FirstRefusal(out), 68);
    EXPECT_EQ(CloseOutPromptly(out), 0);
    EXPECT_EQ(midi_->midiOutOpen(out, number), 68);
    StartInstrument();
    EXPECT_EQ(NumberOf(Outs(), "pa80:midi_in"), number);
    ASSERT_EQ(midi_->midiOutOpen(out, number), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_TRUE(Arrives({"C0 04"}));
}

TEST_F(DevicesTest, AnInstrumentThatComesAfterTheStartGetsTheNextNumberAndPlays)
{
    StartAll();
    const std::vector<std::string> outs = Outs();
    Process late({JACK_INSTRUMENT, "late"});
    ASSERT_TRUE(late.WaitUntilReady());
    ASSERT_EQ(midi_->CountAgain()->outs, static_cast<int>(outs.size()) + 1);
    std::vector<std::string> wanted = outs;
    wanted.emplace_back("late:midi_in");
    EXPECT_EQ(Names(static_cast<int>(wanted.size()), &MidiDevices::midiOutGetDevCapsA), wanted);
    MidiHandle out = 0;
    ASSERT_EQ(midi_->midiOutOpen(out, static_cast<int>(outs.size())), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_TRUE(Eventually([&]() { return late.Lines() == std::vector<std::string>{"C0 04"}; }));
    EXPECT_EQ(midi_->midiOutClose(out), 0);
}

TEST_F(DevicesTest, ADeviceOpensWhileOtherClientsLeave)
{
    StartAll();
    const int number = NumberOf(Outs(), "pa80:midi_in");
    std::vector<std::string> sent;
    for (int round = 0; round < 10; ++round) {
        Process guest({JACK_KEYS, "guest"});
        ASSERT_TRUE(guest.WaitUntilReady());
        guest.CloseInput(); // it leaves
        MidiHandle out = 0;
        ASSERT_EQ(midi_->midiOutOpen(out, number), 0);
        EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
        sent.emplace_back("C0 04");
        ASSERT_TRUE(Arrives(sent)) << round;
        EXPECT_EQ(midi_->midiOutClose(out), 0);
    }
}

TEST_F(DevicesTest, AServerThatEndsWhileNothingIsOpenIsMissedAndFoundAgain)
{
    StartAll();
    const int number = NumberOf(Outs(), "pa80:midi_in");
    server_.End(SIGKILL);
    MidiHandle out = 0;
    EXPECT_TRUE(Eventually([&]() { return midi_->midiOutOpen(out, number) == 68; }));

    instrument_->End(SIGKILL);
    keys_->End(SIGKILL);
    server_.Start();
    StartInstrument();
    ASSERT_EQ(midi_->midiOutOpen(out, number), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_TRUE(Arrives({"C0 04"}));
}

class ServerEndTest : public DevicesTest, public testing::WithParamInterface<int> {};

TEST_P(ServerEndTest, ASendIsRefusedWith68AndTheDeviceOpensAgainAfterARestart)
{
    StartAll();
    MidiHandle out = OpenInstrument();
    const MidiHandle in = OpenKeys();
    ASSERT_EQ(midi_->midiConnect(in, out), 0);
    ASSERT_EQ(midi_->midiInStart(in), 0);
    const int number = NumberOf(Outs(), "pa80:midi_in");
    server_.End(GetParam());
    EXPECT_EQ(FirstRefusal(out), 68);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 68);
    EXPECT_EQ(CloseOutPromptly(out), 0);
    EXPECT_EQ(midi_->midiOutOpen(out, number), 68);

    // The input is still open from the server that died.
    instrument_->End(SIGKILL);
    keys_->End(SIGKILL);
    server_.Start();
    StartInstrument();
    ASSERT_EQ(midi_->midiOutOpen(out, number), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_TRUE(Arrives({"C0 04"}));
    EXPECT_EQ(midi_->midiInClose(in), 0);
    EXPECT_EQ(midi_->midiOutClose(out), 0);
}

INSTANTIATE_TEST_SUITE_P(HoweverItEnds, ServerEndTest, testing::Values(SIGTERM, SIGKILL),
                         [](const auto &made) { return made.param == SIGTERM ? "Ended" : "Killed"; });

TEST_F(DevicesTest, AServerThatStandsStillNeverHoldsTheSender)
{
    StartAll();
    const MidiHandle out = OpenInstrument();
    server_.Stop();
    int code = 0;
    for (int i = 0; i < 20000 && code == 0; ++i) {
        code = midi_->midiOutShortMsg(out, ShortMessage(0x0004C0));
    }
    server_.Continue();
    EXPECT_EQ(code, 1);
    EXPECT_TRUE(Eventually([&]() { return midi_->midiOutShortMsg(out, ShortMessage(0x0005C0)) == 0; }));
}

TEST_F(DevicesTest, AServerThatStandsStillHoldsWhoOpensForAMomentAndOpensWhenItGoesOn)
{
    StartAll();
    const int out = NumberOf(Outs(), "pa80:midi_in");
    const int in = NumberOf(Ins(), "keys:midi_out");
    server_.Stop();
    MidiHandle handle = 0;
    EXPECT_EQ(midi_->midiOutOpen(handle, out), 68);
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(midi_->midiInOpen(handle, in, {}), 68);
    EXPECT_EQ(midi_->midiOutOpen(handle, out), 68);
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(2)) << "it has been waited for once";
    server_.Continue();
    EXPECT_TRUE(Eventually([&] { return midi_->midiOutOpen(handle, out) == 0; }));
    EXPECT_EQ(midi_->midiOutShortMsg(handle, ShortMessage(0x0004C0)), 0);
    EXPECT_TRUE(Arrives({"C0 04"}));
}

} // namespace
} // namespace velluto::test
