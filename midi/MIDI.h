// The MIDI link's record: one output and one input device. Used by all of the room and by whoever plays the instrument.
#pragma once

#include "app/Modulo1.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace velluto {

class frmMsgEx;
class frmMIDISetup;

inline constexpr int kMidiTableSize = 8;
inline constexpr int kMaxMidiDevices = 7;
inline constexpr std::size_t kInputRingSize = 1025;

// What the input callback leaves behind. Written by a platform thread only, read by nobody but tests.
struct MidiInputRing {
    std::array<std::uint32_t, kInputRingSize> message{};
    std::array<std::uint32_t, kInputRingSize> parameter1{};
    std::array<std::uint32_t, kInputRingSize> parameter2{};
    std::size_t index = 0; // where the next one goes
};

// MidiOutDev, MidiInDev, ThruOn and ChannelRole live in the settings, since they are kept between runs.
struct MidiState {
    explicit MidiState(Modulo1 &core);
    ~MidiState();
    MidiState(const MidiState &) = delete;
    MidiState &operator=(const MidiState &) = delete;

    Modulo1 &app;
    MidiHandle hMidiOut = 0;
    MidiHandle hMidiIn = 0;
    bool MidiOutOpen = false;
    bool MidiInOpen = false;
    bool SendArmed = false; // cleared by the first failed send, set by each successful open
    ShortMessage ShortMsg;
    int MidiResult = 0; // last result of a capability query or a send
    std::string ErrorText;
    bool NoMidiOut = false;
    bool NoMidiIn = false;
    int MidiOutCount = 0;
    int MidiInCount = 0;
    std::array<MidiDeviceCaps, kMidiTableSize> MidiOutCaps{};
    std::array<MidiDeviceCaps, kMidiTableSize> MidiInCaps{};
    std::array<std::int16_t, kMidiTableSize> MidiOutValid{};
    std::array<std::int16_t, kMidiTableSize> MidiInValid{};
    bool ThruCheckedAtLoad = false;
    bool ThruEnabledAtLoad = false;
    MidiInputRing inputRing;

    bool MonitorEnabled = false;
    std::unique_ptr<frmMsgEx> monitor;   // the monitor window while it is open
    std::unique_ptr<frmMIDISetup> setup; // the channel setup window while it is open
};

// The box that every failed open, close and send shows: its site digit tells from the box alone which call failed.
enum class MidiSite { ShortMsg = 4, InOpen = 5, OutOpen = 6, InClose = 7, OutClose = 8 };

// Composes midi.ErrorText from the catalogue's text, the site and the code (at least two digits) and shows it.
void ShowMidiError(MidiState &midi, int textId, MidiSite site, int code);

} // namespace velluto
