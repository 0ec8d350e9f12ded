// The player: its record, and the command that opens its window. What the window does at its events is put together here, above
// the routines that its controls call.
#pragma once

#include "player/frmMIDIPlayer.h"

#include <memory>
#include <string>

namespace velluto {

struct PlayerState : PlayerVariables {
    explicit PlayerState(Modulo1 &core) : app(core) {}

    Modulo1 &app;
    std::unique_ptr<frmMIDIPlayer> window; // while it is open
};

void mnuMidiPlayer_Click(PlayerState &player);
// Brings the player to the front and opens a MIDI file in it, from its folder.
void OpenMidiFile(PlayerState &player, const std::string &path);

} // namespace velluto
