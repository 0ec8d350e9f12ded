// Captions of all list windows, so that a bank, a user slot and a file of any type read alike in the window list.
#pragma once

#include "app/Modulo1.h"

#include <string>

namespace velluto {

// The caption for a window's Tag; leaves its kind and slot in app.ViewKind and app.slot. Combinations that no window
// has give an empty text.
[[nodiscard]] std::string WindowTitle(Modulo1 &app, const WindowTag &tag);

} // namespace velluto
