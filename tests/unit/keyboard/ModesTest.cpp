// The check boxes and their nested clicks, All Notes Off, and the octave shift.
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// What the boxes and buttons of the window are, as one text: Click Key, Hold Note, its box, Hold Chord.
std::string StateOf(const frmTastiera &form)
{
    std::string state;
    state += form.CheckClickKey.value ? "click " : "- ";
    state += form.CheckHoldNote.value ? "hold " : "- ";
    state += form.CheckHoldNote.enabled ? "box " : "- ";
    state += form.CommHoldChord.enabled ? "chord" : "-";
    return state;
}

struct ModesLink : KeyboardLink {
    [[nodiscard]] std::string State() { return StateOf(Form()); }
    void FreezeOne()
    {
        OpenLatch();
        Click(24);
        Push(Form().CommHoldChord);
        Taken();
    }
};

using AllNotesOff = Linked<ModesLink>;

TEST_F(AllNotesOff, SilencesClearsAndForgets)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(24);
    link.Taken();
    link.Push(form.CommAllNoteOff);
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.Held(), Ints{});
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(form.notes.CurrentNote, 200);
    EXPECT_EQ(form.Text1.text.Get(), "");
    EXPECT_EQ(link.State(), "click hold box chord");
}

TEST_F(AllNotesOff, OutsideLatchModeHoldChordGoesOff)
{
    frmTastiera &form = link.Open();
    EXPECT_EQ(link.State(), "click - box chord"); // as it comes up
    link.Push(form.CommAllNoteOff);
    EXPECT_EQ(link.State(), "click - box -");
}

TEST_F(AllNotesOff, WithHoldNoteOnInGlideModeHoldChordGoesOff)
{
    link.FreezeOne();
    link.Push(link.Form().CheckClickKey);
    link.Push(link.Form().CheckHoldNote);
    ASSERT_EQ(link.State(), "- hold box -");
    link.Form().CommHoldChord.enabled = true;
    link.Push(link.Form().CommAllNoteOff);
    EXPECT_EQ(link.State(), "- hold box -");
}

TEST_F(AllNotesOff, GoesToTheChannelOfNow)
{
    link.Open().Combo1.ListIndex = 9;
    link.Push(link.Form().CommAllNoteOff);
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(9)}));
}

TEST_F(AllNotesOff, ANoteHeldOffScreenKeepsItsFlagAndCountsForTheNextChord)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(0); // note 36
    form.HScroll1.value = 3;
    link.Push(form.CommAllNoteOff);
    EXPECT_EQ(link.Held(), (Ints{36}));
    link.Taken();
    link.Push(form.CommHoldChord);
    EXPECT_TRUE(form.notes.ChordArmed);
    link.Down(0); // note 48
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(48)}));
}

TEST(HoldNote, TickedInPressModeItLatchesAndSilences)
{
    ModesLink link;
    frmTastiera &form = link.Open();
    link.Push(form.CheckHoldNote);
    EXPECT_EQ(link.State(), "click hold box chord");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    link.Click(24);
    EXPECT_EQ(link.Held(), (Ints{60}));
}

TEST(HoldNote, UntickedInLatchModeItReleasesAll)
{
    ModesLink link;
    frmTastiera &form = link.OpenLatch();
    link.Click(24);
    link.Taken();
    link.Push(form.CheckHoldNote);
    EXPECT_EQ(link.State(), "click - box -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.Held(), Ints{});
    EXPECT_EQ(link.Dots(), Ints{});
}

TEST(HoldNote, UntickedWithAChordItEndsTheChord)
{
    ModesLink link;
    link.FreezeOne();
    link.Push(link.Form().CheckHoldNote);
    EXPECT_FALSE(link.Form().notes.ChordArmed);
    EXPECT_FALSE(link.Form().notes.ClickGuard);
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.State(), "click - box -");
}

TEST(HoldNote, TickedInGlideModeItStaysOnAndSilences)
{
    // A chord ended by Click Key leaves the box enabled in Glide mode.
    ModesLink link;
    link.FreezeOne();
    link.Push(link.Form().CheckClickKey);
    ASSERT_EQ(link.State(), "- - box -");
    link.Move(24);
    link.Taken();
    link.Push(link.Form().CheckHoldNote);
    EXPECT_EQ(link.State(), "- hold box -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(link.Form().notes.CurrentNote, 60); // only silenced, not forgotten
    EXPECT_FALSE(link.Form().notes.ClickGuard);
    // And cannot be unticked: the program ticks it again.
    link.Push(link.Form().CheckHoldNote);
    EXPECT_EQ(link.State(), "- hold box -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_FALSE(link.Form().notes.ClickGuard);
}

using ClickKey = Linked<ModesLink>;

TEST_F(ClickKey, UntickedInPressModeItLeadsToGlideAndDisablesHoldNote)
{
    frmTastiera &form = link.Open();
    link.Push(form.CheckClickKey);
    EXPECT_EQ(link.State(), "- - - chord"); // the button waits for the next All Notes Off
    EXPECT_EQ(link.Taken(), Sent{});
    link.Push(form.CheckClickKey);
    EXPECT_EQ(link.State(), "click - box chord");
    EXPECT_EQ(link.Taken(), Sent{});
}

TEST_F(ClickKey, UntickedInLatchModeItClearsBothAndSilences)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(24);
    link.Taken();
    link.Push(form.CheckClickKey);
    EXPECT_EQ(link.State(), "- - - -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_EQ(link.Held(), Ints{});
    EXPECT_FALSE(form.notes.ClickGuard);
}

TEST_F(ClickKey, UntickedWithAChordItSilencesTwiceAndLeavesHoldNoteEnabled)
{
    link.FreezeOne();
    link.Push(link.Form().CheckClickKey);
    // Once in the nested click of Hold Note, once in its own.
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), test::AllNotesOff()}));
    EXPECT_EQ(link.State(), "- - box -");
    EXPECT_FALSE(link.Form().notes.ChordArmed);
    EXPECT_FALSE(link.Form().notes.ClickGuard);
}

TEST_F(ClickKey, TickedWithHoldOnItIsClearedAgain)
{
    link.FreezeOne();
    link.Push(link.Form().CheckClickKey);
    link.Push(link.Form().CheckHoldNote);
    ASSERT_EQ(link.State(), "- hold box -");
    link.Taken();
    link.Push(link.Form().CheckClickKey);
    EXPECT_EQ(link.State(), "- - box -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_FALSE(link.Form().notes.ClickGuard);
}

TEST_F(ClickKey, TickedWithAChordItIsClearedAgain)
{
    frmTastiera &form = link.OpenGlide();
    form.notes.ChordArmed = true; // no hand freezes a chord in Glide mode; the handler asks all the same
    link.Push(form.CheckClickKey);
    EXPECT_EQ(link.State(), "- - - -");
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_FALSE(form.notes.ChordArmed);
    EXPECT_FALSE(form.notes.ClickGuard);
}

using Octave = Linked<KeyboardLink>;

TEST_F(Octave, ShiftsTheNoteOfKey0AndTheCaptionsAboveTheCKeys)
{
    frmTastiera &form = link.Open();
    const std::array<int, 4> bases{12, 24, 36, 48};
    for (int shift = 0; shift <= 3; ++shift) {
        form.HScroll1.value = shift;
        EXPECT_EQ(form.notes.BaseNote, bases[static_cast<std::size_t>(shift)]);
        EXPECT_EQ(form.Label1[0].caption.Get(), "C3"); // always
        for (int label = 1; label <= 5; ++label) {
            EXPECT_EQ(form.Label1[label].caption.Get(), "C" + std::to_string(label + shift));
        }
    }
    EXPECT_EQ(link.Taken(), Sent{});
}

TEST_F(Octave, EachCaptionStandsAboveItsCKey)
{
    frmTastiera &form = link.Open();
    for (int octave = 0; octave <= 5; ++octave) {
        const Place caption = form.Label1[octave].place;
        const Place key = form.Key[12 * octave].place;
        EXPECT_EQ(caption.left, key.left) << octave;
        EXPECT_LE(caption.top + caption.height, key.top) << octave;
    }
}

TEST_F(Octave, HeldNotesKeepSoundingAndMoveTheirDots)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(24); // 60
    link.Click(0);  // 36
    link.Taken();
    form.HScroll1.value = 3;
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_EQ(link.Dots(), (Ints{12}));
    EXPECT_EQ(link.Held(), (Ints{36, 60}));
    form.HScroll1.value = 2;
    EXPECT_EQ(link.Dots(), (Ints{0, 24}));
}

TEST_F(Octave, ANoteSoundingByPressKeepsItsDotAndTheReleaseEndsTheKeysNewNote)
{
    frmTastiera &form = link.Open();
    link.Down(24);
    link.Taken();
    form.HScroll1.value = 1;
    EXPECT_EQ(link.Dots(), (Ints{24}));
    link.Up(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(48)}));
    EXPECT_EQ(link.Dots(), Ints{});
}

TEST_F(Octave, OnlyALetGoSliderShifts)
{
    frmTastiera &form = link.Open();
    ScrollGesture::DragTo(form.HScroll1, 0);
    EXPECT_EQ(form.notes.BaseNote, 36);
    ScrollGesture::LetGo(form.HScroll1);
    EXPECT_EQ(form.notes.BaseNote, 12);
}

} // namespace
} // namespace velluto::test
