// The on-screen keyboard: its record, and the command that opens its window. What the window does at its events is put together
// here, above the routines that its controls call. What outlives the window is the KeyboardRecord of the settings.
#pragma once

#include "keyboard/frmTastiera.h"

#include <memory>

namespace velluto {

struct KeyboardState {
    explicit KeyboardState(MidiState &link) : midi(link) {}

    MidiState &midi;
    std::unique_ptr<frmTastiera> window; // while it is open
};

void mnuTastiera_Click(KeyboardState &keyboard);

} // namespace velluto
