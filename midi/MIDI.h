// The MIDI link's record and its operations: one output and one input device, the short-message send path, Thru.
// Used by whoever plays the instrument; the roles are in Roles.h, the monitor in Monitor.h.
#pragma once

#include "app/Modulo1.h"

#include <array>
#include <cstdint>
#include <functional>
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

// Takes stock of the devices and reopens the saved ones. Called once, before the frame is shown; where it has to
// disable a menu entry it calls loadFrame first.
void SurveyMidiDevices(MidiState &midi, const std::function<void()> &loadFrame);

// Sends midi.ShortMsg. Silent without an open device; the first failure is shown and disarms the path.
void SendShortMsg(MidiState &midi);
// Sends them one after the other; the last of them stays in ShortMsg. The monitor shows the bytes of all in one line, and only one that
// fails by itself, while its box stands.
void SendGroup(MidiState &midi, const std::array<ShortMessage, 3> &messages);
// channel 0 to 15, note and velocity 0 to 127.
void SendNoteOn(MidiState &midi, int channel, int note, int velocity);
void SendNoteOff(MidiState &midi, int channel, int note, int velocity);
void SendAllNotesOff(MidiState &midi, int channel);

// All of these return the platform's result code.
int OpenMidiOut(MidiState &midi);
int CloseMidiOut(MidiState &midi);
int OpenMidiIn(MidiState &midi);
int CloseMidiIn(MidiState &midi);
int ThruConnect(MidiState &midi);
int ThruDisconnect(MidiState &midi);
int MidiInStartRun(MidiState &midi);
int MidiInStopRun(MidiState &midi);

// Entered by a platform thread; instance is a MidiInputRing.
void MidiInProc(MidiHandle handle, std::uint32_t message, void *instance, std::uint32_t parameter1, std::uint32_t parameter2);

// Names, visibility and check marks of mnuDevMIDIOut and mnuDevMIDIIn, at the load of the frame.
void FillDeviceMenus(MidiState &midi);
// The menu commands.
void mnuDevMIDIOut_Click(MidiState &midi, int index);
void mnuDevMIDIIn_Click(MidiState &midi, int index);
void mnuMIDIThru_Click(MidiState &midi);

} // namespace velluto
