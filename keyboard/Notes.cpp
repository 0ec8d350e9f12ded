#include "keyboard/Notes.h"

#include "midi/MidiOut.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

constexpr int kVelocityOn = 2; // the sliders that give the velocities
constexpr int kVelocityOff = 3;
constexpr int kLastOctaveLabel = 5;

constexpr std::array<std::string_view, kNotesPerOctave> kNames{"C/Do",   "C#/Do#", "D/Re",    "D#/Re#", "E/Mi",   "F/Fa",
                                                               "F#/Fa#", "G/Sol",  "G#/Sol#", "A/La",   "A#/La#", "B/Si"};

} // namespace

int ChannelOf(const frmTastiera &form)
{
    return form.Combo1.ListIndex;
}

std::string NoteText(int note)
{
    return std::string(kNames.at(static_cast<std::size_t>(note % kNotesPerOctave))) + " (" + std::to_string(note) + ")";
}

void KeyNoteOn(frmTastiera &form, int note)
{
    form.notes.KeyIndex = note - form.notes.BaseNote;
    form.notes.CurrentNote = note;
    if (IsOnScreen(form.notes.KeyIndex)) {
        form.Key[form.notes.KeyIndex].dot = true;
    }
    SendNoteOn(form.midi, ChannelOf(form), form.notes.CurrentNote, form.VScroll[kVelocityOn].value);
    form.Text1.text = NoteText(note);
}

void KeyNoteOff(frmTastiera &form, int note)
{
    form.notes.KeyIndex = note - form.notes.BaseNote;
    if (IsOnScreen(form.notes.KeyIndex)) {
        PaintPlain(form, form.notes.KeyIndex);
    }
    form.notes.CurrentNote = kNoNote;
    SendNoteOff(form.midi, ChannelOf(form), note, form.VScroll[kVelocityOff].value);
    form.Text1.text = "";
}

void PaintPlain(frmTastiera &form, int key)
{
    form.Key[key].color = PlainColor(key);
    form.Key[key].dot = false;
}

void ResetVisibleKeys(frmTastiera &form)
{
    for (int key = 0; key < kKeyCount; ++key) {
        form.notes.HeldNotes.Set(form.notes.BaseNote + key, false);
        PaintPlain(form, key);
    }
}

bool AnyNoteHeld(const frmTastiera &form)
{
    return std::ranges::any_of(form.notes.HeldNotes.Bytes(), [](unsigned char flag) { return flag != 0; });
}

void RepaintKeysUp(frmTastiera &form)
{
    for (int key = 0; key < kKeyCount; ++key) {
        PaintPlain(form, key);
    }
}

void RepaintHeldKeys(frmTastiera &form)
{
    for (int key = 0; key < kKeyCount; ++key) {
        if (form.notes.HeldNotes[form.notes.BaseNote + key]) {
            form.Key[key].dot = true;
        }
    }
}

void UpdateOctaveLabels(frmTastiera &form)
{
    // Label 0 keeps the caption of the design in every octave.
    for (int octave = 1; octave <= kLastOctaveLabel; ++octave) {
        form.Label1[octave].caption = "C" + std::to_string(octave + form.HScroll1.value);
    }
    for (PianoKey &key : form.Key) {
        key.accessibleName = NoteText(form.notes.BaseNote + key.index());
    }
}

} // namespace velluto
