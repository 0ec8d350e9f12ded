// What follows when the device has finished a command: nothing, the next file, the marked section again.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// code: a NotifyCode.
void MMControl1_Done(frmMIDIPlayer &form, int code);

} // namespace velluto
