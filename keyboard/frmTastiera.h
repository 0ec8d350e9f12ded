// The on-screen keyboard as a record: 61 keys for the pointer, their modes, and eleven sliders for velocities and controllers. The
// routines of the room act on it; KeyboardWindow makes it, attaches them and answers its events.
#pragma once

#include "app/ChildForm.h"
#include "keyboard/KeyModel.h"
#include "midi/MIDI.h"
#include "view/ControlArray.h"

namespace velluto {

inline constexpr int kNoNote = 200; // in CurrentNote; whoever asks compares with less than this
inline constexpr int kSliderCount = 11;
// Of Label2, behind the titles of the sliders: the ends and the middle of the pan.
inline constexpr int kPanRight = 11;
inline constexpr int kPanLeft = 12;
inline constexpr int kPanCentre = 13;

// What the window knows about its notes. It is created with the window and goes with it.
struct NoteState {
    int BaseNote = kLowestNote; // the note of key 0: 12, 24, 36 or 48
    int KeyIndex = 0;           // of the last note worked on; 0 to 60 is on screen
    int CurrentNote = kNoNote;  // the note that the pointer is sounding
    NoteFlags HeldNotes;        // latched and sounding
    NoteFlags ChordNotes;       // the frozen chord
    bool ChordArmed = false;    // a chord is frozen
    bool ClickGuard = false;    // the next click of a check box is the program's own
};

class frmTastiera : public ChildForm {
public:
    explicit frmTastiera(MidiState &link);

    MidiState &midi;
    NoteState notes;

    Frame Frame1{*this, "Frame1"};
    ControlArray<PianoKey, 0, kKeyCount> Key{*this, "Key"};
    ControlArray<Label, 0, 9> Label1{*this, "Label1"}; // octaves 0 to 5, MIDI Channel, Note (Number), Split Point
    ComboBox Combo1{*this, "Combo1"};
    Label LabelOctave{*this, "LabelOctave"};
    ScrollBar HScroll1{*this, "HScroll1"};
    CheckBox CheckClickKey{*this, "CheckClickKey"};
    CheckBox CheckHoldNote{*this, "CheckHoldNote"};
    Button CommHoldChord{*this, "CommHoldChord"};
    Button CommAllNoteOff{*this, "CommAllNoteOff"};
    TextBox Text1{*this, "Text1"};
    ControlArray<ScrollBar, 0, kSliderCount> VScroll{*this, "VScroll"};
    ControlArray<Label, 0, 14> Label2{*this, "Label2"};           // titles, and those of the pan axis
    ControlArray<Label, 0, kSliderCount> Label3{*this, "Label3"}; // present values
    ControlArray<Label, 0, kSliderCount> Label4{*this, "Label4"}; // top marks
    ControlArray<Label, 0, kSliderCount> Label5{*this, "Label5"}; // bottom marks
    Picture Picture2{*this, "Picture2"};                          // holds the split group, which nothing shows
    ScrollBar VScroll1{*this, "VScroll1"};
    TextBox Text3{*this, "Text3"};
    Button CommArrPlay{*this, "CommArrPlay"}; // hidden and without an action, as is the next
    Button CommSongPlay{*this, "CommSongPlay"};
    Button CommClose{*this, "CommClose"};
};

} // namespace velluto
