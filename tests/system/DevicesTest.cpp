#include "JackServer.h"
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"

#include <gmock/gmock.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

namespace velluto::test {
namespace {

using testing::Contains;
using testing::Not;

constexpr std::uint32_t kNoteOn = 0x643C90;

class DevicesTest : public testing::Test {
protected:
    DevicesTest() { ::setenv("VELLUTO_SOUNDFONT", "", 1); } // without the synthesizer every device is a port

    void StartAll()
    {
        server_.Start();
        StartInstrument();
        keys_ = std::make_unique<Process>(std::vector<std::string>{JACK_KEYS, "keys"});
        ASSERT_TRUE(keys_->WaitUntilReady());
        midi_ = MakeMachineMusic(files_, {}).midi;
        Outs();
        Ins();
    }

    void StartInstrument()
    {
        instrument_ = std::make_unique<Process>(std::vector<std::string>{JACK_INSTRUMENT, "pa80"});
        ASSERT_TRUE(instrument_->WaitUntilReady());
    }

    std::vector<std::string> Names(int count, int (MidiDevices::*query)(int, MidiDeviceCaps &))
    {
        std::vector<std::string> names;
        for (int i = 0; i < count; ++i) {
            MidiDeviceCaps caps;
            EXPECT_EQ((*midi_.*query)(i, caps), 0);
            names.emplace_back(caps.name.begin(), std::find(caps.name.begin(), caps.name.end(), '\0'));
        }
        return names;
    }
    std::vector<std::string> Outs() { return Names(midi_->midiOutGetNumDevs(), &MidiDevices::midiOutGetDevCapsA); }
    std::vector<std::string> Ins() { return Names(midi_->midiInGetNumDevs(), &MidiDevices::midiInGetDevCapsA); }

    static int NumberOf(const std::vector<std::string> &names, const std::string &name)
    {
        const auto found = std::find(names.begin(), names.end(), name);
        return found == names.end() ? -1 : static_cast<int>(found - names.begin());
    }

    MidiHandle OpenInstrument()
    {
        MidiHandle handle = 0;
        EXPECT_EQ(midi_->midiOutOpen(handle, NumberOf(Outs(), "pa80:midi_in")), 0);
        return handle;
    }

    MidiHandle OpenKeys(MidiInCallback callback = {})
    {
        MidiHandle handle = 0;
        EXPECT_EQ(midi_->midiInOpen(handle, NumberOf(Ins(), "keys:midi_out"), callback), 0);
        return handle;
    }

    // Whether exactly these messages arrive at the instrument. A last one is sent behind them by the caller, so that
    // nothing can still be on its way.
    testing::AssertionResult Arrives(const std::vector<std::string> &messages)
    {
        Eventually([&]() { return instrument_->Lines().size() >= messages.size(); });
        if (instrument_->Lines() == messages) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << testing::PrintToString(instrument_->Lines());
    }

    // The first code of a send that is not 0.
    int FirstRefusal(MidiHandle out)
    {
        int code = 0;
        Eventually([&]() { return (code = midi_->midiOutShortMsg(out, ShortMessage(0x0004C0))) != 0; });
        return code;
    }

    // How long this thread has not slept: it ran, or wanted to and a busy machine did not let it.
    static std::chrono::nanoseconds Awake()
    {
        std::ifstream file("/proc/thread-self/schedstat");
        std::int64_t ran = 0;
        std::int64_t wanted = 0;
        file >> ran >> wanted;
        return std::chrono::nanoseconds(ran + wanted);
    }

    // Closing must not wait for a dead server, which takes a second to leave.
    int CloseOutPromptly(MidiHandle out)
    {
        const auto begin = std::chrono::steady_clock::now();
        const auto awake = Awake();
        const int code = midi_->midiOutClose(out);
        const auto awakeSince = Awake() - awake;
        EXPECT_LT(std::chrono::steady_clock::now() - begin - awakeSince, std::chrono::milliseconds(500));
        return code;
    }

    JackServer server_;
    std::unique_ptr<Process> instrument_;
    std::unique_ptr<Process> keys_;
    MachineFiles files_;
    std::unique_ptr<MidiDevices> midi_;
};

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

TEST_F(DevicesTest, AServerThatComesAfterTheStartIsFoundByALaterCountThatKeepsNobodyWaiting)
{
    midi_ = MakeMachineMusic(files_, {}).midi;
    const std::vector<std::string> outs = Outs();
    server_.Start();
    StartInstrument();
    EXPECT_TRUE(Eventually([&]() {
        const auto begin = std::chrono::steady_clock::now();
        const auto awake = Awake();
        const auto counts = midi_->CountAgain();
        EXPECT_LT(std::chrono::steady_clock::now() - begin - (Awake() - awake), std::chrono::milliseconds(500));
        return counts->outs > static_cast<int>(outs.size());
    }));
    EXPECT_THAT(Names(midi_->CountAgain()->outs, &MidiDevices::midiOutGetDevCapsA), Contains("pa80:midi_in"));
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

TEST_F(DevicesTest, WhoComesSecondToTheSystemsFindsNone)
{
    server_.Start();
    StartInstrument();
    const auto systems = LookForMidiSystems();
    const MachineMusic first = MakeMachineMusic(files_, {}, {}, systems);
    const MachineMusic second = MakeMachineMusic(files_, {}, {}, systems);
    EXPECT_GT(first.midi->midiOutGetNumDevs(), 0);
    EXPECT_EQ(second.midi->midiOutGetNumDevs(), 0);
}

} // namespace
} // namespace velluto::test
