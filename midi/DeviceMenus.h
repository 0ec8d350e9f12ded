// The menus of outputs, inputs and Thru.
#pragma once

#include "midi/MIDI.h"

namespace velluto {

// Names, visibility and check marks of mnuDevMIDIOut and mnuDevMIDIIn, at the load of the frame.
void FillDeviceMenus(MidiState &midi);
// Before a user sees the menus: devices that have come since get their entries. What is there already stays as it is.
void ShowNewDevices(MidiState &midi);
// The menu commands.
void mnuDevMIDIOut_Click(MidiState &midi, int index);
void mnuDevMIDIIn_Click(MidiState &midi, int index);
void mnuMIDIThru_Click(MidiState &midi);

} // namespace velluto
