// Notes of the keyboard: one on, one off, and what is held, frozen and shown. Used by the pointer's and the modes'
// routines; a note is a MIDI note number.
#pragma once

#include "keyboard/frmTastiera.h"

#include <string>

namespace velluto {

// The channel that all messages of the window go to, 0 to 15, as chosen now.
[[nodiscard]] int ChannelOf(const frmTastiera &form);
// "C/Do (60)".
[[nodiscard]] std::string NoteText(int note);

// Both also serve notes that no key on screen stands for.
void KeyNoteOn(frmTastiera &form, int note);
void KeyNoteOff(frmTastiera &form, int note);

// The key without its dot.
void PaintPlain(frmTastiera &form, int key);
// Takes the keys on screen out of HeldNotes, and their dots away.
void ResetVisibleKeys(frmTastiera &form);
[[nodiscard]] bool AnyNoteHeld(const frmTastiera &form);
// Only what is seen: all dots away, and the dots of held notes back.
void RepaintKeysUp(frmTastiera &form);
void RepaintHeldKeys(frmTastiera &form);
// The captions above the C keys, counted so that note 48 is C3.
void UpdateOctaveLabels(frmTastiera &form);

} // namespace velluto
