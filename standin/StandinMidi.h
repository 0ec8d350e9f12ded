// MIDI devices that exist only on paper: each operation gives the code it was told to, and what is sent is written
// down. Used by the driver and by tests.
#pragma once

#include "platform/MidiDevices.h"

#include <string>
#include <vector>

namespace velluto {

// The result codes of a device's operations.
struct StandinCodes {
    int open = 0;
    int caps = 0;
    int send = 0;
    int close = 0;
    int connect = 0;
    int start = 0;
    int stop = 0;
    int disconnect = 0;
};

struct StandinDevice {
    std::string name;
    StandinCodes codes;
    bool isOpen = false;
    bool started = false;
    MidiInCallback callback;
};

// What Thru was asked to do and what it handed on. Numbers are device numbers, also of devices closed since; -1 for a handle that never was
// one.
struct ThruEvent {
    enum class Kind { Connect, Disconnect, Start, Stop, Message };
    Kind kind = Kind::Connect;
    int in = -1;
    int out = -1;
    std::vector<std::uint8_t> bytes;
};

class StandinMidi : public MidiDevices {
public:
    std::vector<StandinDevice> outs;
    std::vector<StandinDevice> ins;
    std::vector<std::uint32_t> sent; // packed messages handed to an open device, also where it then refused them
    std::vector<std::string> calls;  // every call by name and device number: "midiOutOpen 0"
    std::vector<ThruEvent> thru;
    bool devicesCome = false; // those that are added during a run are told of

    // An input delivers a message, as bytes. False where the input is not open.
    bool Receive(int in, const std::vector<std::uint8_t> &bytes);
    // The process that held the devices has ended: nothing is open or linked any more. What was written down stays.
    void ReleaseAll();

    int midiOutGetNumDevs() override;
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
    std::optional<MidiDeviceCounts> CountAgain() override;

private:
    void EndLink();

    int linkIn_ = -1;
    int linkOut_ = -1;
};

} // namespace velluto
