// The pointer in the four modes.
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// ---- Press: Click Key on, Hold Note off

using PressMode = Linked<KeyboardLink>;

TEST_F(PressMode, PressPlaysAndReleaseEnds)
{
    link.Open();
    link.Down(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60)}));
    link.Up(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(60)}));
    EXPECT_EQ(link.Held(), Ints{});
}

TEST_F(PressMode, AnyMouseButtonPlays)
{
    link.Open();
    link.Form().Key[0].MouseDown(MouseButton::Right);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36)}));
    link.Form().Key[0].MouseUp(MouseButton::Right);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(36)}));
}

TEST_F(PressMode, MovingMeansNothing)
{
    frmTastiera &form = link.Open();
    link.Down(24);
    link.Taken();
    link.Move(24, 1400);
    link.Move(25);
    form.Frame1.MouseMove();
    form.Form_MouseMove();
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_EQ(form.notes.CurrentNote, 60);
}

TEST_F(PressMode, ReleaseEndsTheReleasedKeyWhateverSounds)
{
    link.Open();
    link.Up(10);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(46)}));
}

TEST_F(PressMode, APressTurnsTheMonitorOn)
{
    link.Open();
    link.midi.MonitorEnabled = false;
    link.Down(0);
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

TEST_F(PressMode, ThePlacesOfTheTopAndTheBottomNoteAreReached)
{
    frmTastiera &form = link.Open();
    form.HScroll1.value = 3;
    link.Click(60);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(108), NoteOff(108)}));
    form.HScroll1.value = 0;
    link.Click(0);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(12), NoteOff(12)}));
}

TEST_F(PressMode, AKeyWhoseNoteIsStillFlaggedAsHeldPlaysLikeAnyOther)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(0); // note 36
    form.HScroll1.value = 3;
    link.Push(form.CheckHoldNote); // silences, but clears the flags on screen only
    form.HScroll1.value = 2;
    ASSERT_EQ(link.Held(), (Ints{36}));
    link.Taken();
    link.Click(0);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36), NoteOff(36)}));
    EXPECT_EQ(link.Held(), (Ints{36}));
}

// ---- Latch: both on

using LatchMode = Linked<KeyboardLink>;

TEST_F(LatchMode, PressLatchesAndReleaseSaysNothing)
{
    link.OpenLatch();
    link.Click(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60)}));
    EXPECT_EQ(link.Held(), (Ints{60}));
    EXPECT_EQ(link.Dots(), (Ints{24}));
}

TEST_F(LatchMode, ASecondPressReleasesThatKeyOnly)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(24);
    link.Click(28);
    link.Taken();
    link.Click(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(60)}));
    EXPECT_EQ(link.Held(), (Ints{64}));
    EXPECT_EQ(link.Dots(), (Ints{28}));
    EXPECT_EQ(form.notes.CurrentNote, 200);
    EXPECT_FALSE(form.notes.ChordArmed);
}

TEST_F(LatchMode, TheTopAndTheBottomOfTheSpanCanBeLatched)
{
    frmTastiera &form = link.OpenLatch();
    form.HScroll1.value = 3;
    link.Click(60);
    form.HScroll1.value = 0;
    link.Click(0);
    EXPECT_EQ(link.Held(), (Ints{12, 108}));
}

TEST_F(LatchMode, MovingMeansNothing)
{
    frmTastiera &form = link.OpenLatch();
    link.Click(24);
    link.Taken();
    link.Move(25);
    form.Frame1.MouseMove();
    EXPECT_EQ(link.Taken(), Sent{});
}

// ---- Glide: both off

using GlideMode = Linked<KeyboardLink>;

TEST_F(GlideMode, APressAndAReleaseHaveNoMeaning)
{
    link.OpenGlide();
    link.midi.MonitorEnabled = false;
    link.Click(24);
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

TEST_F(GlideMode, ASweepOverTenKeysGivesTenPairsInOrder)
{
    frmTastiera &form = link.OpenGlide();
    for (int key = 0; key < 10; ++key) {
        link.Move(key, 300);
        link.Move(key, 310);
    }
    form.Frame1.MouseMove();
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36),  NoteOff(36), NoteOn(37),  NoteOff(37), NoteOn(38),  NoteOff(38), NoteOn(39),
                                  NoteOff(39), NoteOn(40),  NoteOff(40), NoteOn(41),  NoteOff(41), NoteOn(42),  NoteOff(42),
                                  NoteOn(43),  NoteOff(43), NoteOn(44),  NoteOff(44), NoteOn(45),  NoteOff(45)}));
    EXPECT_EQ(link.Dots(), Ints{});
}

TEST_F(GlideMode, TheLowerStripOfAWhiteKeyBeginsAt1368)
{
    frmTastiera &form = link.OpenGlide();
    form.VScroll[3].value = 20;
    link.Taken();
    link.Move(0, 0);
    link.Move(0, 1367);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36)}));
    link.Move(0, 1368);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(36, 64)})); // not the slider's velocity
    EXPECT_EQ(form.notes.CurrentNote, 200);
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(form.Text1.text.Get(), "C/Do (36)"); // and the name stays
}

TEST_F(GlideMode, TheLowerStripOfABlackKeyBeginsAt936)
{
    link.OpenGlide();
    link.Move(1, 935);
    link.Move(1, 935);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(37)}));
    link.Move(1, 936);
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(37)}));
}

TEST_F(GlideMode, AKeyEnteredInItsStripSounds)
{
    link.OpenGlide();
    link.Move(0, 1400);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36)}));
}

TEST_F(GlideMode, APointerThatStaysInTheStripSoundsTheKeyAtEveryOtherMove)
{
    link.OpenGlide();
    for (int move = 0; move < 5; ++move) {
        link.Move(0, 1380);
    }
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(36), NoteOff(36), NoteOn(36), NoteOff(36), NoteOn(36)}));
}

TEST_F(GlideMode, LeavingToTheFrameOrTheWindowEndsTheNoteOnce)
{
    frmTastiera &form = link.OpenGlide();
    link.Move(24);
    form.Frame1.MouseMove();
    form.Frame1.MouseMove();
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60), NoteOff(60)}));
    link.Move(24);
    form.Form_MouseMove();
    form.Form_MouseMove();
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60), NoteOff(60)}));
    EXPECT_EQ(form.Text1.text.Get(), "");
}

TEST_F(GlideMode, WithTheHoldBoxOnTheFrameEndsNothing)
{
    link.record[1] = 0;
    link.record[2] = 1; // as no hand can leave it, but a file can
    frmTastiera &form = link.Open();
    EXPECT_TRUE(form.CheckHoldNote.value);
    EXPECT_FALSE(form.CheckHoldNote.enabled);
    link.Move(24);
    form.Frame1.MouseMove();
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60)}));
}

// ---- Chord

struct ChordLink : KeyboardLink {
    // The notes latched by their keys on the octave of the first run, and frozen.
    void Freeze(const Ints &chordNotes)
    {
        OpenLatch();
        for (const int note : chordNotes) {
            Click(note - 36);
        }
        Push(Form().CommHoldChord);
        Taken();
    }
};

using ChordMode = Linked<ChordLink>;

TEST_F(ChordMode, FreezingSendsNothingAndDisablesTheButton)
{
    link.OpenLatch();
    link.Click(24);
    link.Click(28);
    link.Taken();
    EXPECT_TRUE(link.Push(link.Form().CommHoldChord));
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_TRUE(link.Form().notes.ChordArmed);
    EXPECT_FALSE(link.Form().CommHoldChord.enabled);
    EXPECT_EQ(link.Chord(), (Ints{60, 64}));
    EXPECT_EQ(link.Dots(), (Ints{24, 28}));
}

TEST_F(ChordMode, WithNothingLatchedThereIsNothingToFreeze)
{
    link.OpenLatch();
    EXPECT_TRUE(link.Push(link.Form().CommHoldChord));
    EXPECT_FALSE(link.Form().notes.ChordArmed);
    EXPECT_TRUE(link.Form().CommHoldChord.enabled);
    EXPECT_EQ(link.Taken(), Sent{});
}

TEST_F(ChordMode, TheLowestNoteLandsOnThePressedKey)
{
    link.Freeze({60, 64, 67});
    link.Down(26); // note 62
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(62), NoteOn(66), NoteOn(69)}));
    EXPECT_EQ(link.Held(), (Ints{62, 66, 69}));
    EXPECT_EQ(link.Dots(), (Ints{26, 30, 33}));
    EXPECT_EQ(link.Form().notes.CurrentNote, 69);
    EXPECT_EQ(link.Form().Text1.text.Get(), "A/La (69)");
}

TEST_F(ChordMode, WhatFallsAbove108IsLeftOutForThatPressOnly)
{
    link.Freeze({60, 64, 67});
    link.Form().HScroll1.value = 3; // key 0 is note 48
    link.Taken();
    link.Down(52); // note 100
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(100), NoteOn(104), NoteOn(107)}));
    link.Down(60); // note 108
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(108)}));
    EXPECT_EQ(link.Chord(), (Ints{60, 64, 67}));
    link.Down(12); // note 60
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(60), NoteOn(64), NoteOn(67)}));
}

TEST_F(ChordMode, NotesOffScreenSoundWithoutADot)
{
    link.Freeze({60, 64});
    link.Down(60); // note 96, and 100 off screen
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(96), NoteOn(100)}));
    EXPECT_EQ(link.Dots(), (Ints{60}));
    EXPECT_EQ(link.Held(), (Ints{96, 100}));
}

TEST_F(ChordMode, ReleaseIsSilent)
{
    link.Freeze({60, 64});
    link.Click(0);
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff(), NoteOn(36), NoteOn(40)}));
    EXPECT_EQ(link.Dots(), (Ints{0, 4}));
}

TEST_F(ChordMode, ReleaseIsSilentWithTheHoldBoxOffToo)
{
    link.Open();
    link.Form().notes.ChordArmed = true; // no hand freezes a chord in Press mode; the rule is there all the same
    link.Up(24);
    EXPECT_EQ(link.Taken(), Sent{});
}

TEST_F(ChordMode, AllNotesOffEndsItAndKeepsTheOldChordUnused)
{
    link.Freeze({60, 64});
    link.Push(link.Form().CommAllNoteOff);
    EXPECT_EQ(link.Taken(), (Sent{test::AllNotesOff()}));
    EXPECT_FALSE(link.Form().notes.ChordArmed);
    EXPECT_TRUE(link.Form().CommHoldChord.enabled);
    EXPECT_EQ(link.Held(), Ints{});
    EXPECT_EQ(link.Chord(), (Ints{60, 64}));
    link.Click(30);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(66)}));
    link.Push(link.Form().CommHoldChord);
    EXPECT_EQ(link.Chord(), (Ints{66}));
}

TEST_F(ChordMode, APressTurnsTheMonitorOn)
{
    link.Freeze({60});
    link.midi.MonitorEnabled = false;
    link.Down(0);
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

} // namespace
} // namespace velluto::test
