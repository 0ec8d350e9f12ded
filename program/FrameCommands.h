// The frame at work: its load, its commands, its end. The one place that knows every room: it makes the record of them and
// attaches the handlers of the frame and its menu.
#pragma once

#include "program/Velluto.h"

namespace velluto {

// Loads the frame if it is not loaded yet.
void LoadFrame(Velluto &program);

} // namespace velluto
