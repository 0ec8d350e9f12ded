// The playing modes. Glide, Press and Latch are what the two check boxes say; a frozen chord makes the fourth. The boxes
// are their only store, and a write to one raises its click inside the write: ClickGuard swallows the program's own.
#pragma once

#include "keyboard/frmTastiera.h"

namespace velluto {

void CheckHoldNote_Click(frmTastiera &form);
void CheckClickKey_Click(frmTastiera &form);
// Freezes the latched notes, where there are any.
void CommHoldChord_Click(frmTastiera &form);
// Silences the channel and clears what is held on screen. Notes held off screen keep their flags on purpose: they count
// for AnyNoteHeld and for the next chord.
void CommAllNoteOff_Click(frmTastiera &form);
// The octave shift. Sounding notes are not touched.
void HScroll1_Change(frmTastiera &form);

} // namespace velluto
