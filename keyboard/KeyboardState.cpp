#include "keyboard/KeyboardState.h"

#include "keyboard/frmTastiera.h"

namespace velluto {

KeyboardState::KeyboardState(MidiState &link) : midi(link) {}

KeyboardState::~KeyboardState() = default;

void mnuTastiera_Click(KeyboardState &keyboard)
{
    if (keyboard.window == nullptr) {
        keyboard.window = std::make_unique<frmTastiera>(keyboard);
    }
    keyboard.midi.app.children.Show(*keyboard.window);
}

} // namespace velluto
