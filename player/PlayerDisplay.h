// What the player shows of its device: the caption, the buttons, the length and the position; and the test of the device for
// errors. Used by those who give the device its commands.
#pragma once

#include "player/frmMIDIPlayer.h"

#include <string_view>

namespace velluto {

void ShowPlayerCaption(frmMIDIPlayer &form, std::string_view path);
// The caption of a player without a file.
void ResetPlayerCaption(frmMIDIPlayer &form);
void ResetPositionLine(frmMIDIPlayer &form);
void ResetTimeDisplay(frmMIDIPlayer &form);
// By the last command written.
void UpdateTransportButtons(frmMIDIPlayer &form);
// Shows the device's own text for its error, if there is one. Returns the error.
int CheckDeviceError(frmMIDIPlayer &form);
// Reads TrackLength and shows it, and the device's position as a plain number.
void ShowTrack(frmMIDIPlayer &form);

} // namespace velluto
