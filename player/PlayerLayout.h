// Where everything of the player's window stands. Twips. The width is one of two; what the window is higher than it has to be
// goes to the lists.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// The inside of the window in its narrow or its wide form, at its least height.
[[nodiscard]] Size PlayerSize(bool panelOpen);
void LayOutPlayer(frmMIDIPlayer &form, Size inside);
// The narrow or the wide form, by PlayerPanelOpen; the placement takes the width over.
void TakeFormWidth(frmMIDIPlayer &form);

} // namespace velluto
