// The frame at work: its load, its commands, its end. The one place that knows every room.
#pragma once

#include "program/Velluto.h"

namespace velluto {

// Attaches the handlers of the frame and its menu to the program's rooms. Called once, by the record's constructor.
void AttachHandlers(Velluto &program);
// Loads the frame if it is not loaded yet.
void LoadFrame(Velluto &program);

} // namespace velluto
