#include "keyboard/KeyboardWindow.h"

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

// A caption as it is spoken.
std::string WithoutAccessMark(std::string text)
{
    std::erase(text, '&');
    return text;
}

class KeyboardWindow final : public frmTastiera {
public:
    explicit KeyboardWindow(MidiState &link) : frmTastiera(link), entry_(app.settings.PlacementTable.at(PlacementEntry::Keyboard))
    {
        SetUpSliders(*this);
        ConnectKeys();
        ConnectControls();
        ConnectSliders();
    }
    // The window has a count of its own: it goes out of it when it is asked, and comes back where it stays.
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_MouseMove() override { Background_MouseMove(*this); }

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

void KeyboardWindow::ConnectKeys()
{
    for (PianoKey &key : Key) {
        const int i = key.index();
        key.MouseDown = [this, i](int /*button*/) { Key_MouseDown(*this, i); };
        key.MouseUp = [this, i](int /*button*/) { Key_MouseUp(*this, i); };
        key.MouseMove = [this, i](int y) { Key_MouseMove(*this, i, y); };
    }
    Frame1.MouseMove = [this] { Background_MouseMove(*this); };
}

void KeyboardWindow::ConnectControls()
{
    Combo1.Click = [this] { app.settings.KeyboardRecord.at(KeyboardByte::Channel) = NearestIn<std::uint8_t>(Combo1.ListIndex); };
    HScroll1.Change = [this] { HScroll1_Change(*this); };
    CheckClickKey.Click = [this] { CheckClickKey_Click(*this); };
    CheckHoldNote.Click = [this] { CheckHoldNote_Click(*this); };
    CommHoldChord.Click = [this] { CommHoldChord_Click(*this); };
    CommAllNoteOff.Click = [this] { CommAllNoteOff_Click(*this); };
    CommClose.Click = [this] { app.children.Unload(*this); };
}

void KeyboardWindow::ConnectSliders()
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
void KeyboardWindow::TakeRecord()
{
    const auto byte = [this](std::size_t at) { return static_cast<int>(app.settings.KeyboardRecord.at(at)); };
    HScroll1.value = std::min(byte(KeyboardByte::Shift), HScroll1.max.Get());
    notes.BaseNote = HScroll1.value * kNotesPerOctave + kLowestNote;
    Combo1.ListIndex = std::min(byte(KeyboardByte::Channel), kMidiChannels - 1);
    CheckClickKey.value = byte(KeyboardByte::ClickKey) != 0;
    CheckHoldNote.value = byte(KeyboardByte::HoldNote) != 0;
    TakeSliders(*this);
}

void KeyboardWindow::TakePlace()
{
    const Size inner = LayOutKeyboard(*this);
    natural_ = Size{inner.width + frame.width, inner.height + frame.height};
    PlaceFirst(entry_, natural_);
    place = Place{entry_.Left, entry_.Top, natural_.width, natural_.height};
    entry_.State = StoredState::Normal;
}

void KeyboardWindow::TakeLanguage()
{
    const std::string title = app.messages.Text(TextId::Keyboard);
    caption = std::string(kProgramTitle) + " - " + title;
    Frame1.accessibleName = WithoutAccessMark(title);
    CommClose.caption = app.messages.Text(TextId::Close);
    LabelOctave.caption = app.messages.Text(TwoTexts{"Ottava", "Octave"});
    HScroll1.accessibleName = LabelOctave.caption;
    SetSliderTips(*this);
}

bool KeyboardWindow::LoadWindow()
{
    TakePlace();
    Tag = ToolTag(ViewKind::Keyboard);
    TakeLanguage();
    midi.MonitorEnabled = true;
    TakeRecord();
    ShowSplitPoint(*this);
    notes.HeldNotes.Clear();
    notes.ChordNotes.Clear();
    notes.ChordArmed = false;
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

bool KeyboardWindow::Form_QueryUnload()
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

void KeyboardWindow::Form_Unload()
{
    UnloadWindow();
    app.children.Bury(TakeOut());
}

void KeyboardWindow::UnloadWindow()
{
    StorePosition(entry_, *this);
    entry_.State = StoredState::Closed;
}

void KeyboardWindow::Form_Activate()
{
    // The end of the program was called off after this window had been asked: it counts again.
    if (!countedIn_) {
        CountIn();
        countedIn_ = true;
    }
    ChildForm::Form_Activate();
}

// The window has one size.
void KeyboardWindow::Resized()
{
    StoreState(entry_, *this);
    if (windowState == WindowState::Normal) {
        place = Place{Left(), Top(), natural_.width, natural_.height};
    }
}

} // namespace

void mnuTastiera_Click(KeyboardState &keyboard)
{
    ShowChild<KeyboardWindow>(keyboard.window, keyboard.midi);
}

} // namespace velluto
