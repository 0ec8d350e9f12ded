#include "midi/MidiIn.h"

#include "app/Catalogue.h"

namespace velluto {

namespace {

// Thru asks whether the input of the output's number is valid. The two numberings have nothing to do with each other,
// but where that input is missing Thru does nothing and reports success, and it stays so.
bool ThruAllowed(const MidiState &midi)
{
    const int number = midi.app.settings.MidiOutDev;
    return number >= 0 && number < kMidiTableSize && midi.MidiInValid.at(static_cast<std::size_t>(number)) != 0;
}

} // namespace

int OpenMidiIn(MidiState &midi)
{
    const MidiInCallback callback{MidiInProc, &midi.inputRing};
    const int result = midi.app.ports.midi.midiInOpen(midi.hMidiIn, midi.app.settings.MidiInDev, callback);
    midi.MidiInOpen = result == MidiCode::kSuccess;
    if (result == MidiCode::kAllocated) {
        midi.app.messages.ShowMessage(MessageNo::InputDeviceInUse, kProgramTitle, {});
    } else if (!midi.MidiInOpen) {
        ShowMidiError(midi, TextId::InputDeviceError, MidiSite::InOpen, result);
    }
    return result;
}

int CloseMidiIn(MidiState &midi)
{
    const int result = midi.app.ports.midi.midiInClose(midi.hMidiIn);
    midi.MidiInOpen = false;
    if (result != MidiCode::kSuccess) {
        ShowMidiError(midi, TextId::InputDeviceError, MidiSite::InClose, result);
    }
    return result;
}

void MidiInProc(MidiHandle /*handle*/, std::uint32_t message, void *instance, std::uint32_t parameter1, std::uint32_t parameter2)
{
    auto &ring = *static_cast<MidiInputRing *>(instance);
    ring.message[ring.index] = message;
    ring.parameter1[ring.index] = parameter1;
    ring.parameter2[ring.index] = parameter2;
    ring.index = ring.index + 1 < kInputRingSize ? ring.index + 1 : 0;
}

int ThruConnect(MidiState &midi)
{
    return ThruAllowed(midi) ? midi.app.ports.midi.midiConnect(midi.hMidiIn, midi.hMidiOut) : MidiCode::kSuccess;
}

int ThruDisconnect(MidiState &midi)
{
    return ThruAllowed(midi) ? midi.app.ports.midi.midiDisconnect(midi.hMidiIn, midi.hMidiOut) : MidiCode::kSuccess;
}

int MidiInStartRun(MidiState &midi)
{
    return midi.app.ports.midi.midiInStart(midi.hMidiIn);
}

int MidiInStopRun(MidiState &midi)
{
    return midi.app.ports.midi.midiInStop(midi.hMidiIn);
}

} // namespace velluto
