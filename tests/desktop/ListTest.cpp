// Real mouse presses and keys on the snaking list.
#include "desktop/Desk.h"
#include "desktop/Fonts.h"

#include <QAbstractItemModelTester>
#include <QFontDatabase>
#include <QScrollBar>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ListTest : public Desk {
protected:
    void SetUp() override
    {
        Start();
        app.children.Show(form);
        Settle();
    }
    QPoint Middle(int row) { return List(form).visualRect(List(form).model()->index(row, 0)).center(); }

    StubForm form;
};

TEST_F(ListTest, FlowsDownAndThenToTheNextColumn)
{
    const ListView &view = List(form);
    const auto rect = [&view](int row) { return view.visualRect(view.model()->index(row, 0)); };
    // 4080 twips are 17 rows of 16 pixels: 16 rows and a line of margin.
    EXPECT_EQ(rect(0).height(), 16);
    EXPECT_EQ(rect(0).left(), rect(15).left());
    EXPECT_EQ(rect(15).top() - rect(0).top(), 15 * 16);
    EXPECT_EQ(rect(16).top(), rect(0).top());
    EXPECT_EQ(rect(16).left(), view.viewport()->width() / 4);
    EXPECT_EQ(rect(63).left(), 3 * (view.viewport()->width() / 4));
    EXPECT_LT(rect(63).right(), view.viewport()->width());
}

TEST_F(ListTest, AClickMakesTheRowCurrentSelectsItAndIsToldOnce)
{
    ClickRow(form, 21);
    EXPECT_EQ(form.List1.ListIndex(), 21);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(21));
    EXPECT_THAT(form.TakeHeard(), ElementsAre("MouseDown 1", "Click 21"));
}

TEST_F(ListTest, ControlAddsAndTakesAwayShiftReplacesByTheRange)
{
    ClickRow(form, 2);
    ClickRow(form, 6, Qt::ControlModifier);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(2, 6));
    ClickRow(form, 9, Qt::ShiftModifier);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(6, 7, 8, 9));
    ClickRow(form, 7, Qt::ControlModifier);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(6, 8, 9));
}

TEST_F(ListTest, WhatQtShowsAsSelectedIsWhatTheListHolds)
{
    ClickRow(form, 2);
    ClickRow(form, 20, Qt::ControlModifier);
    std::vector<int> shown;
    for (const QModelIndex &index : List(form).selectionModel()->selectedRows()) {
        shown.push_back(index.row());
    }
    EXPECT_THAT(shown, testing::UnorderedElementsAre(2, 20));
    EXPECT_EQ(List(form).currentIndex().row(), 20);
    form.List1.ClearSelection();
    EXPECT_FALSE(List(form).selectionModel()->hasSelection());
}

TEST_F(ListTest, AClickBesideTheRowsChangesNothing)
{
    ClickRow(form, 5);
    form.heard.clear();
    form.List1.RemoveItem(63);
    const QRect last = List(form).visualRect(List(form).model()->index(62, 0));
    QTest::mouseClick(List(form).viewport(), Qt::LeftButton, {}, last.center() + QPoint(0, 20));
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(5));
    EXPECT_THAT(form.TakeHeard(), ElementsAre("MouseDown 1"));
}

TEST_F(ListTest, TheSecondPressOfADoubleClickClicksAndThenDoubleClicks)
{
    QTest::mouseClick(List(form).viewport(), Qt::LeftButton, {}, Middle(3));
    form.heard.clear();
    QTest::mouseDClick(List(form).viewport(), Qt::LeftButton, {}, Middle(3));
    EXPECT_THAT(form.TakeHeard(), testing::Contains("DblClick 3"));
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(3));
}

TEST_F(ListTest, DrawingTheMouseOverRowsSelectsTheRangeWithoutAnEvent)
{
    QTest::mousePress(List(form).viewport(), Qt::LeftButton, {}, Middle(4));
    form.heard.clear();
    QMouseEvent drawn(QEvent::MouseMove, Middle(7), List(form).viewport()->mapToGlobal(Middle(7)), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(List(form).viewport(), &drawn);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(4, 5, 6, 7));
    EXPECT_EQ(form.List1.ListIndex(), 7);
    QTest::mouseRelease(List(form).viewport(), Qt::LeftButton, {}, Middle(7));
    EXPECT_THAT(form.TakeHeard(), IsEmpty());
}

TEST_F(ListTest, TheRightButtonIsToldAndSelectsNothing)
{
    ClickRow(form, 3);
    form.heard.clear();
    QTest::mouseClick(List(form).viewport(), Qt::RightButton, {}, Middle(9));
    EXPECT_THAT(form.TakeHeard(), ElementsAre("MouseDown 2"));
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(3));
}

TEST_F(ListTest, TheMenuKeyStandsForTheRightButton)
{
    QContextMenuEvent asked(QContextMenuEvent::Keyboard, QPoint(5, 5), List(form).mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(List(form).viewport(), &asked);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("MouseDown 2"));
}

TEST_F(ListTest, DeleteIsHeardAsKey46)
{
    QTest::keyClick(&List(form), Qt::Key_Delete);
    EXPECT_THAT(form.TakeHeard(), ElementsAre("KeyDown 46"));
}

TEST_F(ListTest, ArrowsMoveAlongTheColumnsThatAreDrawn)
{
    ClickRow(form, 0);
    QTest::keyClick(&List(form), Qt::Key_Right);
    EXPECT_EQ(form.List1.ListIndex(), 16);
    // In a taller list a column holds more rows.
    form.List1.place = Place{0, 0, 8400, 21 * 240};
    QTest::keyClick(&List(form), Qt::Key_Right);
    EXPECT_EQ(form.List1.ListIndex(), 36);
    QTest::keyClick(&List(form), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(SelectedRows(form.List1), ElementsAre(36, 37));
}

TEST_F(ListTest, ARowIsDrawnUpToItsFirstZeroByteAsWindows1252)
{
    form.List1.SetRow(0, std::string(" 001 \xC9t\xE9 \x80\0hidden", 15));
    EXPECT_EQ(List(form).model()->index(0, 0).data().toString(), QString::fromUtf8(" 001 Été €"));
}

TEST_F(ListTest, RowsThatDoNotFitAreReachedByScrollingAcross)
{
    std::vector<std::string> rows(100, "row");
    form.List1.SetRows(rows);
    ListView &view = List(form);
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 0);
    ClickRow(form, 0);
    QTest::keyClick(&view, Qt::Key_End);
    const QRect last = view.visualRect(view.model()->index(99, 0));
    EXPECT_TRUE(view.viewport()->rect().contains(last)) << last.left();
    EXPECT_EQ(view.RowAt(last.center()), 99);
}

TEST_F(ListTest, TheModelKeepsQtsRulesThroughEveryKindOfChange)
{
    const QAbstractItemModelTester tester(List(form).model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    form.List1.AddItem("one more");
    form.List1.SetRow(3, "changed");
    form.List1.RemoveItem(0);
    EXPECT_EQ(List(form).model()->rowCount(), 64);
    form.List1.Clear();
    EXPECT_EQ(List(form).model()->rowCount(), 0);
    form.List1.SetRows({"a", "b"});
    EXPECT_EQ(List(form).model()->rowCount(), 2);
}

TEST_F(ListTest, AHandlerMayCloseTheWindowOfItsOwnList)
{
    form.List1.Click = [this] { app.children.Unload(form); };
    ClickRow(form, 1);
    EXPECT_FALSE(app.children.IsOpen(form));
    Settle();
    EXPECT_EQ(Frame().WindowOf(form), nullptr);
}

TEST_F(ListTest, RowsKeepRoomForTailsWhateverTheFont)
{
    for (const QString &family : QFontDatabase::families()) {
        for (const int points : {8, 10, 11, 14}) {
            const QFont font(family, points);
            EXPECT_LE(RowBaseline(font), RowHeight(font) - 2) << family.toStdString() << ", " << points;
        }
    }
}

TEST(RowBaseline, LeavesRoomForTailsInAFontThatBeginsHighAboveItsLetters)
{
    EXPECT_EQ(BaselineIn(16, 12, 4), 12) << "what just fits";
    EXPECT_EQ(BaselineIn(16, 11, 2), 13) << "what is over is shared, the odd pixel above";
    EXPECT_EQ(BaselineIn(16, 12, 5), 13) << "what lacks is taken below";
    EXPECT_EQ(BaselineIn(16, 23, 12), 14) << "as Noto Nastaliq Urdu, of 15 pixels";
}

TEST_F(ListTest, FontAndCellAreThoseThatWindowsAreMeasuredBy)
{
    const Size a = face.MeasureA(Font{"courier new", 11, 400});
    EXPECT_EQ(a.width, 135);
    EXPECT_EQ(a.height, 240);
    EXPECT_LE(face.ChildFrame().height, 450);
}

} // namespace

} // namespace velluto::test
