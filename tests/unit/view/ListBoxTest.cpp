#include "view/Control.h"
#include "view/Gestures.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velluto;

namespace {

using Rows = std::vector<int>;

struct ListTest : testing::Test, Form {
    ListTest() : Form("Window")
    {
        std::vector<std::string> rows;
        for (int i = 0; i < 12; ++i) {
            rows.push_back("row " + std::to_string(i));
        }
        List1.SetRows(rows);
        List1.columns = 3; // four rows in each
        List1.Click = [this] { clicked.push_back(List1.ListIndex()); };
        List1.DblClick = [this] { clicked.push_back(-List1.ListIndex()); };
        List1.KeyDown = [this](int key) { keys.push_back(key); };
    }
    [[nodiscard]] Rows Selected() const
    {
        Rows rows;
        for (int i = 0; i < List1.ListCount(); ++i) {
            if (List1.Selected(i)) {
                rows.push_back(i);
            }
        }
        return rows;
    }
    void Click(int row, Modifier modifier = Modifier::None) { ListGesture::ClickRow(List1, row, modifier); }

    ListBox List1{*this, "List1"};
    Rows clicked; // a double click stands with a minus
    Rows keys;
};

} // namespace

TEST_F(ListTest, AClickTellsTheFaceOnce)
{
    int told = 0;
    List1.observer = [&told](Aspect aspect) { told += aspect == Aspect::Selection ? 1 : 100; };
    Click(7);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(List1.ListIndex(), 7);
}

TEST_F(ListTest, AClickSelectsItsRowAlone)
{
    Click(3);
    Click(5);
    EXPECT_EQ(Selected(), Rows{5});
    EXPECT_EQ(List1.ListIndex(), 5);
    EXPECT_EQ(clicked, (Rows{3, 5}));
}

TEST_F(ListTest, CtrlClickTogglesItsRowAndRunsTheClick)
{
    Click(3);
    Click(7, Modifier::Ctrl);
    EXPECT_EQ(Selected(), (Rows{3, 7}));
    Click(3, Modifier::Ctrl);
    EXPECT_EQ(Selected(), Rows{7});
    EXPECT_EQ(List1.ListIndex(), 3);
    EXPECT_EQ(clicked, (Rows{3, 7, 3}));
}

TEST_F(ListTest, ShiftClickSelectsTheRangeFromTheAnchor)
{
    Click(3);
    Click(6, Modifier::Shift);
    EXPECT_EQ(Selected(), (Rows{3, 4, 5, 6}));
    Click(1, Modifier::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2, 3}));
    EXPECT_EQ(clicked, (Rows{3, 6, 1}));
}

TEST_F(ListTest, ShiftClickWithoutCtrlReplacesTheSelectionByTheRangeFromTheLastAnchor)
{
    Click(3);
    Click(7, Modifier::Ctrl);
    Click(10, Modifier::Shift);
    EXPECT_EQ(Selected(), (Rows{7, 8, 9, 10}));
}

TEST_F(ListTest, CtrlShiftClickAddsTheRange)
{
    Click(3);
    Click(7, Modifier::Ctrl);
    Click(9, Modifier::CtrlShift);
    EXPECT_EQ(Selected(), (Rows{3, 7, 8, 9}));
}

TEST_F(ListTest, ShiftClickWithoutAnAnchorBeginsAtTheFirstRow)
{
    Click(2, Modifier::Shift);
    EXPECT_EQ(Selected(), (Rows{0, 1, 2}));
}

TEST_F(ListTest, AClickSeesTheSelectionAsItIsAfterwards)
{
    Rows seen;
    List1.Click = [&] { seen = Selected(); };
    Click(2);
    Click(4, Modifier::Ctrl);
    EXPECT_EQ(seen, (Rows{2, 4}));
}

TEST_F(ListTest, ADoubleClickRunsTheClickFirst)
{
    ListGesture::DoubleClickRow(List1, 4);
    EXPECT_EQ(clicked, (Rows{4, -4}));
}

TEST_F(ListTest, ARowOutsideTheListIsNoClick)
{
    Click(12);
    Click(-1);
    ListGesture::DoubleClickRow(List1, 12);
    EXPECT_TRUE(clicked.empty());
    EXPECT_EQ(List1.ListIndex(), -1);
}

TEST_F(ListTest, DragDrawsTheRangeWithoutAnEvent)
{
    Click(2);
    ListGesture::DragTo(List1, 5);
    EXPECT_EQ(Selected(), (Rows{2, 3, 4, 5}));
    EXPECT_EQ(clicked, Rows{2});
}

TEST_F(ListTest, ASingleSelectionListKnowsNoModifiers)
{
    List1.multiSelect = false;
    Click(3);
    Click(6, Modifier::Shift);
    Click(8, Modifier::Ctrl);
    EXPECT_EQ(Selected(), Rows{8});
}

TEST_F(ListTest, KeysMoveThroughSnakingColumnsAndClickTheRow)
{
    Click(1);
    EXPECT_TRUE(PressKey(List1, Key::Right));
    EXPECT_EQ(List1.ListIndex(), 5);
    PressKey(List1, Key::Down);
    PressKey(List1, Key::End);
    PressKey(List1, Key::Right);
    PressKey(List1, Key::Home);
    PressKey(List1, Key::Up);
    EXPECT_EQ(clicked, (Rows{1, 5, 6, 11, 11, 0, 0}));
    EXPECT_EQ(Selected(), Rows{0});
}

TEST_F(ListTest, ShiftWithAKeyDrawsTheRangeAndCtrlOnlyMoves)
{
    Click(1);
    PressKey(List1, Key::Down, Modifier::Shift);
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    PressKey(List1, Key::Down, Modifier::Ctrl);
    EXPECT_EQ(List1.ListIndex(), 3);
    EXPECT_EQ(Selected(), (Rows{1, 2}));
    EXPECT_EQ(clicked, (Rows{1, 2}));
}

TEST_F(ListTest, EveryKeyGoesToTheHandlerFirst)
{
    PressKey(List1, Key::Delete);
    EXPECT_EQ(keys, Rows{Key::Delete});
    EXPECT_TRUE(clicked.empty());
    List1.enabled = false;
    EXPECT_FALSE(PressKey(List1, Key::Delete));
    EXPECT_EQ(keys.size(), 1U);
}

TEST_F(ListTest, AControlThatIsNoListAndNoTextTakesNoKey)
{
    const Button button(*this, "Command1");
    const CheckBox box(*this, "Check1");
    const ScrollBar bar(*this, "VScroll1");
    for (Control *control : controls()) {
        EXPECT_EQ(PressKey(*control, Key::Home), control == &List1) << control->name();
    }
}

TEST_F(ListTest, RowsThatComeAndGoCarryTheSelectionAlong)
{
    Click(4);
    List1.InsertItem("new", 2);
    EXPECT_EQ(Selected(), Rows{5});
    EXPECT_EQ(List1.ListIndex(), 5);
    List1.RemoveItem(0);
    EXPECT_EQ(Selected(), Rows{4});
    List1.RemoveItem(4);
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(List1.ListIndex(), -1);
    EXPECT_EQ(List1.Row(1), "new");
    EXPECT_EQ(List1.Row(99), "");
    EXPECT_FALSE(List1.Selected(99));
}

TEST_F(ListTest, NewRowsClearSelectionAndCurrentRow)
{
    Click(4);
    List1.SetRows({"a", "b"});
    EXPECT_EQ(Selected(), Rows{});
    EXPECT_EQ(List1.ListIndex(), -1);
    Click(1, Modifier::Shift); // from the first row on, not from the row clicked before
    EXPECT_EQ(Selected(), (Rows{0, 1}));
}

TEST_F(ListTest, RowsKeepTheirZeroBytes)
{
    const std::string name("name\0\0", 6);
    List1.SetRows({name});
    EXPECT_EQ(List1.Row(0).size(), 6U);
}
