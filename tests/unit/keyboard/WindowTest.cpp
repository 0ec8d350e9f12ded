// The window as a child of the frame: opening, closing, and what it keeps.
#include "program/Velluto.h"
#include "unit/support/KeyboardLink.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using Opening = Linked<KeyboardLink>;

TEST_F(Opening, KeepsTheChildContract)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Tag.prefix, std::string(1, '\x08') + std::string(19, '\0'));
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - &Keyboard");
    EXPECT_EQ(form.CommClose.caption.Get(), "&Close");
    EXPECT_FALSE(link.app.frame.mnuTastiera.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 1);
    EXPECT_FALSE(link.app.children.RestoringLayout);
    EXPECT_TRUE(link.app.frame.mnuModifica.enabled);
    EXPECT_TRUE(link.midi.MonitorEnabled);
    EXPECT_EQ(link.entry.State, 1);
}

TEST_F(Opening, InItalianTheTitleAndTheButtonAreItalian)
{
    link.app.messages.LinguaBase = 0;
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.caption.Get(), "Velluto v 1.1 - &Tastiera");
    EXPECT_EQ(form.CommClose.caption.Get(), "&Chiudi");
    EXPECT_EQ(form.Label2[1].toolTip.Get(), "Doppio clic: 0");
    EXPECT_EQ(form.HScroll1.accessibleName, "Ottava");
    EXPECT_EQ(form.Combo1.accessibleName, "MIDI Channel");
    EXPECT_EQ(form.Text1.accessibleName, "Note (Number)");
}

TEST_F(Opening, TheFixedCaptionsAreTheSameInBothLanguages)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Label1[6].caption.Get(), "MIDI Channel");
    EXPECT_EQ(form.Label1[7].caption.Get(), "Note (Number)");
    EXPECT_EQ(form.CheckClickKey.caption.Get(), "Click Key");
    EXPECT_EQ(form.CheckHoldNote.caption.Get(), "Hold Note");
    EXPECT_EQ(form.CommHoldChord.caption.Get(), "Hold Chord");
    EXPECT_EQ(form.CommAllNoteOff.caption.Get(), "All Notes Off");
    EXPECT_EQ(form.CommArrPlay.caption.Get(), "&ARR PLAY");
    EXPECT_EQ(form.CommSongPlay.caption.Get(), "&SONG PLAY");
    EXPECT_FALSE(form.CommArrPlay.visible);
    EXPECT_FALSE(form.CommSongPlay.visible);
    EXPECT_EQ(form.Combo1.rows,
              (Texts{"  1", "  2", "  3", "  4", "  5", "  6", "  7", "  8", "  9", " 10", " 11", " 12", " 13", " 14", " 15", " 16"}));
}

TEST_F(Opening, OfAFirstRunIsPressModeOnChannel1TwoOctavesUp)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Combo1.ListIndex, 0);
    EXPECT_TRUE(form.CheckClickKey.value);
    EXPECT_FALSE(form.CheckHoldNote.value);
    EXPECT_TRUE(form.CheckHoldNote.enabled);
    EXPECT_TRUE(form.CommHoldChord.enabled);
    EXPECT_EQ(form.HScroll1.value, 2);
    EXPECT_EQ(form.notes.BaseNote, 36);
    EXPECT_EQ(form.notes.CurrentNote, 200);
    EXPECT_EQ(form.Text1.text.Get(), "");
    EXPECT_EQ(form.Label1[1].caption.Get(), "C3");
    EXPECT_EQ(form.Label1[5].caption.Get(), "C7");
}

TEST_F(Opening, SendsAllNineMessagesTwiceWhereTheValueIsNot0)
{
    link.record[0] = 4;
    mnuTastiera_Click(link.keyboard);
    const std::uint32_t pan = Controller(10, 64, 4);
    // Between Pan and Att Time the two velocities send the Pan again.
    EXPECT_EQ(link.Taken(), (Sent{Controller(7, 100, 4), Controller(7, 100, 4), pan, pan, pan, pan, pan, pan, Controller(73, 0, 4),
                                  Controller(72, 0, 4), PitchBend(64, 4), PitchBend(64, 4), Controller(1, 0, 4), Controller(2, 0, 4),
                                  Controller(91, 0, 4), Controller(93, 0, 4)}));
}

TEST_F(Opening, WithNothingSentBeforeTheVelocitiesSendWhatStandsInTheCell)
{
    link.record = {0, 1, 0, 2, 0, 0, 9, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    mnuTastiera_Click(link.keyboard);
    EXPECT_EQ(link.Taken(),
              (Sent{Controller(7, 0), Controller(10, 0), Controller(10, 0), Controller(10, 0), Controller(10, 0), Controller(73, 0),
                    Controller(72, 0), PitchBend(0), Controller(1, 0), Controller(2, 0), Controller(91, 0), Controller(93, 0)}));
}

TEST_F(Opening, InLatchModeTheHoldBoxSilencesFirst)
{
    link.record = {0, 1, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    mnuTastiera_Click(link.keyboard);
    const Sent sent = link.Taken();
    ASSERT_GE(sent.size(), 2U);
    EXPECT_EQ(sent[0], test::AllNotesOff());
    EXPECT_EQ(sent[1], Controller(7, 1));
    EXPECT_TRUE(link.Form().CommHoldChord.enabled);
    EXPECT_TRUE(link.Form().CheckHoldNote.value);
}

TEST_F(Opening, InGlideModeTheHoldBoxAndTheChordButtonAreDisabled)
{
    frmTastiera &form = link.OpenGlide();
    EXPECT_FALSE(form.CheckHoldNote.enabled);
    EXPECT_FALSE(form.CommHoldChord.enabled);
}

TEST_F(Opening, WithTheHoldBoxOnInGlideModeSilencesFirstAndDisablesTheBox)
{
    link.record = {0, 0, 1, 2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    mnuTastiera_Click(link.keyboard);
    const Sent sent = link.Taken();
    ASSERT_GE(sent.size(), 2U);
    EXPECT_EQ(sent[0], test::AllNotesOff());
    EXPECT_EQ(sent[1], Controller(7, 1));
    EXPECT_TRUE(link.Form().CheckHoldNote.value);
    EXPECT_FALSE(link.Form().CheckHoldNote.enabled);
    EXPECT_FALSE(link.Form().CommHoldChord.enabled);
    EXPECT_FALSE(link.Form().notes.ClickGuard);
}

TEST_F(Opening, OnTheLowestOctaveTheCaptionsAreWrittenToo)
{
    link.record[3] = 0; // the slider's own first value: no change tells of it
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.notes.BaseNote, 12);
    EXPECT_EQ(form.Label1[0].caption.Get(), "C3");
    EXPECT_EQ(form.Label1[1].caption.Get(), "C1");
    EXPECT_EQ(form.Label1[5].caption.Get(), "C5");
}

TEST_F(Opening, DamagedBytesGiveTheNearestThatTheControlsCanShow)
{
    link.record.fill(255);
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Combo1.ListIndex, 15);
    EXPECT_TRUE(form.CheckClickKey.value);
    EXPECT_TRUE(form.CheckHoldNote.value);
    EXPECT_EQ(form.HScroll1.value, 3);
    EXPECT_EQ(form.VScroll[0].value, 127);
    EXPECT_EQ(link.record[4], 127);
    EXPECT_EQ(form.VScroll1.value, 36);
}

TEST_F(Opening, NeverLaidOutItComesUpAtTheTopLeft)
{
    link.entry.Left = 600;
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Left(), 0);
    EXPECT_EQ(form.Top(), 0);
    EXPECT_EQ(link.entry.MinWidth, form.Width());
    EXPECT_EQ(link.entry.MinHeight, form.Height());
}

TEST_F(Opening, ComesUpWhereItWas)
{
    link.app.children.Move(link.Open(), 450, 600);
    link.Close();
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Left(), 450);
    EXPECT_EQ(form.Top(), 600);
}

TEST_F(Opening, TheWindowHasOneSize)
{
    frmTastiera &form = link.Open();
    const Size natural{form.Width(), form.Height()};
    link.app.children.Resize(form, 3000, 20000);
    EXPECT_EQ((Size{form.Width(), form.Height()}), natural);
    link.app.children.Minimise(form);
    EXPECT_EQ(link.entry.State, 2);
    link.app.children.Restore(form);
    EXPECT_EQ(link.entry.State, 1);
}

TEST_F(Opening, EverythingLiesInsideAndNothingOverlaps)
{
    frmTastiera &form = link.Open();
    std::vector<const Control *> seen;
    for (const Control *control : form.controls()) {
        if (control->visible && dynamic_cast<const PianoKey *>(control) == nullptr) {
            seen.push_back(control);
        }
    }
    for (const Control *control : seen) {
        const Place a = control->place;
        EXPECT_GT(a.width, 0) << control->FullName();
        EXPECT_LE(a.left + a.width, form.ScaleWidth()) << control->FullName();
        EXPECT_LE(a.top + a.height, form.ScaleHeight()) << control->FullName();
        for (const Control *other : seen) {
            const Place b = other->place;
            const bool apart =
                a.left + a.width <= b.left || b.left + b.width <= a.left || a.top + a.height <= b.top || b.top + b.height <= a.top;
            EXPECT_TRUE(control == other || apart) << control->FullName() << " " << other->FullName();
        }
    }
}

TEST(Closing, SilencesANotePlayedByPress)
{
    KeyboardLink link;
    link.Open();
    link.Down(24);
    link.Taken();
    link.Close();
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.keyboard.window, nullptr);
}

TEST(Closing, ByItsButton)
{
    KeyboardLink link;
    link.Push(link.Open().CommClose);
    link.app.children.Sweep();
    EXPECT_EQ(link.keyboard.window, nullptr);
    EXPECT_EQ(link.app.children.ChildCount, 0);
    EXPECT_TRUE(link.app.frame.mnuTastiera.enabled);
    EXPECT_FALSE(link.app.frame.mnuModifica.enabled);
    EXPECT_FALSE(link.app.frame.mnuWindow.enabled);
}

TEST(Closing, KeepsBoxesOctaveAndPlace)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    form.Combo1.ListIndex = 9;
    EXPECT_EQ(link.record[0], 9); // at once
    form.HScroll1.value = 1;
    link.Push(form.CheckHoldNote);
    link.app.children.Move(form, -150, 300);
    EXPECT_EQ(link.record[2], 0);
    EXPECT_EQ(link.record[3], 2);
    link.Close();
    EXPECT_EQ(link.record, (std::array<std::uint8_t, 16>{9, 1, 1, 1, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 36}));
    EXPECT_EQ(link.entry.Left, -150);
    EXPECT_EQ(link.entry.Top, 300);
    EXPECT_EQ(link.entry.State, 0);
}

TEST(Closing, OpensAfreshWithNothingHeld)
{
    KeyboardLink link;
    link.OpenLatch();
    link.Click(0);
    link.Form().HScroll1.value = 3; // off screen: the closing does not clear its flag
    link.Close();
    link.Open();
    EXPECT_EQ(link.Held(), Ints{});
    EXPECT_EQ(link.Form().VScroll1.value, 36);
}

TEST(Closing, AnEndOfTheProgramThatIsCalledOffLeavesTheWindowCounted)
{
    struct Refusing : velluto::Form {
        Refusing() : velluto::Form("frmRefusing") {}
        bool Form_QueryUnload() override { return false; }
    };
    KeyboardLink link;
    Refusing other;
    frmTastiera &form = link.Open();
    link.app.children.Show(other);
    EXPECT_FALSE(link.app.children.UnloadAll());
    EXPECT_TRUE(link.app.frame.mnuTastiera.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 0);
    link.app.children.Activate(form);
    EXPECT_FALSE(link.app.frame.mnuTastiera.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 1);
    link.Close();
    EXPECT_EQ(link.app.children.ChildCount, 0);
}

TEST(Window, TheRightButtonOnItsBackgroundPopsUpTheEditMenu)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    form.Form_MouseDown(MouseButton::Left);
    form.Form_MouseDown(MouseButton::Right);
    EXPECT_EQ(link.face.popUps, (std::vector<MenuEntry *>{&link.app.frame.mnuModifica}));
}

TEST(Settings, Hold15BytesOfTheKeyboardAndNotThe16th)
{
    TestProgram run;
    run.Start(TestProgram::English);
    ASSERT_TRUE(run.Choose(run.program.app.frame.mnuTastiera));
    EXPECT_FALSE(run.Choose(run.program.app.frame.mnuTastiera));
    frmTastiera &form = *run.program.keyboard.window;
    form.Combo1.ListIndex = 2;
    form.HScroll1.value = 0;
    form.VScroll1.value = 50;
    for (int i = 0; i <= 10; ++i) {
        form.VScroll[i].value = 20 + i;
    }
    Press(form.CheckClickKey);
    run.Exit();
    const Bytes ini = run.Ini();
    EXPECT_EQ(Bytes(ini.begin() + 29, ini.begin() + 45), (Bytes{2, 0, 0, 0, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 0}));
    TestProgram next(run.folder);
    next.Start();
    EXPECT_EQ(next.program.app.settings.KeyboardRecord[15], 0);
    ASSERT_TRUE(next.Choose(next.program.app.frame.mnuTastiera));
    EXPECT_EQ(next.program.keyboard.window->VScroll[10].value, 30);
    EXPECT_FALSE(next.program.keyboard.window->CheckHoldNote.enabled);
}

} // namespace
} // namespace velluto::test
