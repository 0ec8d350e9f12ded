#include "midi/MidiOut.h"

#include "app/Catalogue.h"
#include "midi/Monitor.h"

#include <algorithm>

namespace velluto {

namespace {

enum class Echo { Always, OnFailure };

// The monitor shows a message that fails before the box does.
void Send(MidiState &midi, Echo echo)
{
    if (!midi.SendArmed || !midi.MidiOutOpen) {
        return;
    }
    midi.MidiResult = midi.app.ports.midi.midiOutShortMsg(midi.hMidiOut, midi.ShortMsg);
    const bool failed = midi.MidiResult != MidiCode::kSuccess;
    if (failed || echo == Echo::Always) {
        MonitorShow(midi, midi.ShortMsg.bytes);
    }
    if (failed) {
        // Disarmed before the box is up: whatever happens behind an open box finds the path closed, and one box is all.
        midi.SendArmed = false;
        ShowMidiError(midi, TextId::OutputDeviceError, MidiSite::ShortMsg, midi.MidiResult);
    }
}

void SendNote(MidiState &midi, const ShortMessage &note)
{
    if (!midi.MidiOutOpen) {
        return;
    }
    if (!midi.SendArmed) {
        MonitorReport(midi, {});
    }
    midi.ShortMsg = note;
    SendShortMsg(midi);
}

} // namespace

void SendShortMsg(MidiState &midi)
{
    Send(midi, Echo::Always);
}

void SendGroup(MidiState &midi, const std::array<ShortMessage, 3> &messages)
{
    std::array<std::uint8_t, sizeof(messages)> bytes{};
    auto *end = bytes.begin();
    for (const ShortMessage &message : messages) {
        midi.ShortMsg = message;
        Send(midi, Echo::OnFailure);
        end = std::ranges::copy(message.View(), end).out;
    }
    MonitorShow(midi, {bytes.begin(), end});
}

void SendNoteOn(MidiState &midi, int channel, int note, int velocity)
{
    SendNote(midi, {MidiStatus::kNoteOn, channel, note, velocity});
}

void SendNoteOff(MidiState &midi, int channel, int note, int velocity)
{
    SendNote(midi, {MidiStatus::kNoteOff, channel, note, velocity});
}

void SendAllNotesOff(MidiState &midi, int channel)
{
    const ShortMessage message{MidiStatus::kControlChange, channel, MidiController::kAllNotesOff};
    midi.ShortMsg = message;
    MonitorReport(midi, {});
    SendShortMsg(midi);
    MonitorReport(midi, std::span(message.bytes).first(2)); // on purpose without its value, below the whole message
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
