// The piano under the computer's letter keys, by their place on the keyboard.
#include "desktop/KeyboardDesk.h"

namespace velluto::test {

namespace {

// As Windows counts the keys of an English keyboard; X11 and Wayland begin at 8.
#ifdef _WIN32
constexpr quint32 kFirst = 0;
#else
constexpr quint32 kFirst = 8;
#endif
constexpr quint32 kZ = kFirst + 44;
constexpr quint32 kX = kFirst + 45;
constexpr quint32 kComma = kFirst + 51;
constexpr quint32 kQ = kFirst + 16;
constexpr quint32 kEscape = kFirst + 1;

class LetterKeysTest : public KeyboardDesk {
protected:
    void OpenPiano(bool click = true)
    {
        Open(click);
        Keys().setFocus(Qt::TabFocusReason);
    }
    void Tell(QEvent::Type type, quint32 scanCode, quint64 at, Qt::KeyboardModifiers modifiers = {}, int key = Qt::Key_Y)
    {
        QKeyEvent event(type, key, modifiers, scanCode, 0, 0);
        event.setTimestamp(at);
        QCoreApplication::sendEvent(&Keys(), &event);
    }
    void Press(quint32 scanCode, quint64 at = 1000) { Tell(QEvent::KeyPress, scanCode, at); }
    void Release(quint32 scanCode, quint64 at = 2000) { Tell(QEvent::KeyRelease, scanCode, at); }
    Sent TakenSoon(std::size_t count)
    {
        EXPECT_TRUE(QTest::qWaitFor([&] { return midi.sent.size() >= count; }));
        return Taken();
    }
};

TEST_F(LetterKeysTest, TwoRowsPlayByTheirPlaceAndNotByTheirLetter)
{
    OpenPiano();
    Press(kZ);
    Press(kQ);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOn(72)));
    Release(kZ);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(60)));
    Release(kQ);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(72)));
}

TEST_F(LetterKeysTest, AKeyThatRepeatsSoundsOnce)
{
    OpenPiano();
    Press(kZ);
    for (quint64 at = 1500; at < 1700; at += 30) {
        Release(kZ, at);
        Press(kZ, at);
    }
    QTest::qWait(5);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
    Release(kZ, 1800);
    Press(kZ, 1801);
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(60), NoteOn(60)));
}

TEST_F(LetterKeysTest, TheSameNoteOfBothRowsEndsWithTheLastOfItsKeys)
{
    OpenPiano();
    Press(kComma);
    Press(kQ);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(72)));
    Release(kComma);
    QTest::qWait(10);
    EXPECT_THAT(Taken(), IsEmpty());
    Release(kQ);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(72)));
}

TEST_F(LetterKeysTest, ALostFocusEndsTheNotes)
{
    OpenPiano();
    Press(kZ);
    Press(kX);
    Taken();
    Bar("VScroll(0)").setFocus();
    EXPECT_THAT(Taken(), testing::UnorderedElementsAre(NoteOff(60), NoteOff(62)));
}

TEST_F(LetterKeysTest, AnOctaveTurnedByTheWheelLeavesNoNoteHanging)
{
    OpenPiano();
    Press(kZ);
    Press(kX);
    Taken();
    Turn(Bar("HScroll1"), 120);
    EXPECT_EQ(Form().HScroll1.value, 3);
    EXPECT_THAT(Taken(), testing::UnorderedElementsAre(NoteOff(60), NoteOff(62)));
    Release(kZ);
    Release(kX);
    Press(kZ, 3000);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(72)));
}

TEST_F(LetterKeysTest, ASliderThatTheKeysDoNotDependOnLeavesThemHeld)
{
    OpenPiano();
    Press(kZ);
    Taken();
    Turn(Bar("VScroll(0)"), -120);
    EXPECT_THAT(Taken(), testing::SizeIs(1)); // the controller's message
    Release(kZ);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(60)));
}

TEST_F(LetterKeysTest, WithCtrlTheyAreShortcutsAndOtherKeysAreNoLetters)
{
    OpenPiano();
    Tell(QEvent::KeyPress, kX, 1000, Qt::ControlModifier);
    Tell(QEvent::KeyPress, kX, 1000, Qt::AltModifier);
    Press(kEscape);
    Press(0);
    EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(LetterKeysTest, InGlideModeTheLastKeyHeldSounds)
{
    OpenPiano(false);
    Press(kZ);
    Press(kX);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60), NoteOn(62)));
    Release(kX);
    EXPECT_THAT(TakenSoon(2), ElementsAre(NoteOff(62), NoteOn(60)));
    Release(kZ);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(60)));
}

} // namespace

} // namespace velluto::test
