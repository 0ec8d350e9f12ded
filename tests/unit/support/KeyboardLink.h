// The keyboard's window over stand-ins: one open output, the settings of a first run, English. Messages are told as
// they leave.
#pragma once

#include "keyboard/KeyboardWindow.h"
#include "keyboard/Notes.h"
#include "unit/support/MidiLink.h"
#include "unit/support/MidiMessages.h"
#include "view/Gestures.h"

namespace velluto::test {

struct KeyboardLink : MidiLink {
    KeyboardState keyboard{midi};
    std::array<std::uint8_t, 16> &record = app.settings.KeyboardRecord;
    WindowPlacement &entry = app.settings.PlacementTable[7];

    KeyboardLink() { OpenOneOut(); }

    // What opening sends is forgotten.
    frmTastiera &Open()
    {
        mnuTastiera_Click(keyboard);
        devices.sent.clear();
        return *keyboard.window;
    }
    frmTastiera &Form() { return *keyboard.window; }
    void Close()
    {
        app.children.Unload(*keyboard.window);
        app.children.Sweep();
    }
    frmTastiera &OpenGlide()
    {
        record[1] = 0;
        return Open();
    }
    frmTastiera &OpenLatch()
    {
        record[2] = 1;
        return Open();
    }
    void Down(int key) { Form().Key[key].MouseDown(MouseButton::Left); }
    void Up(int key) { Form().Key[key].MouseUp(MouseButton::Left); }
    void Move(int key, int y = 0) { Form().Key[key].MouseMove(y); }
    void Click(int key)
    {
        Down(key);
        Up(key);
    }
    // As a person: a disabled control stays as it is.
    bool Push(Control &control) { return Press(control); }

    // What was sent since the last call.
    Sent Taken()
    {
        Sent taken;
        taken.swap(devices.sent);
        return taken;
    }
    // Keys with a dot.
    std::vector<int> Dots()
    {
        std::vector<int> dots;
        for (const PianoKey &key : Form().Key) {
            if (key.dot) {
                dots.push_back(key.index());
            }
        }
        return dots;
    }
    [[nodiscard]] static std::vector<int> NotesOf(const NoteFlags &flags)
    {
        std::vector<int> notes;
        for (int note = 0; note < 200; ++note) {
            if (flags[note]) {
                notes.push_back(note);
            }
        }
        return notes;
    }
    [[nodiscard]] std::vector<int> Held() { return NotesOf(Form().notes.HeldNotes); }
    [[nodiscard]] std::vector<int> Chord() { return NotesOf(Form().notes.ChordNotes); }
};

using Ints = std::vector<int>;

} // namespace velluto::test
