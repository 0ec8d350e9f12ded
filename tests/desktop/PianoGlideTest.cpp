// A real mouse that passes over the keys of the on-screen keyboard.
#include "desktop/KeyboardDesk.h"

#include <QFrame>

namespace velluto::test {

namespace {

class PianoGlide : public KeyboardDesk {};

TEST_F(PianoGlide, AGlideOverTenKeysGivesTenPairsInOrder)
{
    Open(false);
    for (int key = 0; key < 10; ++key) {
        Move(On(key));
    }
    LeavePiano();
    std::vector<testing::Matcher<std::uint32_t>> pairs;
    for (std::uint32_t note = 36; note < 46; ++note) {
        pairs.emplace_back(NoteOn(note));
        pairs.emplace_back(NoteOff(note));
    }
    EXPECT_THAT(Taken(), testing::ElementsAreArray(pairs));
}

TEST_F(PianoGlide, AGlideTooFastToBeSeenOnEveryKeyStillPlaysEachKeyOnTheWay)
{
    Open(false);
    Move(On(0, 1200));
    Move(On(12, 1200));
    // Below the black keys: the white ones of an octave.
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36), NoteOn(38), NoteOff(38), NoteOn(40), NoteOff(40), NoteOn(41), NoteOff(41),
                                     NoteOn(43), NoteOff(43), NoteOn(45), NoteOff(45), NoteOn(47), NoteOff(47), NoteOn(48)));
    Move(On(11, 10));
    Taken();
    Move(On(0, 10));
    // At their upper end: all of them.
    Sent down;
    for (std::uint32_t note = 47; note > 36; --note) {
        down.push_back(NoteOff(note));
        down.push_back(NoteOn(note - 1));
    }
    EXPECT_EQ(Taken(), down);
}

TEST_F(PianoGlide, WhereThePointerComesBackElsewhereNothingLiesBetween)
{
    Open(false);
    Move(On(0));
    LeavePiano();
    Taken();
    Move(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
}

TEST_F(PianoGlide, AGlideWithAButtonHeldPlaysTheKeyUnderThePointer)
{
    Open(false);
    Move(On(0));
    Down(On(0));
    Move(On(2), Qt::LeftButton);
    Up(On(2));
    // Outside the piano, with the button held, no leaving is told.
    Down(On(2));
    Move(QPointF(On(2).x(), -40), Qt::LeftButton);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36), NoteOn(37), NoteOff(37), NoteOn(38), NoteOff(38)));
}

TEST_F(PianoGlide, TheHeightOfThePointerIsHandedOnInTheKeysOwnTwips)
{
    Open(false);
    Move(On(0, 1300));
    Move(On(0, 1355));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36)));
    Move(On(0, 1385));
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(36)));
    Move(On(1, 900));
    Move(On(1, 925));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(37)));
    Move(On(1, 950));
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(37)));
}

TEST_F(PianoGlide, OverTheFrameOrTheWindowAGlideEnds)
{
    Open(false);
    auto &frame = Widget<QFrame>(Form(), "Frame1");
    for (QWidget *around : {static_cast<QWidget *>(&frame), frame.parentWidget()}) {
        Form().Key[24].MouseMove(10);
        EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
        QMouseEvent over(QEvent::MouseMove, QPointF(1, 1), around->mapToGlobal(QPointF(1, 1)), Qt::NoButton, {}, {});
        QCoreApplication::sendEvent(around, &over);
        EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
    }
}

TEST_F(PianoGlide, AGlideEndsWhereTheWindowIsHidden)
{
    Open(false);
    Move(On(24));
    app.children.Minimise(Form());
    Settle();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

} // namespace

} // namespace velluto::test
