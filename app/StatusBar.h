// The status bar of the frame: the program's name at the left, the date and the time at the right. Used by the
// frame's load, its resize and its clock.
#pragma once

#include "app/Modulo1.h"

namespace velluto {

// Gives the labels their texts, and measures the natural width of LabelNomeAppl.
void SetUpStatusBar(Modulo1 &app);
// Places the labels for the frame's present width.
void LayOutStatusBar(Modulo1 &app);
// Brings date and time up to date.
void TimerOrologio_Timer(Modulo1 &app);

} // namespace velluto
