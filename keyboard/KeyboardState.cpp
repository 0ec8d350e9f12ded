#include "keyboard/KeyboardState.h"

#include "keyboard/frmTastiera.h"

namespace velluto {

KeyboardState::KeyboardState(MidiState &link) : midi(link) {}

KeyboardState::~KeyboardState() = default;

void mnuTastiera_Click(KeyboardState &keyboard)
{
    ShowChild<frmTastiera>(keyboard.window, keyboard);
}

} // namespace velluto
