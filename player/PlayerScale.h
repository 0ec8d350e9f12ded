// The scale over the player's bar: where line and markers stand at position 0, and what of the bar's width neither travels.
// Twips. Their tips, the line and the middle of a slider's handle stand above each other at each position.
#pragma once

namespace velluto {

inline constexpr int kLineAtStart = 30;    // inside the bar
inline constexpr int kMarkerAtStart = 100; // from the left edge of the frame
inline constexpr int kUntravelled = 135;

} // namespace velluto
