// The seven buttons of the player and its two toggles: what they do in each state of the device. What follows the end of a
// file is in EndOfFile.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// Of MCIPuls, left to right.
namespace TransportButton {
inline constexpr int Previous = 0;
inline constexpr int Next = 1;
inline constexpr int Play = 2;
inline constexpr int Pause = 3;
inline constexpr int Back = 4;
inline constexpr int Forward = 5;
inline constexpr int Stop = 6;
} // namespace TransportButton

void MCIPuls_Click(frmMIDIPlayer &form, int button);
// The switch to another file that the previous and next buttons ask for, outside their click.
void TimerComandi_Timer(frmMIDIPlayer &form);
void CommRep_Click(frmMIDIPlayer &form);
void CommPlayAll_Click(frmMIDIPlayer &form);

// What every opening of a file shows: its length, the position, marks at both ends.
void ShowOpenedFile(frmMIDIPlayer &form);
// While a file plays the compilation keeps its rows, and in some cases gets no new ones.
void LockRemoving(frmMIDIPlayer &form);
void LockEditing(frmMIDIPlayer &form);
[[nodiscard]] bool IsOn(const Button &toggle);

} // namespace velluto
