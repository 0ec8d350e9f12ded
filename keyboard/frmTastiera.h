// The on-screen keyboard: 61 keys for the pointer, their modes, and eleven sliders for velocities and controllers. The
// form declares its controls and carries their events to the routines of this room.
#pragma once

#include "app/ChildForm.h"
#include "keyboard/KeyModel.h"
#include "keyboard/KeyboardState.h"
#include "view/ControlArray.h"

namespace velluto {

inline constexpr int kNoNote = 200; // in CurrentNote; whoever asks compares with less than this
inline constexpr int kSliderCount = 11;

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
    explicit frmTastiera(KeyboardState &keyboard);
    // The window has a count of its own: it goes out of it when it is asked, and comes back where it stays.
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_MouseMove() override;

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
    ControlArray<Label, 0, 14> Label2{*this, "Label2"};           // titles; R, L and C of the pan axis
    ControlArray<Label, 0, kSliderCount> Label3{*this, "Label3"}; // present values
    ControlArray<Label, 0, kSliderCount> Label4{*this, "Label4"}; // top marks
    ControlArray<Label, 0, kSliderCount> Label5{*this, "Label5"}; // bottom marks
    Picture Picture2{*this, "Picture2"};                          // holds the split group, which nothing shows
    ScrollBar VScroll1{*this, "VScroll1"};
    TextBox Text3{*this, "Text3"};
    Button CommArrPlay{*this, "CommArrPlay"}; // hidden and without an action, as is the next
    Button CommSongPlay{*this, "CommSongPlay"};
    Button CommClose{*this, "CommClose"};

private:
    bool LoadWindow() override;
    void UnloadWindow() override;
    void Resized() override;
    void ConnectKeys();
    void ConnectControls();
    void ConnectSliders();
    void TakePlace();
    void TakeLanguage();
    void TakeRecord();

    WindowPlacement &entry_;
    Size natural_; // outer size
    bool countedIn_ = false;
};

} // namespace velluto
