// The MIDI devices of Windows behind the program's port: its own numbers, names and result codes. Used by main; nothing is added to
// what the system's calls do.
#pragma once

#include "platform/MidiDevices.h"

#include <map>
#include <memory>

namespace velluto {

class WinMidi : public MidiDevices {
public:
    WinMidi();
    // Closes what is open.
    ~WinMidi() override;
    WinMidi(const WinMidi &) = delete;
    WinMidi &operator=(const WinMidi &) = delete;

    int midiOutGetNumDevs() override;
    // The number -1 is the system's mapper, here and where an output is opened.
    int midiOutGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiOutOpen(MidiHandle &handle, int number) override;
    int midiOutClose(MidiHandle handle) override;
    int midiOutShortMsg(MidiHandle handle, ShortMessage message) override;
    int midiInGetNumDevs() override;
    int midiInGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiInOpen(MidiHandle &handle, int number, MidiInCallback callback) override;
    int midiInClose(MidiHandle handle) override;
    int midiInStart(MidiHandle handle) override;
    int midiInStop(MidiHandle handle) override;
    int midiConnect(MidiHandle in, MidiHandle out) override;
    int midiDisconnect(MidiHandle in, MidiHandle out) override;

private:
    struct Input;
    using SystemOutput = void *; // an HMIDIOUT

    // Nothing for a number that is not, or no longer, that of an open device.
    [[nodiscard]] SystemOutput FindOutput(MidiHandle handle) const;
    [[nodiscard]] Input *FindInput(MidiHandle handle) const;

    // The system's handles are wider than the program's, and one that was closed may not be shown to the system again.
    std::map<MidiHandle, SystemOutput> outputs_;
    std::map<MidiHandle, std::unique_ptr<Input>> inputs_;
    MidiHandle last_ = 0;
};

} // namespace velluto
