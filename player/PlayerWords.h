// What the player's controls say to a pointer that rests on them and to a screen reader, in both languages.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// Tool tips of the pictured buttons, names of the controls that have no caption.
void NameControls(frmMIDIPlayer &form);

} // namespace velluto
