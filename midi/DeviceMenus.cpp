#include "midi/DeviceMenus.h"

#include "app/Characters.h"
#include "midi/MidiIn.h"
#include "midi/MidiOut.h"

#include <algorithm>
#include <string_view>

namespace velluto {

namespace {

// Bytes that the UTF-8 character with this first byte takes.
std::size_t CharacterLength(char first)
{
    const auto byte = static_cast<unsigned char>(first);
    if (byte >= 0xF0U) {
        return 4;
    }
    if (byte >= 0xE0U) {
        return 3;
    }
    return byte >= 0xC0U ? 2 : 1;
}

// The name up to its first zero. A name that fills the field may have been cut inside a character: that one goes.
std::string ProductName(const MidiDeviceCaps &caps)
{
    const auto *end = std::ranges::find(caps.name, '\0');
    std::string name(caps.name.begin(), end);
    std::size_t last = name.size();
    while (last > 0 && IsContinuationByte(name[last - 1])) {
        --last;
    }
    if (last > 0 && last - 1 + CharacterLength(name[last - 1]) > name.size()) {
        name.resize(last - 1);
    }
    return name;
}

using CapsTable = std::array<MidiDeviceCaps, kMidiTableSize>;
using ValidTable = std::array<std::int16_t, kMidiTableSize>;

void Show(MenuEntry &entry, const MidiDeviceCaps &caps)
{
    entry.caption = ProductName(caps);
    entry.visible = true;
}

// Devices beyond the menu's last entry have none. chosen is checked even if the device did not open.
template <class Entries>
void FillMenu(Entries &entries, int count, const CapsTable &caps, const ValidTable &valid, int chosen)
{
    for (int number = Entries::first(); number <= Entries::last(); ++number) {
        const auto at = static_cast<std::size_t>(number);
        entries[number].visible = number == Entries::first();
        if (number < count && valid.at(at) == 1) {
            Show(entries[number], caps.at(at));
        }
        entries[number].checked = number == chosen;
    }
}

template <class Entries>
bool HasEntry(const Entries & /*entries*/, int number)
{
    return number >= Entries::first() && number <= Entries::last();
}

// Gives numbers that were nobody's the devices that have them now. MidiResult stays out of it: it decides what the next close tells.
template <class Entries>
void AddToMenu(MidiDevices &devices, int (MidiDevices::*query)(int, MidiDeviceCaps &), Entries &entries, int count, CapsTable &caps,
               ValidTable &valid)
{
    for (int number = 0; number < count; ++number) {
        const auto at = static_cast<std::size_t>(number);
        MidiDeviceCaps found;
        if (valid.at(at) == 1 || (devices.*query)(number, found) != MidiCode::kSuccess) {
            continue;
        }
        caps.at(at) = found;
        valid.at(at) = 1;
        if (HasEntry(entries, number)) {
            Show(entries[number], found);
        }
    }
}

template <class Entries>
void Uncheck(Entries &entries, int number)
{
    if (HasEntry(entries, number)) {
        entries[number].checked = false;
    }
}

} // namespace

void FillDeviceMenus(MidiState &midi)
{
    frmMain &frame = midi.app.frame;
    const Settings &settings = midi.app.settings;
    FillMenu(frame.mnuDevMIDIOut, midi.MidiOutCount, midi.MidiOutCaps, midi.MidiOutValid, settings.MidiOutDev);
    FillMenu(frame.mnuDevMIDIIn, midi.MidiInCount, midi.MidiInCaps, midi.MidiInValid, settings.MidiInDev);
}

void ShowNewDevices(MidiState &midi)
{
    MidiDevices &devices = midi.app.ports.midi;
    frmMain &frame = midi.app.frame;
    const std::optional<MidiDeviceCounts> counts = devices.CountAgain();
    if (!counts || counts->outs <= 0) {
        return; // without an output no input is counted, as at the start
    }
    midi.MidiOutCount = std::min(counts->outs, kMaxMidiDevices);
    AddToMenu(devices, &MidiDevices::midiOutGetDevCapsA, frame.mnuDevMIDIOut, midi.MidiOutCount, midi.MidiOutCaps, midi.MidiOutValid);
    frame.mnuMIDIOut.enabled = true; // it may have been off since the start
    midi.NoMidiOut = false;
    midi.MidiInCount = std::min(counts->ins, kMaxMidiDevices);
    AddToMenu(devices, &MidiDevices::midiInGetDevCapsA, frame.mnuDevMIDIIn, midi.MidiInCount, midi.MidiInCaps, midi.MidiInValid);
    midi.NoMidiIn = midi.MidiInCount == 0;
}

void mnuDevMIDIOut_Click(MidiState &midi, int index)
{
    frmMain &frame = midi.app.frame;
    int &MidiOutDev = midi.app.settings.MidiOutDev;
    if (!HasEntry(frame.mnuDevMIDIOut, index)) {
        return;
    }
    if (MidiOutDev == kNoMidiDevice) {
        MidiOutDev = index;
    }
    if (index == MidiOutDev && frame.mnuDevMIDIOut[index].checked) {
        frame.mnuDevMIDIOut[index].checked = false;
        CloseMidiOut(midi);
        MidiOutDev = kNoMidiDevice;
        frame.mnuMIDIThru.enabled = false;
        return;
    }
    if (index != MidiOutDev) {
        Uncheck(frame.mnuDevMIDIOut, MidiOutDev);
        CloseMidiOut(midi); // even if the old device never opened
        MidiOutDev = index;
    }
    if (OpenMidiOut(midi) != MidiCode::kSuccess) {
        return; // the choice stays for the next run, without a check mark
    }
    frame.mnuDevMIDIOut[index].checked = true;
    if (!midi.MidiInOpen) {
        frame.mnuMIDIThru.checked = false;
    }
    frame.mnuMIDIThru.enabled = midi.MidiInOpen;
}

void mnuDevMIDIIn_Click(MidiState &midi, int index)
{
    frmMain &frame = midi.app.frame;
    int &MidiInDev = midi.app.settings.MidiInDev;
    if (!HasEntry(frame.mnuDevMIDIIn, index)) {
        return;
    }
    if (MidiInDev == kNoMidiDevice) {
        MidiInDev = index;
    }
    if (index != MidiInDev) {
        Uncheck(frame.mnuDevMIDIIn, MidiInDev);
        if (CloseMidiIn(midi) != MidiCode::kSuccess) {
            return;
        }
        MidiInDev = index;
    }
    if (frame.mnuDevMIDIIn[index].checked) {
        frame.mnuDevMIDIIn[index].checked = false;
        CloseMidiIn(midi);
        MidiInDev = kNoMidiDevice;
        frame.mnuMIDIThru.enabled = false;
        return;
    }
    if (OpenMidiIn(midi) != MidiCode::kSuccess) {
        frame.mnuMIDIThru.enabled = false;
        return;
    }
    frame.mnuDevMIDIIn[index].checked = true;
    if (midi.MidiOutOpen) {
        frame.mnuMIDIThru.enabled = true;
    }
}

void mnuMIDIThru_Click(MidiState &midi)
{
    MenuEntry &entry = midi.app.frame.mnuMIDIThru;
    const bool on = !entry.checked;
    entry.checked = on;
    int result = on ? ThruConnect(midi) : ThruDisconnect(midi);
    if (result == MidiCode::kSuccess) {
        result = on ? MidiInStartRun(midi) : MidiInStopRun(midi);
    }
    // A failure is told nowhere: the check mark shows what was asked for, ThruOn what the platform last accepted.
    if (result == MidiCode::kSuccess) {
        midi.app.settings.ThruOn = on;
    }
}

} // namespace velluto
