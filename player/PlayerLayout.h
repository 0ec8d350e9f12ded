// Where everything of the player's window stands. Twips. The width is one of two; what the window is higher than it has to be
// goes to the lists.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// The scale over the bar: where line and markers stand at position 0, and what of the bar's width neither travels. Their tips, the line
// and the middle of a slider's handle stand above each other at each position.
inline constexpr int kLineAtStart = 30;    // inside the bar
inline constexpr int kMarkerAtStart = 100; // from the left edge of the frame
inline constexpr int kUntravelled = 135;

// The inside of the window in its narrow or its wide form, at its least height.
[[nodiscard]] Size PlayerSize(bool panelOpen);
void LayOutPlayer(frmMIDIPlayer &form, Size inside);
// The narrow or the wide form, by PlayerPanelOpen; the placement takes the width over.
void TakeFormWidth(frmMIDIPlayer &form);

} // namespace velluto
