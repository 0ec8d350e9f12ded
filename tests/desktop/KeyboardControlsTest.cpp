// The sliders and boxes of the keyboard's window under a real mouse, wheel and keys.
#include "desktop/KeyboardDesk.h"

#include <QCheckBox>
#include <QLabel>

namespace velluto::test {

namespace {

class KeyboardControls : public KeyboardDesk {};

TEST_F(KeyboardControls, ASliderHas127AtItsTop)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    EXPECT_EQ(bar.minimum(), 0);
    EXPECT_EQ(bar.maximum(), 127);
    EXPECT_EQ(bar.value(), 100);
    EXPECT_FALSE(bar.invertedAppearance());
    EXPECT_EQ(bar.orientation(), Qt::Vertical);
    EXPECT_EQ(bar.accessibleName(), QStringLiteral("Volume"));
    EXPECT_EQ(Bar("HScroll1").orientation(), Qt::Horizontal);
    EXPECT_FALSE(Bar("HScroll1").invertedAppearance());
}

TEST_F(KeyboardControls, KeysMoveASliderBySmallAndLargeSteps)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    bar.setFocus();
    QTest::keyClick(&bar, Qt::Key_Up);
    QTest::keyClick(&bar, Qt::Key_PageDown);
    QTest::keyClick(&bar, Qt::Key_Home);
    QTest::keyClick(&bar, Qt::Key_Down);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 101), Controller(7, 91), Controller(7, 0)));
}

TEST_F(KeyboardControls, TheWheelMovesASliderBySmallStepsAndWithCtrlByLargeOnes)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    Turn(bar, 120);
    Turn(bar, -240);
    Turn(bar, -120, Qt::ControlModifier);
    Turn(bar, 120, Qt::ShiftModifier);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 101), Controller(7, 99), Controller(7, 89), Controller(7, 99)));
    Turn(bar, 50);
    Turn(bar, 50);
    EXPECT_THAT(Taken(), IsEmpty());
    Turn(bar, 50);
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, 100)));
}

TEST_F(KeyboardControls, ADraggedSliderIsHeardAllTheWayAndOnceMoreWhenItIsLetGo)
{
    Open();
    QSlider &bar = Bar("VScroll(0)");
    QStyleOptionSlider option;
    option.initFrom(&bar);
    option.orientation = Qt::Vertical;
    option.minimum = 0;
    option.maximum = 127;
    option.sliderPosition = 100;
    option.sliderValue = 100;
    option.upsideDown = true;
    option.subControls = QStyle::SC_All;
    const QPoint grip = bar.style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &bar).center();
    const auto send = [&bar](QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons held) {
        QMouseEvent event(type, at, bar.mapToGlobal(QPointF(at)), button, held, {});
        QCoreApplication::sendEvent(&bar, &event);
    };
    send(QEvent::MouseButtonPress, grip, Qt::LeftButton, Qt::LeftButton);
    send(QEvent::MouseMove, grip + QPoint(0, 20), Qt::NoButton, Qt::LeftButton);
    const int first = bar.value();
    send(QEvent::MouseMove, grip + QPoint(0, 40), Qt::NoButton, Qt::LeftButton);
    const int second = bar.value();
    EXPECT_LT(second, first);
    EXPECT_LT(first, 100);
    send(QEvent::MouseButtonRelease, grip + QPoint(0, 40), Qt::LeftButton, {});
    const auto value = [](int of) { return static_cast<std::uint32_t>(of); };
    EXPECT_THAT(Taken(), ElementsAre(Controller(7, value(first)), Controller(7, value(second)), Controller(7, value(second))));
}

TEST_F(KeyboardControls, WhatTheProgramSetsIsShownAndNotSentBack)
{
    Open();
    Form().VScroll[1].value = 10;
    EXPECT_EQ(Bar("VScroll(1)").value(), 10);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label3(1)").text(), QStringLiteral("-54"));
    EXPECT_THAT(Taken(), ElementsAre(Controller(10, 10)));
}

TEST_F(KeyboardControls, ADoubleClickOnATitleGoesBackToTheFirstRunsValue)
{
    Open();
    Form().VScroll[6].value = 0;
    Taken();
    auto &title = Widget<QLabel>(Form(), "Label2(6)");
    QTest::mouseClick(&title, Qt::LeftButton);
    QTest::mouseDClick(&title, Qt::LeftButton);
    EXPECT_THAT(Taken(), ElementsAre(PitchBend(64)));
    EXPECT_EQ(Bar("VScroll(6)").value(), 64);
}

TEST_F(KeyboardControls, TheOctaveSliderShiftsTheCaptions)
{
    Open();
    QSlider &octave = Bar("HScroll1");
    octave.setFocus();
    QTest::keyClick(&octave, Qt::Key_Right);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label1(1)").text(), QStringLiteral("C4"));
    QTest::keyClick(&octave, Qt::Key_PageDown);
    EXPECT_EQ(Widget<QLabel>(Form(), "Label1(1)").text(), QStringLiteral("C3"));
}

TEST_F(KeyboardControls, AClickBesideTheHandleOfTheOctaveSliderMovesItByOne)
{
    Open();
    QSlider &octave = Bar("HScroll1");
    QTest::mouseClick(&octave, Qt::LeftButton, {}, QPoint(3, octave.height() / 2));
    EXPECT_EQ(octave.value(), 1);
    QTest::mouseClick(&octave, Qt::LeftButton, {}, QPoint(octave.width() - 3, octave.height() / 2));
    EXPECT_EQ(octave.value(), 2);
}

TEST_F(KeyboardControls, ABoxThatTheProgramClearsAgainLooksCleared)
{
    Open(true, true);
    Down(On(24));
    Up(On(24));
    Press(Form().CommHoldChord);
    auto &click = Widget<QCheckBox>(Form(), "CheckClickKey");
    QTest::mouseClick(&click, Qt::LeftButton, {}, QPoint(8, click.height() / 2));
    EXPECT_FALSE(click.isChecked());
    EXPECT_FALSE(Widget<QCheckBox>(Form(), "CheckHoldNote").isChecked());
}

TEST_F(KeyboardControls, TheWindowFitsASmallScreenAndNoControlCoversAnother)
{
    constexpr int kSmallScreen = 1024;
    constexpr int kScrollBar = 16; // the frame's, where the window is lower than it
    Open();
    EXPECT_LE(Window(Form()).width(), kSmallScreen - kScrollBar);
    QList<QWidget *> seen;
    for (QWidget *widget : Window(Form()).widget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly)) {
        if (widget->isVisible() && widget->objectName() != QLatin1String("Frame1")) { // which holds the piano
            seen << widget;
        }
    }
    EXPECT_GT(seen.size(), 60);
    for (const QWidget *one : seen) {
        EXPECT_TRUE(Window(Form()).widget()->rect().contains(one->geometry())) << one->objectName().toStdString();
        for (const QWidget *other : seen) {
            EXPECT_TRUE(one == other || !one->geometry().intersects(other->geometry()))
                << one->objectName().toStdString() << " and " << other->objectName().toStdString();
        }
    }
}

TEST_F(KeyboardControls, TheWindowKeepsItsSize)
{
    Open();
    const QSize natural = Window(Form()).size();
    Window(Form()).resize(300, 600);
    Settle();
    EXPECT_EQ(Window(Form()).size(), natural);
}

} // namespace

} // namespace velluto::test
