#include "app/Catalogue.h"
#include "midi/ErrorText.h"
#include "midi/MIDI.h"
#include "midi/Monitor.h"

#include <array>

namespace velluto {

namespace {

constexpr std::uint32_t kNoteOff = 128;
constexpr std::uint32_t kNoteOn = 144;
constexpr std::uint32_t kControlChange = 176;
constexpr std::uint32_t kAllNotesOff = 123; // controller number
constexpr std::uint32_t kSecondByte = 256;
constexpr std::uint32_t kThirdByte = 65536;

char ByteOf(std::uint32_t value)
{
    return static_cast<char>(value & 255U);
}

void SendNote(MidiState &midi, std::uint32_t status, int channel, int note, int velocity)
{
    if (!midi.MidiOutOpen) {
        return;
    }
    if (midi.MonitorEnabled) {
        MonitorReport(midi, {});
    }
    midi.ShortMsg = static_cast<std::uint32_t>(velocity) * kThirdByte | static_cast<std::uint32_t>(note) * kSecondByte |
                    static_cast<std::uint32_t>(channel) | status;
    SendShortMsg(midi);
}

} // namespace

void SendShortMsg(MidiState &midi)
{
    if (!midi.SendArmed || !midi.MidiOutOpen) {
        return;
    }
    // Reported before it is sent, so that a message that fails is seen too.
    if (midi.MonitorEnabled) {
        ReportShortMsg(midi);
    }
    midi.MidiResult = midi.app.ports.midi.midiOutShortMsg(midi.hMidiOut, midi.ShortMsg);
    if (midi.MidiResult != MidiCode::kSuccess) {
        // Disarmed before the box is up: whatever happens behind an open box finds the path closed, and one box is all.
        midi.SendArmed = false;
        ShowMidiError(midi, TextId::OutputDeviceError, MidiSite::ShortMsg, midi.MidiResult);
    }
}

void SendNoteOn(MidiState &midi, int channel, int note, int velocity)
{
    SendNote(midi, kNoteOn, channel, note, velocity);
}

void SendNoteOff(MidiState &midi, int channel, int note, int velocity)
{
    SendNote(midi, kNoteOff, channel, note, velocity);
}

void SendAllNotesOff(MidiState &midi, int channel)
{
    const std::uint32_t status = static_cast<std::uint32_t>(channel) | kControlChange;
    midi.ShortMsg = status | kAllNotesOff * kSecondByte;
    if (midi.MonitorEnabled) {
        MonitorReport(midi, {});
    }
    SendShortMsg(midi);
    const std::array<char, 2> bytes{ByteOf(status), ByteOf(kAllNotesOff)};
    MonitorReport(midi, {bytes.data(), bytes.size()});
}

int OpenMidiOut(MidiState &midi)
{
    const int result = midi.app.ports.midi.midiOutOpen(midi.hMidiOut, midi.app.settings.MidiOutDev);
    midi.MidiOutOpen = result == MidiCode::kSuccess;
    if (midi.MidiOutOpen) {
        midi.SendArmed = true;
    } else if (result == MidiCode::kAllocated) {
        midi.app.messages.ShowMessage(MessageNo::OutputDeviceInUse, kProgramTitle, {});
    } else {
        ShowMidiError(midi, TextId::OutputDeviceError, MidiSite::OutOpen, result);
    }
    return result;
}

int CloseMidiOut(MidiState &midi)
{
    const int result = midi.app.ports.midi.midiOutClose(midi.hMidiOut);
    midi.MidiOutOpen = false;
    // The kept result decides on purpose, not the one of this close: a close after a failed send or query is told, a
    // failing close after clean sends is not.
    if (midi.MidiResult != MidiCode::kSuccess) {
        ShowMidiError(midi, TextId::OutputDeviceError, MidiSite::OutClose, result);
    }
    return result;
}

} // namespace velluto
