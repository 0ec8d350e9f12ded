// The pointer on the keys: pressed, released, passing over a key or over what lies around the keys.
#pragma once

#include "keyboard/frmTastiera.h"

namespace velluto {

// key 0 to 60, any mouse button.
void Key_MouseDown(frmTastiera &form, int key);
void Key_MouseUp(frmTastiera &form, int key);
// y in twips below the upper edge of the key.
void Key_MouseMove(frmTastiera &form, int key, int y);
void Background_MouseMove(frmTastiera &form);

} // namespace velluto
