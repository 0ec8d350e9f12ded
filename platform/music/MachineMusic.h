// All that makes music on this machine: the program's devices and its sequencer. Made once by main; answered by platform/rtmidi and
// platform/windows.
#pragma once

#include "platform/MidiDevices.h"
#include "platform/music/KnownDevices.h"
#include "platform/music/MachineSequencer.h"

#include <memory>

namespace velluto {

// The sequencer plays through what the devices own, and goes before them. The devices tell it, while it is there, on which of them to
// play.
struct MachineMusic {
    std::unique_ptr<MidiDevices> midi;
    std::shared_ptr<MachineSequencer> sequencer;
};

// The machine's MIDI systems. Where a look for one takes its time, it begins here on another thread, and the first count of the devices
// waits for it. Where a system has all devices that are known of it, the look ends there.
struct MidiSystems;
std::shared_ptr<MidiSystems> LookForMidiSystems(const KnownDevices &known = {});

// Quick: devices and ports are opened when they are asked for. The systems are the devices' from then on, and nobody else's.
// The path is that of the file which keeps the numbers of the devices for the next run; without one they are not kept.
MachineMusic MakeMachineMusic(FileStore &files, MachineSequencer::Post post, const std::string &devicesPath = {},
                              std::shared_ptr<MidiSystems> systems = LookForMidiSystems());

} // namespace velluto
