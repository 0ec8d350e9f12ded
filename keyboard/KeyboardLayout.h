// Where everything stands in the keyboard's window.
#pragma once

#include "keyboard/frmTastiera.h"

namespace velluto {

// Gives every control its place. Returns the inner size of the window, twips.
Size LayOutKeyboard(frmTastiera &form);

} // namespace velluto
