// The box that every failed open, close and send shows. The site digit tells from the box alone which call failed.
#pragma once

#include "midi/MIDI.h"

namespace velluto {

enum class MidiSite { ShortMsg = 4, InOpen = 5, OutOpen = 6, InClose = 7, OutClose = 8 };

// Composes midi.ErrorText from the catalogue's text, the site and the code (at least two digits) and shows it.
void ShowMidiError(MidiState &midi, int textId, MidiSite site, int code);

} // namespace velluto
