#include "keyboard/frmTastiera.h"

#include <string>

namespace velluto {

namespace {

constexpr int kHighestShift = 3; // octaves
constexpr int kHighestSplit = 96;
constexpr int kLowestSplit = 36;

} // namespace

// What the form looks like before any handler has run, but for its sliders.
frmTastiera::frmTastiera(MidiState &link) : ChildForm("frmTastiera", kNoNumber, link.app, &link.app.frame.mnuTastiera), midi(link)
{
    for (PianoKey &key : Key) {
        key.black = IsBlackKey(key.index());
        key.color = PlainColor(key.index());
    }
    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        Combo1.rows.push_back((channel < 10 ? "  " : " ") + std::to_string(channel));
    }
    HScroll1.max = kHighestShift;
    HScroll1.largeChange = 1;
    VScroll1.vertical = true;
    VScroll1.min = kHighestSplit;
    VScroll1.max = kLowestSplit;
    VScroll1.value = kLowestSplit;
    Text1.readOnly = true;
    Text3.readOnly = true;
    Text1.font = kPlainFont;
    Text3.font = kPlainFont;
    Label1[0].caption = "C3";
    Label1[6].caption = "MIDI Channel";
    Label1[7].caption = "Note (Number)";
    Label1[8].caption = "Split Point";
    CheckClickKey.caption = "Click Key";
    CheckHoldNote.caption = "Hold Note";
    CommHoldChord.caption = "Hold Chord";
    CommAllNoteOff.caption = "All Notes Off";
    CommArrPlay.caption = "&ARR PLAY";
    CommSongPlay.caption = "&SONG PLAY";
    for (Control *ruling : std::initializer_list<Control *>{&Combo1, &HScroll1, &CheckClickKey}) {
        ruling->rulesKeys = true;
    }
    for (Control *hidden : std::initializer_list<Control *>{&Picture2, &VScroll1, &Text3, &Label1[8], &CommArrPlay, &CommSongPlay}) {
        hidden->visible = false;
    }
    Combo1.accessibleName = Label1[6].caption;
    Text1.accessibleName = Label1[7].caption;
    for (Control *split : std::initializer_list<Control *>{&Picture2, &VScroll1, &Text3}) {
        split->accessibleName = Label1[8].caption;
    }
}

} // namespace velluto
