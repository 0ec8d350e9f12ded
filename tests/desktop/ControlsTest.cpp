// Hands on the plain controls, and changes of the program that no hand made.
#include "desktop/Desk.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ControlsTest : public Desk {
protected:
    void SetUp() override
    {
        Start();
        app.children.Show(form);
        Settle();
    }

    StubForm form;
};

TEST_F(ControlsTest, AButtonIsPressed)
{
    QTest::mouseClick(&Widget<QPushButton>(form, "Push"), Qt::LeftButton);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Push"));
}

TEST_F(ControlsTest, ADisabledButtonIsNot)
{
    form.Push.enabled = false;
    QTest::mouseClick(&Widget<QPushButton>(form, "Push"), Qt::LeftButton);
    EXPECT_THAT(form.TakeHeard(), IsEmpty());
}

TEST_F(ControlsTest, ACheckBoxFlipsOnceForEachPress)
{
    auto &box = Widget<QCheckBox>(form, "Box");
    QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_TRUE(form.Box.value);
    EXPECT_TRUE(box.isChecked());
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Box on"));
    form.Box.value = false;
    EXPECT_FALSE(box.isChecked());
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Box off"));
}

TEST_F(ControlsTest, AComboBoxChosenByKeyIsToldAndOneSetByTheProgramIsShown)
{
    auto &choice = Widget<QComboBox>(form, "Choice");
    form.Choice.ListIndex = 0;
    form.heard.clear();
    QTest::keyClick(&choice, Qt::Key_Down);
    EXPECT_EQ(form.Choice.ListIndex, 1);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Choice 1"));
    form.Choice.ListIndex = 2;
    EXPECT_EQ(choice.currentIndex(), 2);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Choice 2"));
    EXPECT_FALSE(choice.isEditable());
}

TEST_F(ControlsTest, AWheelTurnedOverAComboBoxInPassingChangesNothing)
{
    auto &choice = Widget<QComboBox>(form, "Choice");
    form.Choice.ListIndex = 0;
    List(form).setFocus();
    QWheelEvent turned(QPointF(5, 5), choice.mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120), Qt::NoButton, {}, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&choice, &turned);
    EXPECT_EQ(form.Choice.ListIndex, 0);
}

TEST_F(ControlsTest, TypingInALineIsToldWithTheCaret)
{
    auto &line = Widget<QLineEdit>(form, "Line");
    line.setFocus();
    QTest::keyClicks(&line, QStringLiteral("ab"));
    EXPECT_EQ(form.Line.text.Get(), "ab");
    EXPECT_EQ(form.Line.caret, 2);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Line a", "Line ab"));
    form.Line.text = std::string("from the program");
    EXPECT_EQ(line.text(), QStringLiteral("from the program"));
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Line from the program"));
}

TEST_F(ControlsTest, LinesOfATextBoxEndInCrLfForTheProgram)
{
    auto &many = Widget<QPlainTextEdit>(form, "Many");
    form.Many.text = std::string("one\r\ntwo");
    EXPECT_EQ(many.toPlainText(), QStringLiteral("one\ntwo"));
    many.setFocus();
    QTest::keyClick(&many, Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(form.Many.caret, 8);
    QTest::keyClick(&many, Qt::Key_Return);
    EXPECT_EQ(form.Many.text.Get(), "one\r\ntwo\r\n");
    EXPECT_EQ(form.Many.caret, 10);
    form.Many.caret = 5;
    EXPECT_EQ(many.textCursor().position(), 4);
}

TEST_F(ControlsTest, AFocusedTextBoxKeepsItsEditingKeysFromTheMenu)
{
    int copied = 0;
    app.frame.mnuCopia.Click = [&copied] { ++copied; };
    app.frame.mnuModifica.enabled = true;
    app.frame.mnuModifica.Drop = [this] { app.frame.mnuCopia.enabled = true; };
    auto &line = Widget<QLineEdit>(form, "Line");
    line.setFocus();
    QTest::keyClicks(&line, QStringLiteral("words"));
    QTest::keyClick(&line, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&line, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied, 0);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("words"));
    // The same keys on a list are the menu's.
    List(form).setFocus();
    QTest::keyClick(&List(form), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied, 1);
}

TEST_F(ControlsTest, ATextOfTheProgramsOwnIsDrawnOnceTheEventIsOver)
{
    StubForm &monitor = NewForm();
    monitor.Many.readOnly = true;
    app.children.Show(monitor);
    Settle();
    monitor.Many.text = std::string("90 3C 64 \r\n\r\n");
    monitor.Many.text = std::string("B0 00 79 \r\n\r\n");
    Settle();
    EXPECT_EQ(Widget<QPlainTextEdit>(monitor, "Many").toPlainText(), QStringLiteral("B0 00 79 \n\n"));
}

TEST_F(ControlsTest, TheRightButtonOnATextBoxIsTheProgramsWhereItWantsIt)
{
    form.Many.MouseDown = [this](int button) { form.heard.push_back("Many " + std::to_string(button)); };
    QTest::mouseClick(Widget<QPlainTextEdit>(form, "Many").viewport(), Qt::RightButton);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Many 2"));
}

TEST_F(ControlsTest, ALabelTooLongForItsPlaceEndsInDotsAndTellsAllInItsTip)
{
    auto &words = Widget<QLabel>(form, "Words");
    EXPECT_EQ(words.width(), ToPixels(1400));
    const QImage drawn = words.grab().toImage();
    int inked = 0; // columns at the right edge that hold ink
    for (int y = 0; y < drawn.height(); ++y) {
        inked += drawn.pixelColor(drawn.width() - 1, y) == drawn.pixelColor(0, 0) ? 0 : 1;
    }
    EXPECT_EQ(inked, 0);
    EXPECT_EQ(words.accessibleName(), words.text());
}

TEST_F(ControlsTest, ATimerTicksWhileItIsEnabledAndNeverInsideAHandler)
{
    int ticks = 0;
    form.Clock.Tick = [&ticks] { ++ticks; };
    form.Clock.enabled = true;
    EXPECT_TRUE(QTest::qWaitFor([&ticks] { return ticks > 0; }));
    int inside = 0;
    form.Push.Click = [&ticks, &inside] {
        const int before = ticks;
        int others = 0; // another clock as fast, to know that time has passed
        QTimer other;
        QObject::connect(&other, &QTimer::timeout, &other, [&others] { ++others; });
        other.start(1);
        EXPECT_TRUE(QTest::qWaitFor([&others] { return others > 5; }));
        inside = ticks - before;
    };
    QTest::mouseClick(&Widget<QPushButton>(form, "Push"), Qt::LeftButton);
    EXPECT_EQ(inside, 0);
    form.Clock.enabled = false;
}

TEST_F(ControlsTest, WhatIsHiddenOrDisabledLooksSo)
{
    form.Push.visible = false;
    form.List1.enabled = false;
    EXPECT_FALSE(Widget<QPushButton>(form, "Push").isVisible());
    EXPECT_FALSE(List(form).isEnabled());
}

TEST_F(ControlsTest, NeighboursStayNeighboursAtAnyResolution)
{
    const QRect left = ToPixels(Place{7, 7, 1000, 300});
    const QRect right = ToPixels(Place{1007, 7, 1000, 300});
    EXPECT_EQ(left.right() + 1, right.left());
    for (int pixels = -2000; pixels <= 5000; ++pixels) {
        ASSERT_EQ(ToPixels(ToTwips(pixels)), pixels);
    }
}

} // namespace

} // namespace velluto::test
