// A JACK server with an instrument and a keyboard at it, and the program's devices: what the tests of the start and of the connections
// stand on.
#pragma once

#include "JackServer.h"
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <fstream>

namespace velluto::test {

class DevicesTest : public testing::Test {
protected:
    DevicesTest() { ::setenv("VELLUTO_SOUNDFONT", "", 1); } // without the synthesizer every device is a port

    void StartAll(int frames = 256)
    {
        server_.Start(frames);
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

} // namespace velluto::test
