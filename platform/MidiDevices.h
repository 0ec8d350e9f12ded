// The machine's MIDI devices, as the program asks for them: numbered outputs and inputs with result codes.
// Used by midi/; answered by the real devices (RtMidi, built-in synthesizer) and by the stand-ins of driver and tests.
#pragma once

#include "platform/ShortMessage.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace velluto {

// The result codes that a device layer gives. Only 0 and 4 lead to words of their own.
namespace MidiCode {
inline constexpr int kSuccess = 0;
inline constexpr int kError = 1;
inline constexpr int kAllocated = 4; // in use by somebody else
inline constexpr int kNoMemory = 7;
inline constexpr int kNoDevice = 68; // the device has gone
} // namespace MidiCode

using MidiHandle = std::uint32_t; // 0 is no device

struct MidiDeviceCaps {
    std::array<char, 32> name{}; // product name in UTF-8; ends at its first zero character
};

struct MidiDeviceCounts {
    int outs = 0;
    int ins = 0;
};

// Message codes of the input callback.
namespace MidiInMessage {
inline constexpr std::uint32_t kOpen = 0x3C1;
inline constexpr std::uint32_t kClose = 0x3C2;
inline constexpr std::uint32_t kData = 0x3C3; // parameter 1: the packed message; 2: milliseconds since the start
} // namespace MidiInMessage

// Called by a platform thread for each thing that an input delivers.
struct MidiInCallback {
    void (*proc)(MidiHandle handle, std::uint32_t message, void *instance, std::uint32_t parameter1, std::uint32_t parameter2) = nullptr;
    void *instance = nullptr;
};

class MidiDevices {
public:
    virtual ~MidiDevices() = default;

    // Which numbers will be opened at the start, before the first count. That may then be of the devices of the last run alone, where these
    // are all there and one of them has the number; CountAgain has all.
    virtual void Expect(int /*out*/, int /*in*/) {}
    virtual int midiOutGetNumDevs() = 0;
    virtual int midiOutGetDevCapsA(int number, MidiDeviceCaps &caps) = 0;
    virtual int midiOutOpen(MidiHandle &handle, int number) = 0;
    // Closing what is not open is a success, here and at the inputs: else a choice that never opened could not be left.
    virtual int midiOutClose(MidiHandle handle) = 0;
    virtual int midiOutShortMsg(MidiHandle handle, ShortMessage message) = 0;

    virtual int midiInGetNumDevs() = 0;
    virtual int midiInGetDevCapsA(int number, MidiDeviceCaps &caps) = 0;
    virtual int midiInOpen(MidiHandle &handle, int number, MidiInCallback callback) = 0;
    virtual int midiInClose(MidiHandle handle) = 0;
    virtual int midiInStart(MidiHandle handle) = 0;
    virtual int midiInStop(MidiHandle handle) = 0;

    // Thru: from then on the platform hands each message of the started input to the output by itself.
    virtual int midiConnect(MidiHandle in, MidiHandle out) = 0;
    virtual int midiDisconnect(MidiHandle in, MidiHandle out) = 0;

    // Counts anew, while a user waits: what has come since gets the next free numbers, and no number changes hands. None where devices
    // neither come nor go.
    virtual std::optional<MidiDeviceCounts> CountAgain() { return std::nullopt; }
};

} // namespace velluto
