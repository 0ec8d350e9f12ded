// The input and Thru. What comes in is written to a ring and shown nowhere.
#pragma once

#include "midi/MIDI.h"

namespace velluto {

// All of these return the platform's result code.
int OpenMidiIn(MidiState &midi);
int CloseMidiIn(MidiState &midi);
int ThruConnect(MidiState &midi);
int ThruDisconnect(MidiState &midi);
int MidiInStartRun(MidiState &midi);
int MidiInStopRun(MidiState &midi);

// Entered by a platform thread; instance is a MidiInputRing.
void MidiInProc(MidiHandle handle, std::uint32_t message, void *instance, std::uint32_t parameter1, std::uint32_t parameter2);

} // namespace velluto
