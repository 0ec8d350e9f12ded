// The keys, and a note on and off.
#include "midi/MidiOut.h"
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

TEST(Keys, AreBlackAndWhiteAsOnAPianoFromCToC)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    Ints black;
    for (const PianoKey &key : form.Key) {
        if (key.black) {
            black.push_back(key.index());
        }
        EXPECT_EQ(key.color, key.black ? 0x000000 : 0xFFFFFF) << key.index();
        EXPECT_FALSE(key.dot) << key.index();
    }
    EXPECT_EQ(black, (Ints{1, 3, 6, 8, 10, 13, 15, 18, 20, 22, 25, 27, 30, 32, 34, 37, 39, 42, 44, 46, 49, 51, 54, 56, 58}));
    EXPECT_EQ(form.Key.last(), 60);
}

TEST(Keys, HaveTheHeightsThatThePointerIsMeasuredBy)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    for (const PianoKey &key : form.Key) {
        EXPECT_EQ(key.place.Get().height, key.black ? 972 : 1404) << key.index();
        EXPECT_EQ(key.place.Get().top, form.Key[0].place.Get().top);
    }
}

TEST(Keys, LieSideBySideInsideTheirFrame)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    int edge = form.Key[0].place.Get().left;
    for (const PianoKey &key : form.Key) {
        const Place place = key.place;
        if (!key.black) {
            EXPECT_EQ(place.left, edge) << key.index();
            edge = place.left + place.width;
        } else {
            EXPECT_EQ(place.left + place.width / 2, edge) << key.index();
        }
    }
    const Place frame = form.Frame1.place;
    EXPECT_GT(form.Key[0].place.Get().left, frame.left);
    EXPECT_LT(edge, frame.left + frame.width);
    EXPECT_LT(form.Key[0].place.Get().top + 1404, frame.top + frame.height);
}

TEST(Keys, AreNamedByTheirNote)
{
    EXPECT_EQ(NoteText(60), "C/Do (60)");
    const Texts names{"C/Do", "C#/Do#", "D/Re", "D#/Re#", "E/Mi", "F/Fa", "F#/Fa#", "G/Sol", "G#/Sol#", "A/La", "A#/La#", "B/Si"};
    for (int note = 12; note <= 108; ++note) {
        EXPECT_EQ(NoteText(note), names[static_cast<std::size_t>(note % 12)] + " (" + std::to_string(note) + ")");
    }
    KeyboardLink link;
    frmTastiera &form = link.Open();
    EXPECT_EQ(form.Key[0].accessibleName, "C/Do (36)");
    form.HScroll1.value = 0;
    EXPECT_EQ(form.Key[60].accessibleName, "C/Do (72)");
}

using KeyNoteOn = Linked<KeyboardLink>;

TEST_F(KeyNoteOn, ShowsTheDotSendsAndNamesTheNote)
{
    frmTastiera &form = link.Open();
    velluto::KeyNoteOn(form, 61);
    EXPECT_EQ(link.Dots(), (Ints{25}));
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(61)}));
    EXPECT_EQ(form.Text1.text.Get(), "C#/Do# (61)");
    EXPECT_EQ(form.notes.KeyIndex, 25);
    EXPECT_EQ(form.notes.CurrentNote, 61);
}

TEST_F(KeyNoteOn, SendsANoteThatIsOffScreenAndDrawsNothing)
{
    frmTastiera &form = link.Open();
    velluto::KeyNoteOn(form, 35);
    velluto::KeyNoteOn(form, 97);
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(35), NoteOn(97)}));
    EXPECT_EQ(form.notes.KeyIndex, 61);
    EXPECT_EQ(form.Text1.text.Get(), "C#/Do# (97)");
}

TEST(KeyNoteOff, TakesDotAndNameAway)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    velluto::KeyNoteOn(form, 60);
    link.Taken();
    KeyNoteOff(form, 60);
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(60)}));
    EXPECT_EQ(form.notes.CurrentNote, 200);
    EXPECT_EQ(form.Text1.text.Get(), "");
    KeyNoteOff(form, 20); // off screen
    EXPECT_EQ(link.Taken(), (Sent{NoteOff(20)}));
    EXPECT_EQ(form.notes.KeyIndex, -16);
}

using KeyNote = Linked<KeyboardLink>;

TEST_F(KeyNote, TheVelocitiesAreTheSliders)
{
    frmTastiera &form = link.Open();
    form.VScroll[2].value = 100;
    form.VScroll[3].value = 1;
    link.Taken();
    link.Click(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60, 100), NoteOff(60, 1)}));
}

TEST_F(KeyNote, TheChannelIsReadFromTheBoxEachTime)
{
    frmTastiera &form = link.Open();
    link.Down(24);
    form.Combo1.ListIndex = 15;
    link.Up(24);
    EXPECT_EQ(link.Taken(), (Sent{NoteOn(60), NoteOff(60, 64, 15)}));
}

TEST_F(KeyNote, WithoutAnOutputTheKeysStillShowAndNameTheNote)
{
    CloseMidiOut(link.midi);
    link.Open();
    link.Down(24);
    EXPECT_EQ(link.Dots(), (Ints{24}));
    EXPECT_EQ(link.Form().Text1.text.Get(), "C/Do (60)");
    link.Up(24);
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(link.Taken(), Sent{});
    EXPECT_TRUE(link.BoxTexts().empty());
}

TEST_F(KeyNote, AFailedSendIsToldOnceAndTheKeysGoOn)
{
    link.Open();
    link.devices.outs[0].codes.send = 11;
    link.Click(24);
    link.Down(26);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error accessing MIDI output device (Cod Err: 411)"}));
    EXPECT_EQ(link.Dots(), (Ints{26}));
}

TEST(HeldNotes, AreFlagsForTheNotesFrom12To108)
{
    NoteFlags flags;
    flags.Set(12, true);
    flags.Set(108, true);
    flags.Set(11, true);
    flags.Set(109, true);
    flags.Set(200, true);
    EXPECT_EQ(KeyboardLink::NotesOf(flags), (Ints{12, 108}));
    EXPECT_EQ(flags.Bytes().size(), 97U);
    EXPECT_EQ(flags.Bytes().front(), 1);
    EXPECT_EQ(flags.Bytes().back(), 1);
}

TEST(HeldNotes, ResetVisibleKeysClearsThoseOnScreenOnly)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    for (const int note : {35, 36, 96, 97}) {
        form.notes.HeldNotes.Set(note, true);
    }
    RepaintHeldKeys(form);
    EXPECT_EQ(link.Dots(), (Ints{0, 60}));
    ResetVisibleKeys(form);
    EXPECT_EQ(link.Held(), (Ints{35, 97}));
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_TRUE(AnyNoteHeld(form));
    form.notes.HeldNotes.Clear();
    EXPECT_FALSE(AnyNoteHeld(form));
}

TEST(HeldNotes, RepaintKeysUpLeavesTheFlags)
{
    KeyboardLink link;
    frmTastiera &form = link.Open();
    form.notes.HeldNotes.Set(60, true);
    RepaintHeldKeys(form);
    RepaintKeysUp(form);
    EXPECT_EQ(link.Dots(), Ints{});
    EXPECT_EQ(link.Held(), (Ints{60}));
}

} // namespace
} // namespace velluto::test
