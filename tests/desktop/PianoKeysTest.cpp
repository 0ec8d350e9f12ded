// The on-screen keyboard without a mouse: real keys, and a screen reader.
#include "desktop/KeyboardDesk.h"

#include <QAccessible>

namespace velluto::test {

namespace {

class PianoKeys : public KeyboardDesk {
protected:
    // What has been sent, once it is so many messages.
    auto TakenSoon(std::size_t count)
    {
        auto taken = Taken();
        EXPECT_TRUE(QTest::qWaitFor([&] {
            const auto more = Taken();
            taken.insert(taken.end(), more.begin(), more.end());
            return taken.size() >= count;
        }));
        return taken;
    }

    // An event of the Space bar as the display tells it.
    void SpaceAt(QEvent::Type type, quint64 milliseconds)
    {
        QKeyEvent event(type, Qt::Key_Space, Qt::NoModifier);
        event.setTimestamp(milliseconds);
        QApplication::sendEvent(&Keys(), &event);
    }
};

TEST_F(PianoKeys, ThePianoIsPlayedFromTheComputersKeys)
{
    Open();
    Keys().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Left);
    QTest::keyPress(&Keys(), Qt::Key_Space);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37)));
    QTest::keyRelease(&Keys(), Qt::Key_Space);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(37)));
    QTest::keyClick(&Keys(), Qt::Key_End);
    QTest::keyClick(&Keys(), Qt::Key_Return);
    EXPECT_THAT(TakenSoon(2), ElementsAre(NoteOn(96), NoteOff(96)));
    QTest::keyClick(&Keys(), Qt::Key_Home);
    QTest::keyPress(&Keys(), Qt::Key_Space);
    Bar("VScroll(0)").setFocus();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36)));
}

TEST_F(PianoKeys, AKeyThatRepeatsHoldsItsNote)
{
    Open();
    Keys().setFocus(Qt::TabFocusReason);
    SpaceAt(QEvent::KeyPress, 1000);
    for (quint64 at = 1500; at < 1800; at += 30) {
        SpaceAt(QEvent::KeyRelease, at);
        SpaceAt(QEvent::KeyPress, at);
    }
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36)));
    SpaceAt(QEvent::KeyRelease, 1800);
    EXPECT_THAT(TakenSoon(1), ElementsAre(NoteOff(36)));
}

TEST_F(PianoKeys, AKeyPressedAgainAtOnceSoundsAgain)
{
    Open();
    Keys().setFocus(Qt::TabFocusReason);
    SpaceAt(QEvent::KeyPress, 1000);
    SpaceAt(QEvent::KeyRelease, 1010);
    SpaceAt(QEvent::KeyPress, 1011);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36), NoteOn(36)));
}

TEST_F(PianoKeys, InGlideModeTheArrowKeysGlide)
{
    Open(false);
    Keys().setFocus(Qt::TabFocusReason);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    QTest::keyClick(&Keys(), Qt::Key_Right);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37), NoteOff(37), NoteOn(38)));
    Bar("VScroll(0)").setFocus();
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(38)));
}

TEST_F(PianoKeys, AScreenReaderMeetsSixtyOneNamedButtons)
{
    Open(true, true);
    QAccessibleInterface *piano = QAccessible::queryAccessibleInterface(&Keys());
    ASSERT_NE(piano, nullptr);
    EXPECT_EQ(piano->text(QAccessible::Name), QStringLiteral("Keyboard"));
    ASSERT_EQ(piano->childCount(), 61);
    QAccessibleInterface *key = piano->child(24);
    EXPECT_EQ(key->role(), QAccessible::Button);
    EXPECT_EQ(key->text(QAccessible::Name), QStringLiteral("C/Do (60)"));
    EXPECT_EQ(piano->indexOfChild(key), 24);
    EXPECT_EQ(key->parent(), piano);
    const QRect place = key->rect();
    EXPECT_EQ(piano->childAt(place.center().x(), place.bottom() - 2), key);
    EXPECT_FALSE(key->state().pressed);
    key->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
    EXPECT_TRUE(key->state().pressed);
    Form().HScroll1.value = 3;
    EXPECT_EQ(key->text(QAccessible::Name), QStringLiteral("C/Do (72)"));
    EXPECT_EQ(piano->child(61), nullptr);
    EXPECT_EQ(piano->child(-1), nullptr);
}

TEST_F(PianoKeys, TheTabKeyReachesThePianoOnceAndEverySlider)
{
    Open();
    std::vector<QString> reached;
    QWidget *start = &Keys();
    start->setFocus();
    for (QWidget *at = start; reached.empty() || at != start; at = at->nextInFocusChain()) {
        if ((at->focusPolicy() & Qt::TabFocus) != 0 && at->isVisible() && Window(Form()).isAncestorOf(at)) {
            reached.push_back(at->objectName());
        }
    }
    for (const char *name : {"Piano", "Combo1", "HScroll1", "CheckClickKey", "CheckHoldNote", "CommHoldChord", "CommAllNoteOff",
                             "VScroll(0)", "VScroll(10)", "CommClose"}) {
        EXPECT_EQ(std::ranges::count(reached, QString::fromLatin1(name)), 1) << name;
    }
    EXPECT_FALSE(std::ranges::count(reached, QStringLiteral("VScroll1"))); // hidden
}

} // namespace

} // namespace velluto::test
