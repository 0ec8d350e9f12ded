// The section that is played: start and stop mark, their markers and the position on one scale, and the time display.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// The position as a number with its share of the file, and the line over the bar.
void ShowPosition(frmMIDIPlayer &form, std::int32_t position);
void EnableMarks(frmMIDIPlayer &form);
void DisableMarks(frmMIDIPlayer &form);
// Marks at both ends of the file that was just opened, with their labels and sliders.
void MarkWholeFile(frmMIDIPlayer &form);
// Both markers at the ends of the scale, as before any file.
void ResetMarkers(frmMIDIPlayer &form);
// A slider's new maximum; a value beyond it goes along.
void SetMaximum(ScrollBar &slider, std::int32_t maximum);
// All times for positions are forgotten.
void ClearTickMap(frmMIDIPlayer &form);
// The nearest position at or below the given one for which a time is known, 0 where there is none.
[[nodiscard]] std::int32_t KnownPositionBelow(const PlayerVariables &state, std::int32_t position);
// The time that was seen at the position; 0 where none was.
[[nodiscard]] int TicksAt(const PlayerVariables &state, std::int32_t position);
// A toggle is off again.
void SwitchOff(Button &toggle, int offColor);

void HScrollStart_Change(frmMIDIPlayer &form);
void HScrollStart_Scroll(frmMIDIPlayer &form);
void HScrollStop_Change(frmMIDIPlayer &form);
void HScrollStop_Scroll(frmMIDIPlayer &form);
void Timer1_Timer(frmMIDIPlayer &form);

} // namespace velluto
