// A real mouse that presses the keys of the on-screen keyboard, and what can come in between.
#include "desktop/KeyboardDesk.h"

namespace velluto::test {

namespace {

class PianoPress : public KeyboardDesk {};

TEST_F(PianoPress, EveryKeyIsFoundWhereItIsDrawnAndBlackKeysFirst)
{
    frmTastiera &form = Open();
    for (const int y : {0, 500, 970}) {
        for (int key = 0; key < 61; ++key) {
            EXPECT_EQ(Keys().KeyAt(On(key, y)), key) << key << " at " << y;
        }
    }
    for (int key = 0; key < 61; ++key) {
        const QRectF rect = Keys().RectOf(key);
        if (form.Key[key].black) {
            EXPECT_EQ(Keys().KeyAt(rect.topLeft()), key);
            EXPECT_NE(Keys().KeyAt(rect.bottomLeft()), key); // below it lies a white one
        } else {
            EXPECT_EQ(Keys().KeyAt(QPointF(rect.left(), rect.bottom() - 0.25)), key);
        }
    }
    EXPECT_EQ(Keys().KeyAt(QPointF(-1, 5)), -1);
    EXPECT_EQ(Keys().KeyAt(QPointF(5, Keys().height())), -1);
    EXPECT_EQ(Keys().KeyAt(QPointF(Keys().width(), 5)), -1);
}

TEST_F(PianoPress, APressOfTheMousePlaysAndItsReleaseEnds)
{
    Open();
    QTest::mousePress(&Keys(), Qt::LeftButton, {}, On(24).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60)));
    EXPECT_TRUE(Form().Key[24].dot);
    QTest::mouseRelease(&Keys(), Qt::LeftButton, {}, On(24).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
}

TEST_F(PianoPress, APressReleasedElsewhereEndsThePressedKey)
{
    Open();
    Down(On(24));
    Move(On(40), Qt::LeftButton);
    Move(QPointF(-300, 900), Qt::LeftButton);
    Up(QPointF(-300, 900));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(PianoPress, ASecondPressOfADoubleClickPlaysToo)
{
    Open();
    Down(On(24));
    Up(On(24));
    Send(QEvent::MouseButtonDblClick, On(24), Qt::LeftButton, Qt::LeftButton);
    Up(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60), NoteOn(60), NoteOff(60)));
}

TEST_F(PianoPress, ARightPressPlaysAndPopsUpNoMenu)
{
    Open();
    QTest::mouseClick(&Keys(), Qt::RightButton, {}, On(0).toPoint());
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(36), NoteOff(36)));
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
}

TEST_F(PianoPress, WhileOneButtonHoldsAKeyTheOthersSayNothing)
{
    Open();
    Down(On(24));
    Send(QEvent::MouseButtonPress, On(30), Qt::RightButton, Qt::LeftButton | Qt::RightButton);
    Send(QEvent::MouseButtonRelease, On(30), Qt::RightButton, Qt::LeftButton);
    Up(On(24));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(PianoPress, APressWhoseReleaseGotLostEndsAtTheNextMove)
{
    Open();
    Down(On(24));
    Move(On(26));
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(PianoPress, WhatTheKeysPlayChangesOnlyOnceNoneIsPressed)
{
    Open();
    Form().HScroll1.value = 2;
    const auto change = [this](QWidget &widget, int key) {
        Down(On(24));
        Taken();
        widget.setFocus();
        QTest::keyClick(&widget, static_cast<Qt::Key>(key));
        EXPECT_THAT(Taken(), ElementsAre(NoteOff(60))) << widget.objectName().toStdString();
        Up(On(24));
        EXPECT_THAT(Taken(), IsEmpty());
    };
    change(Widget<QWidget>(Form(), "Combo1"), Qt::Key_Down);
    EXPECT_EQ(Form().Combo1.ListIndex, 1);
    Form().Combo1.ListIndex = 0;
    change(Widget<QWidget>(Form(), "CheckClickKey"), Qt::Key_Space);
    EXPECT_FALSE(Form().CheckClickKey.value);
    Form().CheckClickKey.value = true;
    change(Bar("HScroll1"), Qt::Key_Right);
    EXPECT_EQ(Form().HScroll1.value, 3);
}

TEST_F(PianoPress, AHiddenWindowLeavesNoKeyHanging)
{
    Open();
    Down(On(24));
    app.children.Minimise(Form());
    Settle();
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), NoteOff(60)));
}

TEST_F(PianoPress, ABoxThatComesUpLeavesNoKeyHanging)
{
    Open();
    Down(On(24));
    Taken();
    WhenModal([](QWidget &box) { box.close(); });
    face.MessageBox("Velluto", "a box from elsewhere", Box::kNotice);
    EXPECT_THAT(Taken(), ElementsAre(NoteOff(60)));
    Up(On(24));
    EXPECT_THAT(Taken(), IsEmpty());
}

TEST_F(PianoPress, APressWhoseSendFailsIsOverOnceTheBoxIsClosed)
{
    Open();
    midi.outs[0].codes.send = 5;
    WhenModal([](QWidget &box) { box.close(); });
    Down(On(24));
    EXPECT_FALSE(Form().Key[24].dot);
    EXPECT_EQ(Form().Text1.text.Get(), "");
    Up(On(24));
    EXPECT_EQ(midi.sent.size(), 1U); // the one that failed
}

TEST_F(PianoPress, ClosedInTheMiddleOfAPressTheKeyIsSilencedOnce)
{
    Open();
    Down(On(24));
    Piano &keys = Keys();
    ASSERT_TRUE(app.children.Unload(Form()));
    EXPECT_EQ(keys.KeyCount(), 0);
    QMouseEvent up(QEvent::MouseButtonRelease, QPointF(5, 5), keys.mapToGlobal(QPointF(5, 5)), Qt::LeftButton, {}, {});
    QCoreApplication::sendEvent(&keys, &up);
    EXPECT_THAT(Taken(), ElementsAre(NoteOn(60), AllNotesOff()));
}

TEST_F(PianoPress, ADotIsDrawnOnASoundingKeyBlackOnWhiteAndGreenOnBlack)
{
    Open(true, true);
    const auto colourAt = [this](int key) {
        const QRectF rect = Keys().RectOf(key);
        const QImage drawn = Keys().grab().toImage();
        const double dots = drawn.devicePixelRatio();
        const double y = rect.bottom() - rect.width() * 0.73;
        return drawn.pixelColor(static_cast<int>(rect.center().x() * dots), static_cast<int>(y * dots));
    };
    EXPECT_EQ(colourAt(0), QColor(Qt::white));
    const QColor plainBlack = colourAt(1);
    Down(On(0));
    Up(On(0));
    Down(On(1));
    Up(On(1));
    EXPECT_EQ(colourAt(0), QColor(Qt::black));
    EXPECT_EQ(colourAt(1), QColor(0, 255, 0));
    Down(On(0));
    Up(On(0));
    Down(On(1));
    EXPECT_EQ(colourAt(0), QColor(Qt::white));
    EXPECT_EQ(colourAt(1), plainBlack);
}

} // namespace

} // namespace velluto::test
