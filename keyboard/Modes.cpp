#include "keyboard/Modes.h"

#include "keyboard/Controllers.h"
#include "keyboard/Notes.h"
#include "midi/MidiOut.h"

namespace velluto {

namespace {

// A write to a box whose click means nothing.
void WriteGuarded(frmTastiera &form, CheckBox &box, bool value)
{
    form.notes.ClickGuard = true;
    box.value = value;
}

} // namespace

void CheckHoldNote_Click(frmTastiera &form)
{
    NoteState &notes = form.notes;
    if (notes.ChordArmed) {
        notes.ClickGuard = false;
        CommAllNoteOff_Click(form);
        return;
    }
    if (notes.ClickGuard) {
        notes.ClickGuard = false;
        return;
    }
    if (!form.CheckClickKey.value) {
        WriteGuarded(form, form.CheckClickKey, false);
        ResetVisibleKeys(form);
        SendAllNotesOff(form.midi, ChannelOf(form));
        if (!form.CheckHoldNote.value) {
            WriteGuarded(form, form.CheckHoldNote, true);
        } else {
            notes.ClickGuard = false;
        }
        return;
    }
    form.CommHoldChord.enabled = form.CheckHoldNote.value.Get();
    CommAllNoteOff_Click(form);
}

void CheckClickKey_Click(frmTastiera &form)
{
    NoteState &notes = form.notes;
    if (notes.ChordArmed) {
        WriteGuarded(form, form.CheckHoldNote, false);
        CommAllNoteOff_Click(form);
        if (form.CheckClickKey.value) {
            WriteGuarded(form, form.CheckClickKey, false);
        }
        return;
    }
    if (notes.ClickGuard) {
        notes.ClickGuard = false;
        return;
    }
    if (!form.CheckHoldNote.value) {
        form.CheckHoldNote.enabled = form.CheckClickKey.value.Get();
        return;
    }
    WriteGuarded(form, form.CheckHoldNote, false);
    CommAllNoteOff_Click(form);
    if (form.CheckClickKey.value) {
        WriteGuarded(form, form.CheckClickKey, false);
    } else {
        form.CheckHoldNote.enabled = false;
        form.CommHoldChord.enabled = false;
    }
}

void CommHoldChord_Click(frmTastiera &form)
{
    if (!AnyNoteHeld(form)) {
        return;
    }
    form.notes.ChordArmed = true;
    form.CommHoldChord.enabled = false;
    form.notes.ChordNotes = form.notes.HeldNotes;
}

void CommAllNoteOff_Click(frmTastiera &form)
{
    SendAllNotesOff(form.midi, ChannelOf(form));
    ResetVisibleKeys(form);
    form.notes.CurrentNote = kNoNote;
    form.notes.ChordArmed = false;
    form.CommHoldChord.enabled = form.CheckClickKey.value && form.CheckHoldNote.value;
    form.Text1.text = "";
}

void HScroll1_Change(frmTastiera &form)
{
    form.notes.BaseNote = form.HScroll1.value * kNotesPerOctave + kLowestNote;
    UpdateOctaveLabels(form);
    ShowSplitPoint(form);
    if (AnyNoteHeld(form)) {
        RepaintKeysUp(form);
        RepaintHeldKeys(form);
    }
}

} // namespace velluto
