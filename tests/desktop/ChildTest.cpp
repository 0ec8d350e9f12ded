// Child windows: their places both ways, their states, their end.
#include "desktop/Desk.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenu>
#include <QScrollBar>

namespace velluto::test {

namespace {

using testing::ElementsAre;

class ChildTest : public Desk {
protected:
    void SetUp() override { Start(); }
    void Show(Form &shown)
    {
        app.children.Show(shown);
        Settle();
    }

    StubForm form;
};

TEST_F(ChildTest, StandsAtItsStoredPlaceWithItsFrameAround)
{
    Show(form);
    EXPECT_EQ(Window(form).geometry(), QRect(20, 40, 600, 400));
    EXPECT_EQ(form.frame.width, ToTwips(Window(form).width() - Window(form).widget()->width()));
    EXPECT_EQ(form.frame.height, ToTwips(Window(form).height() - Window(form).widget()->height()));
    EXPECT_EQ(form.place, (Place{300, 600, 9000, 6000}));
}

TEST_F(ChildTest, RoundingToPixelsIsNotWrittenBack)
{
    form.place = Place{307, 593, 9007, 6011};
    Show(form);
    app.children.Minimise(form);
    Settle();
    app.children.Restore(form);
    Settle();
    EXPECT_EQ(form.place, (Place{307, 593, 9007, 6011}));
}

TEST_F(ChildTest, AMoveByHandIsStoredAndKeepsTheSizeToTheTwip)
{
    form.place = Place{307, 593, 9007, 6011};
    Show(form);
    Window(form).move(100, 80);
    EXPECT_EQ(form.place, (Place{1500, 1200, 9007, 6011}));
}

TEST_F(ChildTest, AResizeByHandIsStoredAndRaisesResize)
{
    Show(form);
    form.resized = 0;
    Window(form).resize(700, 450);
    EXPECT_EQ(form.place, (Place{300, 600, 10500, 6750}));
    EXPECT_GE(form.resized, 1);
}

TEST_F(ChildTest, ResizedBelowItsNaturalSizeItSnapsBack)
{
    form.smallest = Size{9000, 6000};
    Show(form);
    Window(form).resize(300, 420);
    EXPECT_EQ(form.place, (Place{300, 600, 9000, 6300}));
    EXPECT_EQ(Window(form).size(), QSize(600, 420));
}

TEST_F(ChildTest, DrawnTooFarInFromTheLeftItsRightEdgeStays)
{
    form.smallest = Size{9000, 6000};
    Show(form);
    Window(form).setGeometry(QRect(120, 40, 500, 400)); // its left edge, a hundred pixels to the right
    EXPECT_EQ(Window(form).geometry(), QRect(20, 40, 600, 400));
    EXPECT_EQ(form.place, (Place{300, 600, 9000, 6000}));
}

TEST_F(ChildTest, APlaceOffEveryScreenIsShownInViewAndStaysStored)
{
    form.place = Place{-30000, 29000, 9000, 6000};
    Show(form);
    const QRect room = Frame().Area().viewport()->rect();
    EXPECT_TRUE(room.contains(Window(form).geometry())) << Window(form).x() << ' ' << Window(form).y();
    EXPECT_EQ(form.place, (Place{-30000, 29000, 9000, 6000}));
    // Taken by hand it is stored where it is seen.
    Window(form).move(45, 30);
    EXPECT_EQ(form.place, (Place{675, 450, 9000, 6000}));
}

TEST_F(ChildTest, AResizeOfAWindowBroughtIntoViewLeavesItsStoredPosition)
{
    form.place = Place{-30000, 29000, 9000, 6000};
    Show(form);
    Window(form).resize(610, 400);
    EXPECT_EQ(form.place, (Place{-30000, 29000, 9150, 6000}));
}

TEST_F(ChildTest, StatesGoBothWays)
{
    Show(form);
    Window(form).showMinimized();
    EXPECT_EQ(form.windowState, WindowState::Minimised);
    Window(form).showMaximized();
    EXPECT_EQ(form.windowState, WindowState::Maximised);
    EXPECT_EQ(Window(form).size(), Frame().Area().viewport()->size());
    app.children.Restore(form);
    EXPECT_FALSE(Window(form).isMaximized());
    EXPECT_EQ(Window(form).geometry(), QRect(20, 40, 600, 400));
    EXPECT_EQ(form.place, (Place{300, 600, 9000, 6000}));
}

TEST_F(ChildTest, AMaximisedWindowFollowsTheFrame)
{
    Show(form);
    app.children.Maximise(form);
    form.resized = 0;
    Frame().resize(Frame().size() + QSize(40, 30));
    Settle();
    EXPECT_GE(form.resized, 1);
    EXPECT_EQ(form.place, (Place{300, 600, 9000, 6000}));
    EXPECT_EQ(form.ScaleWidth(), face.Workspace().width);
    EXPECT_EQ(form.ScaleHeight(), face.Workspace().height);
    app.children.Restore(form);
    EXPECT_EQ(form.ScaleWidth(), 9000 - face.ChildFrame().width);
}

TEST_F(ChildTest, TheCloseButtonAsksTheFormFirst)
{
    Show(form);
    form.refuses = true;
    Window(form).close();
    Settle();
    EXPECT_TRUE(app.children.IsOpen(form));
    EXPECT_TRUE(Window(form).isVisible());
    form.refuses = false;
    Window(form).close();
    Settle();
    EXPECT_FALSE(app.children.IsOpen(form));
    EXPECT_EQ(Frame().WindowOf(form), nullptr);
}

TEST_F(ChildTest, APressOnAWindowMakesItTheActiveChild)
{
    StubForm &other = NewForm();
    other.place = Place{6000, 600, 6000, 6000};
    Show(form);
    Show(other);
    EXPECT_EQ(app.children.Active(), &other);
    QTest::mouseClick(Window(form).widget(), Qt::LeftButton, {}, QPoint(5, 390 - 40));
    EXPECT_EQ(app.children.Active(), &form);
    app.children.Activate(other);
    EXPECT_EQ(Frame().Area().activeSubWindow(), &Window(other));
}

TEST_F(ChildTest, WhenOneClosesTheOneBeforeItIsActiveAgain)
{
    StubForm &second = NewForm();
    StubForm &third = NewForm();
    Show(form);
    Show(second);
    Show(third);
    app.children.Activate(form);
    Window(form).close();
    Settle();
    EXPECT_EQ(app.children.Active(), &third);
    EXPECT_EQ(Frame().Area().activeSubWindow(), &Window(third));
}

TEST_F(ChildTest, TheRightButtonOnTheFormIsTold)
{
    Show(form);
    QTest::mouseClick(Window(form).widget(), Qt::RightButton, {}, QPoint(5, 360));
    EXPECT_THAT(form.TakeHeard(), ElementsAre("Form_MouseDown 2"));
}

TEST_F(ChildTest, TheTabKeyFollowsTheOrderOfTheControls)
{
    Show(form);
    List(form).setFocus();
    const std::vector<const char *> order = {"Line", "Many", "Box", "Push", "Choice"};
    for (const char *name : order) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), QString::fromUtf8(name));
    }
}

TEST_F(ChildTest, ScrollingTheAreaMovesNoWindowsOwnPlace)
{
    form.place = Place{12000, 600, 9000, 6000};
    Show(form);
    QScrollBar *bar = Frame().findChild<QMdiArea *>()->horizontalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    bar->setValue(bar->maximum());
    Settle();
    EXPECT_LT(Window(form).x(), 800);
    EXPECT_EQ(form.place, (Place{12000, 600, 9000, 6000}));
}

TEST_F(ChildTest, TheAreaScrollsToATitleThatLiesBeyondAnyEdge)
{
    for (const QPoint corner : {QPoint(-500, 40), QPoint(900, 40), QPoint(40, 600)}) {
        form.place = Place{ToTwips(corner.x()), ToTwips(corner.y()), 9000, 6000};
        StubForm &shown = NewForm();
        shown.place = form.place;
        Show(shown);
        const auto *area = Frame().findChild<QMdiArea *>();
        for (QScrollBar *bar : {area->horizontalScrollBar(), area->verticalScrollBar()}) {
            const int wanted = bar->orientation() == Qt::Horizontal ? Window(shown).x() : Window(shown).y();
            bar->setValue(bar->value() + wanted);
        }
        Settle();
        const QRect title(Window(shown).pos(), QSize(Window(shown).width(), 24));
        EXPECT_TRUE(area->viewport()->rect().contains(title)) << corner.x() << ", " << corner.y() << ": " << title.x() << ", " << title.y();
        EXPECT_EQ(shown.place, form.place.Get());
        app.children.Unload(shown);
        Settle();
    }
}

TEST_F(ChildTest, AWindowLeftBehindByASmallerFrameCanBeScrolledTo)
{
    form.place = Place{6000, 5000, 6000, 3000};
    Show(form);
    Frame().resize(330, 260);
    Settle();
    const auto *area = Frame().findChild<QMdiArea *>();
    area->horizontalScrollBar()->setValue(area->horizontalScrollBar()->maximum());
    area->verticalScrollBar()->setValue(area->verticalScrollBar()->maximum());
    Settle();
    EXPECT_TRUE(area->viewport()->rect().contains(Window(form).geometry().bottomRight()));
    EXPECT_EQ(form.place, (Place{6000, 5000, 6000, 3000}));
}

TEST_F(ChildTest, CascadeAndTilesLieInTheAreaAsArranged)
{
    StubForm &other = NewForm();
    Show(form);
    Show(other);
    app.children.Arrange(2);
    const QSize room = Frame().Area().viewport()->size();
    EXPECT_NEAR(Window(form).width(), room.width() / 2, 1);
    EXPECT_NEAR(Window(other).height(), room.height(), 1);
    EXPECT_NE(Window(form).x(), Window(other).x());
}

TEST_F(ChildTest, ATitleShowsTheNameThatItIsGiven)
{
    Show(form);
    form.caption = std::string("Program R&B [*].pcg");
    EXPECT_EQ(Window(form).windowTitle(), QStringLiteral("Program R&B [*][*].pcg")); // Qt shows the doubled mark once
}

TEST_F(ChildTest, ItsMenuKeepsNoWindowAboveTheOthersAndHasNoIcons)
{
    Show(form);
    Window(form).showSystemMenu();
    const QList<QAction *> entries = Window(form).systemMenu()->actions();
    EXPECT_FALSE(entries.empty());
    for (const QAction *entry : entries) {
        EXPECT_FALSE(entry->isCheckable()) << entry->text().toStdString();
        EXPECT_FALSE(entry->isIconVisibleInMenu()) << entry->text().toStdString();
    }
    Window(form).systemMenu()->hide();
}

} // namespace

} // namespace velluto::test
