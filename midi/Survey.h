// The look for the machine's MIDI devices at the start. Used by StartUp.
#pragma once

#include "midi/MIDI.h"

#include <functional>

namespace velluto {

// Takes stock of the devices and reopens the saved ones. Called once, before the frame is shown; where it has to
// disable a menu entry it calls loadFrame first.
void SurveyMidiDevices(MidiState &midi, const std::function<void()> &loadFrame);

} // namespace velluto
