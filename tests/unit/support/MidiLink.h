// The core's record and the MIDI link over stand-ins, without the frame's handlers: what the tests of the link, of
// recall and of the Edit menu stand on.
#pragma once

#include "midi/MIDI.h"
#include "midi/MidiOut.h"
#include "midi/Survey.h"
#include "platform/machine/MachineFiles.h"
#include "standin/StandinClock.h"
#include "standin/StandinFace.h"
#include "standin/StandinMidi.h"
#include "standin/StandinPrinter.h"
#include "standin/StandinSequencer.h"
#include "standin/StandinTicks.h"
#include "unit/support/MidiMessages.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace velluto::test {

inline constexpr int kEnglish = 200;

struct MidiLink {
    MachineFiles files;
    StandinMidi devices;
    StandinFace face;
    StandinClock clock;
    StandinPrinter printer;
    StandinSequencer sequencer;
    MachineFolders folders;
    StandinTicks ticks;
    Modulo1 app{Ports{files, devices, clock, printer, sequencer, folders, ticks}, face};
    MidiState midi{app};

    MidiLink() { app.messages.LinguaBase = kEnglish; }

    void AddOuts(int count)
    {
        for (int i = 0; i < count; ++i) {
            devices.outs.push_back({"Out " + std::to_string(devices.outs.size()), {}, false, false, {}});
        }
    }
    void AddIns(int count)
    {
        for (int i = 0; i < count; ++i) {
            devices.ins.push_back({"In " + std::to_string(devices.ins.size()), {}, false, false, {}});
        }
    }
    void Survey()
    {
        SurveyMidiDevices(midi, [this] { ++frameLoads; });
    }
    // One output, open; nothing sent yet.
    void OpenOneOut()
    {
        AddOuts(1);
        app.settings.MidiOutDev = 0;
        OpenMidiOut(midi);
    }
    void Send(std::uint32_t message)
    {
        midi.ShortMsg = ShortMessage(message);
        SendShortMsg(midi);
    }
    [[nodiscard]] std::vector<std::string> BoxTexts() const
    {
        std::vector<std::string> texts;
        for (const ShownBox &box : face.boxes) {
            texts.push_back(box.text);
        }
        return texts;
    }

    int frameLoads = 0;
};

using Texts = std::vector<std::string>;

// A suite whose tests each begin with a link of their own.
template <class Link>
struct Linked : testing::Test {
    Link link;
};

} // namespace velluto::test
