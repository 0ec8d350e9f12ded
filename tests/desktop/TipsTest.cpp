// What the desktop says beyond the controls themselves: tool tips, marks, headings, the empty frame, the monitor's words.
#include "desktop/Tips.h"
#include "desktop/FittedButton.h"
#include "desktop/KeyboardDesk.h"

#include <QEnterEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolTip>

#include <algorithm>

namespace velluto::test {

namespace {

class TipsTest : public KeyboardDesk {
protected:
    static QString AskedAt(QWidget &widget)
    {
        QToolTip::hideText();
        QHelpEvent ask(QEvent::ToolTip, QPoint(5, 5), widget.mapToGlobal(QPoint(5, 5)));
        QCoreApplication::sendEvent(&widget, &ask);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }
    // Everything that the list's viewport shows.
    static QImage Seen(QWidget &widget) { return widget.grab().toImage(); }
    std::string Sample(const char *name)
    {
        const std::string path = folder->At(name);
        std::filesystem::copy_file(std::filesystem::path(VELLUTO_SAMPLES) / name, path);
        return path;
    }
};

TEST_F(TipsTest, ShortTitlesOfSlidersHaveTheirWholeWords)
{
    Open();
    EXPECT_TRUE(Widget<QWidget>(Form(), "Label2(7)").toolTip().startsWith(QStringLiteral("Pitch modulation (controller 1)")));
    EXPECT_TRUE(Widget<QWidget>(Form(), "Label2(7)").toolTip().endsWith(FromUtf8(Form().Label2[7].toolTip.Get())));
    EXPECT_EQ(Bar("VScroll(4)").toolTip(), QStringLiteral("Attack time (controller 73)"));
    EXPECT_TRUE(Widget<QWidget>(Form(), "Combo1").toolTip().contains(QStringLiteral("All Notes Off")));
}

TEST_F(TipsTest, ATipGetsOutOfThePointersWay)
{
    Open();
    ASSERT_NE(AskedAt(Widget<QWidget>(Form(), "Combo1")), QString());
    const auto tops = QApplication::topLevelWidgets();
    const auto tip = std::ranges::find_if(tops, [](const QWidget *top) { return top->windowType() == Qt::ToolTip && top->isVisible(); });
    ASSERT_NE(tip, tops.end());
    QEnterEvent enter(QPointF(3, 3), QPointF(3, 3), (*tip)->mapToGlobal(QPointF(3, 3)));
    QCoreApplication::sendEvent(*tip, &enter);
    EXPECT_FALSE(QToolTip::isVisible());
}

TEST_F(TipsTest, AListOfABankTellsItsRole)
{
    ChooseMenu(app.frame.mnuBankA);
    Settle();
    const class Form &bank = *app.children.Active();
    app.settings.PlacementTable[1].Role = 0;
    EXPECT_EQ(AskedAt(*List(bank).viewport()), QStringLiteral("role: OFF"));
    app.settings.PlacementTable[1].Role = 14;
    EXPECT_TRUE(AskedAt(*List(bank).viewport()).startsWith(QStringLiteral("role: CONTRL (control channel")));
}

TEST_F(TipsTest, AGreyEntryWhoseWindowIsOpenSaysSo)
{
    Open();
    EXPECT_EQ(TipOfEntry(app.frame.mnuTastiera, app.children.All()), QStringLiteral("open: see Window"));
    EXPECT_EQ(TipOfEntry(app.frame.mnuMsgEx, app.children.All()), QString());
    EXPECT_EQ(TipOfEntry(app.frame.mnuPcgUser[9], app.children.All()), QString()); // grey since no file is tied
    EXPECT_EQ(TipOfEntry(app.frame.mnuMIDIStp[1], app.children.All()), QStringLiteral("lower part"));
    ActionOf(app.frame.mnuView)->menu()->popup(QPoint(5, 5));
    Settle();
    EXPECT_EQ(ActionOf(app.frame.mnuTastiera)->toolTip(), QStringLiteral("open: see Window"));
    ActionOf(app.frame.mnuView)->menu()->hide();
}

TEST_F(TipsTest, TitlesAmongTheEntriesAreBold)
{
    EXPECT_TRUE(ActionOf(app.frame.mnuBanks)->font().bold());
    EXPECT_TRUE(ActionOf(app.frame.mnuBanksSty)->font().bold());
    EXPECT_TRUE(ActionOf(app.frame.mnuBanksPrf)->font().bold());
    EXPECT_FALSE(ActionOf(app.frame.mnuBankA)->font().bold());
    EXPECT_FALSE(ActionOf(app.frame.mnuStyDirectHD19)->font().bold());
}

TEST_F(TipsTest, ATiedButtonAndAChangedDocumentShowIt)
{
    const std::string path = Sample("Full-64.pcg");
    OpenFileByName(program, path);
    Settle();
    class Form &window = *app.children.Active();
    auto &button = Widget<FittedButton>(window, "CommUser(10)");
    EXPECT_FALSE(button.property(kTiedProperty).toBool());
    const QImage untied = Seen(button);
    QTest::mouseClick(&button, Qt::LeftButton);
    Settle();
    EXPECT_TRUE(button.property(kTiedProperty).toBool());
    EXPECT_NE(Seen(button), untied);
    const auto icon = [&] { return Window(window).windowIcon().pixmap(16).toImage(); };
    const QImage unchanged = icon();
    window.Tag.Set(TagPosition::Modified, 1);
    ClickRow(window, 3);
    Settle();
    EXPECT_NE(icon(), unchanged);
    window.Tag.Set(TagPosition::Modified, 0);
    ClickRow(window, 4);
    Settle();
    EXPECT_EQ(icon(), unchanged);
}

TEST_F(TipsTest, AnEmptyFrameSaysHowToBegin)
{
    auto *hint = Frame().findChild<QWidget *>(QStringLiteral("EmptyHint"));
    ASSERT_NE(hint, nullptr);
    const QImage empty = Frame().Area().viewport()->grab().toImage();
    const QRgb ground = empty.pixel(2, 2);
    int inked = 0;
    for (int x = 0; x < empty.width(); ++x) {
        for (int y = 0; y < empty.height(); ++y) {
            inked += empty.pixel(x, y) != ground ? 1 : 0;
        }
    }
    EXPECT_GT(inked, 100);
    Open();
    Frame().Area().viewport()->repaint();
    EXPECT_EQ(Frame().Area().viewport()->grab().toImage().pixel(2, empty.height() - 2), ground);
}

TEST_F(TipsTest, TheMonitorSaysInWordsWhatTheLastBytesWere)
{
    Open();
    ChooseMenu(app.frame.mnuMsgEx);
    Settle();
    auto &words = Widget<QLabel>(*app.children.Active(), "MonitorWords");
    Keys().PressAndRelease(24);
    Settle();
    EXPECT_EQ(words.text(), QStringLiteral("channel 1: note off C4 (60), velocity 64"));
    EXPECT_GT(words.height(), 10);
}

} // namespace

} // namespace velluto::test
