#include "keyboard/frmTastiera.h"

#include "app/Catalogue.h"
#include "app/StoredPlace.h"
#include "keyboard/Controllers.h"
#include "keyboard/KeyboardLayout.h"
#include "keyboard/Modes.h"
#include "keyboard/Notes.h"
#include "keyboard/Pointer.h"

#include <algorithm>
#include <array>
#include <string>

namespace velluto {

namespace {

constexpr int kHighestShift = 3; // octaves
constexpr int kHighestSplit = 96;
constexpr int kLowestSplit = 36;
constexpr int kHighestValue = 127;

// A caption as it is spoken.
std::string WithoutAccessMark(std::string text)
{
    std::erase(text, '&');
    return text;
}

} // namespace

frmTastiera::frmTastiera(KeyboardState &keyboard)
    : ChildForm("frmTastiera", kNoNumber, keyboard.midi.app, &keyboard.midi.app.frame.mnuTastiera), midi(keyboard.midi),
      entry_(app.settings.PlacementTable.at(PlacementEntry::Keyboard))
{
    for (int channel = 1; channel <= kMidiChannels; ++channel) {
        Combo1.rows.push_back((channel < 10 ? "  " : " ") + std::to_string(channel));
    }
    HScroll1.max = kHighestShift;
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
    for (Control *hidden : std::initializer_list<Control *>{&Picture2, &VScroll1, &Text3, &Label1[8], &CommArrPlay, &CommSongPlay}) {
        hidden->visible = false;
    }
    Combo1.accessibleName = Label1[6].caption;
    Text1.accessibleName = Label1[7].caption;
    for (Control *split : std::initializer_list<Control *>{&Picture2, &VScroll1, &Text3}) {
        split->accessibleName = Label1[8].caption;
    }
    SetUpSliders(*this);
    ConnectKeys();
    ConnectControls();
    ConnectSliders();
}

void frmTastiera::ConnectKeys()
{
    for (PianoKey &key : Key) {
        const int i = key.index();
        key.black = IsBlackKey(i);
        key.color = PlainColor(i);
        key.MouseDown = [this, i](int /*button*/) { Key_MouseDown(*this, i); };
        key.MouseUp = [this, i](int /*button*/) { Key_MouseUp(*this, i); };
        key.MouseMove = [this, i](int y) { Key_MouseMove(*this, i, y); };
    }
    Frame1.MouseMove = [this] { Background_MouseMove(*this); };
}

void frmTastiera::ConnectControls()
{
    Combo1.Click = [this] { app.settings.KeyboardRecord.at(KeyboardByte::Channel) = NearestIn<std::uint8_t>(Combo1.ListIndex); };
    HScroll1.Change = [this] { HScroll1_Change(*this); };
    CheckClickKey.Click = [this] { CheckClickKey_Click(*this); };
    CheckHoldNote.Click = [this] { CheckHoldNote_Click(*this); };
    CommHoldChord.Click = [this] { CommHoldChord_Click(*this); };
    CommAllNoteOff.Click = [this] { CommAllNoteOff_Click(*this); };
    CommClose.Click = [this] { app.children.Unload(*this); };
}

void frmTastiera::ConnectSliders()
{
    for (ScrollBar &bar : VScroll) {
        const int i = bar.index();
        bar.Change = [this, i] { VScroll_Change(*this, i); };
        bar.Scroll = [this, i] { VScroll_Change(*this, i); };
        Label2[i].DblClick = [this, i] { Label2_DblClick(*this, i); };
    }
    VScroll1.Change = [this] { ShowSplitPoint(*this); };
}

// The settings file is not checked as it is read: a byte that no control can show gives the nearest that it can.
void frmTastiera::TakeRecord()
{
    const auto byte = [this](std::size_t at) { return static_cast<int>(app.settings.KeyboardRecord.at(at)); };
    HScroll1.value = std::min(byte(KeyboardByte::Shift), kHighestShift);
    notes.BaseNote = HScroll1.value * kNotesPerOctave + kLowestNote;
    Combo1.ListIndex = std::min(byte(KeyboardByte::Channel), kMidiChannels - 1);
    CheckClickKey.value = byte(KeyboardByte::ClickKey) != 0;
    CheckHoldNote.value = byte(KeyboardByte::HoldNote) != 0;
    for (ScrollBar &bar : VScroll) {
        const int i = bar.index();
        // A value other than the form's own 0 is thus told twice.
        bar.value = std::min(byte(KeyboardByte::FirstSlider + static_cast<std::size_t>(i)), kHighestValue);
        VScroll_Change(*this, i);
    }
}

void frmTastiera::TakePlace()
{
    const Size inner = LayOutKeyboard(*this);
    natural_ = Size{inner.width + frame.width, inner.height + frame.height};
    PlaceFirst(entry_, natural_);
    place = Place{entry_.Left, entry_.Top, natural_.width, natural_.height};
    entry_.State = StoredState::Normal;
}

void frmTastiera::TakeLanguage()
{
    const std::string title = app.messages.Text(TextId::Keyboard);
    caption = std::string(kProgramTitle) + " - " + title;
    Frame1.accessibleName = WithoutAccessMark(title);
    CommClose.caption = app.messages.Text(TextId::Close);
    LabelOctave.caption = std::string(app.messages.LinguaBase == 0 ? "Ottava" : "Octave");
    HScroll1.accessibleName = LabelOctave.caption;
    SetSliderTips(*this);
}

bool frmTastiera::LoadWindow()
{
    TakePlace();
    Tag = ToolTag(ViewKind::Keyboard);
    TakeLanguage();
    midi.MonitorEnabled = true;
    TakeRecord();
    ShowSplitPoint(*this);
    ClearHeldNotes(*this);
    ClearChord(*this);
    notes.ClickGuard = false;
    notes.CurrentNote = kNoNote;
    UpdateOctaveLabels(*this);
    Text1.text = "";
    if (!CheckClickKey.value) {
        CheckHoldNote.enabled = false;
        CommHoldChord.enabled = false;
    }
    countedIn_ = true;
    return true;
}

bool frmTastiera::Form_QueryUnload()
{
    CommAllNoteOff_Click(*this);
    std::array<std::uint8_t, 16> &record = app.settings.KeyboardRecord;
    record.at(KeyboardByte::Channel) = NearestIn<std::uint8_t>(Combo1.ListIndex);
    record.at(KeyboardByte::ClickKey) = CheckClickKey.value ? 1 : 0;
    record.at(KeyboardByte::HoldNote) = CheckHoldNote.value ? 1 : 0;
    record.at(KeyboardByte::Shift) = NearestIn<std::uint8_t>(HScroll1.value);
    record.at(KeyboardByte::Split) = NearestIn<std::uint8_t>(VScroll1.value);
    if (countedIn_) {
        StorePosition(entry_, *this);
        CountOut();
        countedIn_ = false;
    }
    return true;
}

void frmTastiera::Form_Unload()
{
    UnloadWindow();
    app.children.Bury(TakeOut());
}

void frmTastiera::UnloadWindow()
{
    StorePosition(entry_, *this);
    entry_.State = StoredState::Closed;
}

void frmTastiera::Form_Activate()
{
    // The end of the program was called off after this window had been asked: it counts again.
    if (!countedIn_) {
        CountIn();
        countedIn_ = true;
    }
    ChildForm::Form_Activate();
}

// The window has one size.
void frmTastiera::Resized()
{
    StoreState(entry_, *this);
    if (windowState == WindowState::Normal) {
        place = Place{Left(), Top(), natural_.width, natural_.height};
    }
}

void frmTastiera::Form_MouseMove()
{
    Background_MouseMove(*this);
}

} // namespace velluto
