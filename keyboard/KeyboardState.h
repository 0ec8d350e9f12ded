// The on-screen keyboard's own record: the window while it is open, and the command that opens it. What outlives the
// window is the KeyboardRecord of the settings.
#pragma once

#include "midi/MIDI.h"

#include <memory>

namespace velluto {

class frmTastiera;

struct KeyboardState {
    explicit KeyboardState(MidiState &link);
    ~KeyboardState();
    KeyboardState(const KeyboardState &) = delete;
    KeyboardState &operator=(const KeyboardState &) = delete;

    MidiState &midi;
    std::unique_ptr<frmTastiera> window;
};

void mnuTastiera_Click(KeyboardState &keyboard);

} // namespace velluto
