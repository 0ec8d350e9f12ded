// The commands that the menus show with their captions but that the program does not carry out yet.
#pragma once

#include "app/frmMain.h"

namespace velluto {

// Disables them, whatever their state was. The last step wherever the state of menu entries is worked out.
void WithdrawCommandsNotOffered(frmMain &frame);

} // namespace velluto
