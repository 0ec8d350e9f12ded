#include "keyboard/Pointer.h"

#include "keyboard/Notes.h"
#include "midi/MidiOut.h"

namespace velluto {

namespace {

constexpr int kLeavingVelocity = 64; // of the note off at the lower end of a key, whatever the slider says

// The frozen chord, moved so that its lowest note lands on the pressed note. What would fall outside the span is left
// out for this press only.
void PressChord(frmTastiera &form, int pressed)
{
    NoteState &notes = form.notes;
    SendAllNotesOff(form.midi, ChannelOf(form));
    int lowest = kLowestNote;
    while (lowest < kHighestNote && !notes.ChordNotes[lowest]) {
        ++lowest;
    }
    notes.HeldNotes.Clear();
    ResetVisibleKeys(form);
    const int offset = pressed - lowest;
    for (int note = kLowestNote; note <= kHighestNote; ++note) {
        if (notes.ChordNotes[note]) {
            notes.HeldNotes.Set(note + offset, true);
        }
    }
    for (int note = kLowestNote; note <= kHighestNote; ++note) {
        if (notes.HeldNotes[note]) {
            KeyNoteOn(form, note);
        }
    }
}

} // namespace

void Key_MouseDown(frmTastiera &form, int key)
{
    NoteState &notes = form.notes;
    const int note = notes.BaseNote + key;
    form.midi.MonitorEnabled = true;
    if (notes.ChordArmed) {
        PressChord(form, note);
        return;
    }
    if (!form.CheckClickKey.value) {
        return;
    }
    if (form.CheckHoldNote.value && notes.HeldNotes[note]) {
        notes.HeldNotes.Set(note, false);
        KeyNoteOff(form, note);
        return;
    }
    notes.CurrentNote = note;
    KeyNoteOn(form, notes.CurrentNote);
    if (form.CheckHoldNote.value) {
        notes.HeldNotes.Set(notes.CurrentNote, true);
    }
}

void Key_MouseUp(frmTastiera &form, int key)
{
    if (!form.notes.ChordArmed && form.CheckClickKey.value && !form.CheckHoldNote.value) {
        KeyNoteOff(form, form.notes.BaseNote + key);
    }
}

void Key_MouseMove(frmTastiera &form, int key, int y)
{
    if (form.CheckClickKey.value) {
        return;
    }
    NoteState &notes = form.notes;
    const int note = notes.BaseNote + key;
    if (notes.CurrentNote == note) {
        if (y >= (IsBlackKey(key) ? kBlackKeyEdge : kWhiteKeyEdge)) {
            PaintPlain(form, key);
            notes.CurrentNote = kNoNote;
            SendNoteOff(form.midi, ChannelOf(form), note, kLeavingVelocity);
        }
        return;
    }
    // No look at y on purpose: a pointer that goes on moving in the strip sounds the key at every other move.
    if (notes.CurrentNote < kNoNote) {
        KeyNoteOff(form, notes.CurrentNote);
    }
    KeyNoteOn(form, note);
}

void Background_MouseMove(frmTastiera &form)
{
    if (!form.CheckHoldNote.value && !form.CheckClickKey.value && form.notes.CurrentNote < kNoNote) {
        KeyNoteOff(form, form.notes.CurrentNote);
    }
}

} // namespace velluto
