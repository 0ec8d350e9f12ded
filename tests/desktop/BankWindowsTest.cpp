// The windows of Style and Performance files and their overviews, as they stand on the screen.
#include "desktop/Desk.h"
#include "desktop/FittedButton.h"
#include "files/Banks.h"
#include "files/Opening.h"
#include "files/frmPrfUN.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUN.h"
#include "files/frmStyUserAll.h"
#include "unit/files/InstrumentFiles.h"

#include <QFontMetrics>
#include <QScrollBar>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class BankWindowsTest : public Desk {
protected:
    void SetUp() override { Start(); }

    std::string Put(const std::string &name, const Bytes &bytes)
    {
        WriteBytes(folder->At(name), bytes);
        return folder->At(name);
    }
    // Opens the file in slot 1, from the list of recent files.
    void OpenFile(const std::string &path)
    {
        app.settings.RecentTable[1].Path.Set(path);
        mnuRecentFile_Click(program.files, 1);
        Settle();
    }
    frmStyUN &StyleFile()
    {
        OpenFile(Put("a.sty", SixteenStyles()));
        return dynamic_cast<frmStyUN &>(*program.files.styles.windows[1]);
    }
    frmPrfUN &PerformanceFile()
    {
        OpenFile(Put("a.prf", InstrumentFile({{"Ballad", 0, {1}}})));
        return dynamic_cast<frmPrfUN &>(*program.files.performances.windows[1]);
    }
    static Bytes SixteenStyles()
    {
        std::vector<Item> items;
        for (int i = 0; i < 32; ++i) {
            items.push_back({"Sixteen letters!", i / 2, Bytes(static_cast<std::size_t>(1000 + i), 0x5A)});
        }
        return InstrumentFile(items);
    }
    frmStyUserAll &StyleOverview()
    {
        for (std::size_t slot = 9; slot <= 11; ++slot) {
            app.settings.StyDocTable[slot].Path.Set(Put("bank" + std::to_string(slot) + ".sty", SixteenStyles()));
        }
        ShowStyleOverview(program.files, ViewKind::StyleOverview);
        Settle();
        return dynamic_cast<frmStyUserAll &>(*program.files.overviews[1]);
    }
    std::vector<FittedButton *> ShownButtons(const Form &form)
    {
        std::vector<FittedButton *> shown;
        for (QPushButton *found : Window(form).findChildren<QPushButton *>()) {
            if (auto *button = dynamic_cast<FittedButton *>(found); button != nullptr && button->isVisible()) {
                shown.push_back(button);
            }
        }
        return shown;
    }
    // All of one width, inside the window, each in the clear, and each with all of its words in one and the same writing.
    void StandWell(const std::vector<FittedButton *> &buttons)
    {
        for (const FittedButton *button : buttons) {
            const QString words = button->text().remove(QLatin1Char('&'));
            EXPECT_EQ(button->width(), buttons.front()->width()) << words.toStdString();
            EXPECT_EQ(button->FittedFont(), buttons.front()->FittedFont()) << words.toStdString();
            EXPECT_LE(QFontMetrics(button->FittedFont()).horizontalAdvance(words), button->width() - 6) << words.toStdString();
            EXPECT_TRUE(button->parentWidget()->rect().contains(button->geometry())) << words.toStdString();
            for (const FittedButton *other : buttons) {
                EXPECT_TRUE(other == button || !other->geometry().intersects(button->geometry())) << words.toStdString();
            }
        }
    }
    // The list's rows have room for all that is in them.
    static void RowsAreWhole(const ListView &list)
    {
        const QFontMetricsF metrics(list.font());
        for (int row = 0; row < list.model()->rowCount(); ++row) {
            const QModelIndex index = list.model()->index(row, 0);
            QString text = index.data().toString();
            while (text.endsWith(QLatin1Char(' '))) {
                text.chop(1);
            }
            EXPECT_GE(list.visualRect(index).width(), metrics.horizontalAdvance(text)) << text.toStdString();
        }
    }
};

TEST_F(BankWindowsTest, TheThirteenButtonsOfAStyleFileStandInTwoRowsOfOneWidth)
{
    const frmStyUN &window = StyleFile();
    const std::vector<FittedButton *> buttons = ShownButtons(window);
    ASSERT_EQ(buttons.size(), 13U);
    StandWell(buttons);
    const auto top = [this, &window](const char *name) { return Widget<QWidget>(window, name).y(); };
    EXPECT_EQ(top("CommUser(9)"), top("CommSTS"));
    EXPECT_EQ(top("CommDirectHD(12)"), top("CommDirectHD(20)"));
    EXPECT_LT(top("CommUser(9)"), top("CommDirectHD(12)"));
}

TEST_F(BankWindowsTest, TheTwentyButtonsOfAPerformanceFileStandInTwoRowsOfTen)
{
    const frmPrfUN &window = PerformanceFile();
    const std::vector<FittedButton *> buttons = ShownButtons(window);
    ASSERT_EQ(buttons.size(), 20U);
    StandWell(buttons);
    const auto corner = [this, &window](const char *name) { return Widget<QWidget>(window, name).pos(); };
    EXPECT_EQ(corner("CommUser(1)").y(), corner("CommUser(10)").y());
    EXPECT_EQ(corner("CommUser(11)").y(), corner("CommUser(20)").y());
    EXPECT_EQ(corner("CommUser(1)").x(), corner("CommUser(11)").x());
    EXPECT_EQ(corner("CommUser(10)").x(), corner("CommUser(20)").x());
}

TEST_F(BankWindowsTest, ButtonsOfAWideWindowWriteInTheFontOfAllOthers)
{
    frmStyUN &window = StyleFile();
    window.place = Place{0, 0, 15000, 6000};
    Settle();
    StandWell(ShownButtons(window));
    EXPECT_EQ(ShownButtons(window).front()->FittedFont(), QApplication::font());
}

TEST_F(BankWindowsTest, AButtonThatIsNotShownDoesNotMakeTheOthersSmaller)
{
    QWidget row;
    FittedButton shown(QStringLiteral("OK"), &row);
    FittedButton hidden(QStringLiteral("Words for which there is no room at all"), &row);
    shown.resize(60, 24);
    hidden.resize(60, 24);
    hidden.hide();
    EXPECT_EQ(shown.FittedFont(), shown.font());
    hidden.show();
    EXPECT_LT(QFontInfo(shown.FittedFont()).pixelSize(), QFontInfo(shown.font()).pixelSize());
}

TEST_F(BankWindowsTest, AButtonTellsItsBankAndTheFileThatIsTiedToItNow)
{
    const frmStyUN &window = StyleFile();
    auto &button = Widget<FittedButton>(window, "CommDirectHD(13)");
    EXPECT_EQ(button.toolTip(), QStringLiteral("Direct HD 2"));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.toolTip(), QStringLiteral("Direct HD 2: ") + FromUtf8(folder->At("a.sty")));
    EXPECT_EQ(Widget<FittedButton>(window, "CommDirectHD(12)").toolTip(), QStringLiteral("Direct HD 1"));
}

TEST_F(BankWindowsTest, TheStsButtonSwitchesTheRowsAndItsOwnWord)
{
    const frmStyUN &window = StyleFile();
    auto &button = Widget<FittedButton>(window, "CommSTS");
    const ListView &list = List(window);
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), QStringLiteral(" 01 Sixteen letters!  1000  "));
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(button.text(), QStringLiteral("Style"));
    EXPECT_EQ(list.model()->index(0, 0).data().toString(), QStringLiteral(" 01 Sixteen letters!  1001  "));
    EXPECT_TRUE(Window(window).windowTitle().endsWith(QStringLiteral("(STS)")));
}

TEST_F(BankWindowsTest, TheRowsOfAStyleFileAreAllInViewAtItsNaturalSize)
{
    const ListView &list = List(StyleFile());
    RowsAreWhole(list);
    EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(15, 0))));
}

TEST_F(BankWindowsTest, AnOverviewOfStylesShowsAllItsRowsOnAScreenOf1280Pixels)
{
    const frmStyUserAll &window = StyleOverview();
    EXPECT_LE(Window(window).width(), 1280);
    for (const char *name : {"List1(1)", "List1(2)", "List1(3)"}) {
        const ListView &list = List(window, name);
        ASSERT_EQ(list.model()->rowCount(), 16);
        RowsAreWhole(list);
        EXPECT_EQ(list.horizontalScrollBar()->maximum(), 0);
        EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(15, 0))));
    }
}

TEST_F(BankWindowsTest, AnOverviewThatIsMaximisedInASmallFrameScrollsAndCutsNoRow)
{
    frmStyUserAll &window = StyleOverview();
    app.frame.place = Place{0, 0, 9000, 3750};
    app.children.Maximise(window);
    Settle();
    const ListView &list = List(window, "List1(1)");
    EXPECT_LT(Window(window).width(), 700);
    RowsAreWhole(list);
    EXPECT_GT(list.horizontalScrollBar()->maximum(), 0);
    list.horizontalScrollBar()->setValue(list.horizontalScrollBar()->maximum());
    const QRect last = list.visualRect(list.model()->index(15, 0));
    EXPECT_LE(last.right(), list.viewport()->width());
    EXPECT_GE(last.right(), 0);
}

TEST_F(BankWindowsTest, AClickInOneListOfAnOverviewTakesTheSelectionOfTheOthers)
{
    frmStyUserAll &window = StyleOverview();
    const auto click = [this, &window](const char *name, int row) {
        ListView &list = List(window, name);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(row, 0)).center());
    };
    click("List1(1)", 3);
    EXPECT_THAT(SelectedRows(window.List1[1]), ElementsAre(3));
    click("List1(2)", 12);
    EXPECT_THAT(SelectedRows(window.List1[1]), IsEmpty());
    EXPECT_THAT(SelectedRows(window.List1[2]), ElementsAre(12));
}

TEST_F(BankWindowsTest, ALabelThatIsTooLongIsCutAndItsToolTipTellsTheWholePath)
{
    const std::string path = Put("a file with a name that is far too long for the little room above its list.prf", InstrumentFile({}));
    for (std::size_t slot = 9; slot <= 28; ++slot) {
        app.settings.PrfDocTable[slot].Path.Set(slot == 20 ? path : "");
    }
    mnuPrfUserAll_Click(program.files);
    Settle();
    const frmPrfUserAll &window = dynamic_cast<frmPrfUserAll &>(*program.files.overviews[0]);
    const auto &label = Widget<QWidget>(window, "Label1(12)");
    EXPECT_EQ(label.toolTip(), FromUtf8(path));
    EXPECT_EQ(label.width(), List(window, "List1(12)").width());
    EXPECT_EQ(Widget<QWidget>(window, "Label1(13)").toolTip(), QString());
}

} // namespace

} // namespace velluto::test
