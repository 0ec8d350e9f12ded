// What the windows of this room do alike: what their placement entry says of them, and how they go.
#pragma once

#include "app/Modulo1.h"

namespace velluto {

// Stores place, size and State of a window that was resized. Maximised it keeps the State that it had.
void StoreResized(WindowPlacement &entry, const Form &form);

// A window's end: stores its place and lets its command be chosen again. The State stays where the frame closes with it.
void LeaveFrame(Modulo1 &app, WindowPlacement &entry, const Form &form, MenuEntry &command);

} // namespace velluto
