#include "midi/Survey.h"

#include "app/Catalogue.h"
#include "midi/MidiIn.h"
#include "midi/MidiOut.h"

#include <algorithm>

namespace velluto {

namespace {

void QueryOutputs(MidiState &midi)
{
    for (int number = 0; number < midi.MidiOutCount; ++number) {
        const auto at = static_cast<std::size_t>(number);
        midi.MidiResult = midi.app.ports.midi.midiOutGetDevCapsA(number, midi.MidiOutCaps.at(at));
        midi.MidiOutValid.at(at) = midi.MidiResult == MidiCode::kSuccess ? 1 : 0;
    }
}

void QueryInputs(MidiState &midi)
{
    for (int number = 0; number < midi.MidiInCount; ++number) {
        const auto at = static_cast<std::size_t>(number);
        midi.MidiResult = midi.app.ports.midi.midiInGetDevCapsA(number, midi.MidiInCaps.at(at));
        midi.MidiInValid.at(at) = midi.MidiResult == MidiCode::kSuccess ? 1 : 0;
    }
}

// False for kNoMidiDevice and for any other number that the table does not hold.
bool IsValid(const std::array<std::int16_t, kMidiTableSize> &table, int number)
{
    return number >= 0 && number < kMidiTableSize && table.at(static_cast<std::size_t>(number)) != 0;
}

bool ReopenSavedDevices(MidiState &midi)
{
    const Settings &settings = midi.app.settings;
    if (!IsValid(midi.MidiOutValid, settings.MidiOutDev) || OpenMidiOut(midi) != MidiCode::kSuccess) {
        return false;
    }
    return IsValid(midi.MidiInValid, settings.MidiInDev) && OpenMidiIn(midi) == MidiCode::kSuccess;
}

} // namespace

void SurveyMidiDevices(MidiState &midi, const std::function<void()> &loadFrame)
{
    Modulo1 &app = midi.app;
    midi.NoMidiOut = false;
    midi.MidiOutOpen = false;
    midi.SendArmed = true;

    app.ports.midi.Expect(app.settings.MidiOutDev, app.settings.MidiInDev);
    midi.MidiOutCount = std::min(app.ports.midi.midiOutGetNumDevs(), kMaxMidiDevices);
    if (midi.MidiOutCount <= 0) {
        app.messages.ShowMessage(MessageNo::OutputDeviceMissing, kProgramTitle, {});
        midi.NoMidiOut = true;
        midi.MidiOutOpen = false;
        Raise(loadFrame);
        app.frame.mnuMIDIOut.enabled = false;
        app.frame.mnuMIDIThru.enabled = false;
        return;
    }
    QueryOutputs(midi);

    midi.MidiInCount = std::min(app.ports.midi.midiInGetNumDevs(), kMaxMidiDevices);
    if (midi.MidiInCount <= 0) {
        app.messages.ShowMessage(MessageNo::InputDeviceMissingAtStart, kProgramTitle, {});
        midi.NoMidiIn = true;
        midi.MidiInOpen = false;
        Raise(loadFrame);
        app.frame.mnuMIDIThru.enabled = false;
        // The saved output stays closed here: the user has to pick it in the menu.
        return;
    }
    QueryInputs(midi);

    if (!ReopenSavedDevices(midi)) {
        app.settings.ThruOn = false;
        midi.ThruCheckedAtLoad = false;
        midi.ThruEnabledAtLoad = false;
    }
}

} // namespace velluto
