#include "unit/driver/DriverTest.h"

namespace velluto::driver {
namespace {

TEST_F(DriverTest, MenuTellsWhetherTheEntryCouldBeChosen)
{
    Ok("device out One");
    Ok("device in One");
    Ok("start en");
    EXPECT_EQ(Ok("menu mnuInglese").at("chosen"), true);
    EXPECT_EQ(Ok("menu mnuChiudi").at("chosen"), false);
    EXPECT_EQ(Ok("menu mnuSep10").at("chosen"), false);
    EXPECT_EQ(Ok("menu mnuRecentFile(1)").at("chosen"), false);
    Error("menu mnuNowhere");
    Error("menu LabelTime");
}

TEST_F(DriverTest, DropTakesOnlyMenusOfTheMenuBar)
{
    Ok("start en");
    Ok("drop mnuFile");
    Error("drop mnuModifica");
    Error("drop mnuLingua");
    Error("drop mnuBloccoNote");
    Error("drop mnuExit");
}

TEST_F(DriverTest, PopUpIsTheRightMouseButton)
{
    StartWithControls();
    EXPECT_EQ(Ok("popup frmAll").at("menu"), nullptr);
    EXPECT_EQ(Ok("popup active List1(2)").at("menu"), nullptr);
    EXPECT_EQ(controls.events, "formmouse2 mouse2 ");
    controls.list.MouseDown = [this](int) { session.face.PopUpMenu(session.Program().app.frame.mnuModifica); };
    EXPECT_EQ(Ok("popup frmAll List1(2)").at("menu"), "mnuModifica");
}

TEST_F(DriverTest, ClicksSelectAsAnExtendedListDoes)
{
    StartWithControls();
    Ok("click frmAll List1(2) 0");
    Ok("ctrlclick frmAll List1(2) 2");
    EXPECT_EQ(Ok("show frmAll List1(2)").at("controls").at("List1(2)").at("selected"), (Json{0, 2}));
    Ok("shiftclick active List1(2) 3");
    const Json list = Ok("show frmAll List1(2)").at("controls").at("List1(2)");
    EXPECT_EQ(list.at("selected"), (Json{2, 3}));
    EXPECT_EQ(list.at("current"), 3);
    EXPECT_EQ(controls.events, "click click click ");
    controls.events.clear();
    Ok("dblclick frmAll List1(2) 1");
    EXPECT_EQ(controls.events, "click dblclick ");
}

TEST_F(DriverTest, ClicksOnRowsThatAreNotThereChangeNothing)
{
    StartWithControls();
    for (const char *line : {"click frmAll List1(2) 4", "click frmAll List1(2) -1", "click frmAll List1 0", "click frmAll CommClose 0",
                             "click frmNone List1(2) 0", "click frmAll List1(2) x", "dblclick frmAll List1(2) 9",
                             "dblclick frmAll CommClose", "click frmMain mnuFile 0"}) {
        Error(line);
    }
    controls.list.enabled = false;
    EXPECT_EQ(Error("click frmAll List1(2) 0"), "List1(2) is disabled");
    controls.list.visible = false;
    EXPECT_EQ(Error("click frmAll List1(2) 0"), "List1(2) is hidden");
    EXPECT_EQ(controls.events, "");
    EXPECT_EQ(controls.list.ListIndex(), -1);
}

TEST_F(DriverTest, AMinimisedWindowHasNothingToReachFor)
{
    StartWithControls();
    Ok("minimise frmAll");
    EXPECT_EQ(Error("click frmAll List1(2) 0"), "frmAll is minimised");
    Ok("restore frmAll");
    Ok("click frmAll List1(2) 0");
}

TEST_F(DriverTest, TouchingAWindowBringsItToTheFront)
{
    StartWithControls();
    Ok("menu mnuMIDISetup");
    EXPECT_EQ(session.Program().app.children.Active()->name(), "frmMIDISetup");
    controls.events.clear();
    Ok("click frmAll List1(2) 1");
    EXPECT_EQ(controls.events, "activate click ");
    Ok("activate frmMIDISetup");
    EXPECT_EQ(session.Program().app.children.Active()->name(), "frmMIDISetup");
    Ok("activate frmMain");
    EXPECT_EQ(session.Program().app.children.Active()->name(), "frmMIDISetup");
}

TEST_F(DriverTest, ARefusedGestureDoesNotChangeTheActiveWindow)
{
    StartWithControls();
    Ok("menu mnuMIDISetup");
    Error("click frmAll List1(2) 99");
    Error("press frmAll Label1");
    Error("set frmAll Combo1 99");
    EXPECT_EQ(session.Program().app.children.Active()->name(), "frmMIDISetup");
}

TEST_F(DriverTest, KeysReachListsAndTextBoxes)
{
    StartWithControls();
    Ok("key frmAll List1(2) Delete");
    EXPECT_EQ(controls.events, "key46 ");
    Ok("key frmAll List1(2) End");
    EXPECT_EQ(controls.list.ListIndex(), 3);
    for (const char *name : {"PageDown", "PageUp", "Up", "Down", "Left", "Right", "Home", "Insert"}) {
        Ok(std::string("key frmAll Text1 ") + name);
    }
    Error("key frmAll List1(2) F1");
    Error("key frmAll CommClose Delete");
}

TEST_F(DriverTest, PressPressesButtonsBoxesAndOptions)
{
    StartWithControls();
    Ok("press frmAll CommClose");
    Ok("press frmAll CheckHoldNote");
    EXPECT_EQ(controls.events, "button check ");
    EXPECT_TRUE(controls.check.value);
    Ok("press frmAll Option1(0)");
    Ok("press frmAll Option1(1)");
    EXPECT_FALSE(controls.left.value);
    EXPECT_TRUE(controls.right.value);
    controls.button.enabled = false;
    EXPECT_EQ(Error("press frmAll CommClose"), "CommClose is disabled");
    Error("press frmAll Text1");
    Error("press frmMain mnuExit");
    Error("press frmAll CommUser(9)");
}

TEST_F(DriverTest, TypeMakesTheTextTheBoxsContent)
{
    StartWithControls();
    Ok("type frmAll Text1 \"caffè nero\"");
    EXPECT_EQ(controls.text.text.Get(), "caffè nero");
    EXPECT_EQ(controls.text.caret, 10);
    EXPECT_EQ(controls.events, "change ");
    Ok("caret frmAll Text1 5");
    EXPECT_EQ(controls.text.caret, 5);
    Error("caret frmAll Text1 11");
    Error("type frmAll Text1 \"\xFF\"");
    Error("type frmAll List1(2) x");
    controls.text.readOnly = true;
    EXPECT_EQ(Error("type frmAll Text1 x"), "Text1 is read-only");
    EXPECT_EQ(controls.text.text.Get(), "caffè nero");
}

TEST_F(DriverTest, DoubleClicksWithoutARowReachTextBoxesAndLabels)
{
    StartWithControls();
    Ok("dblclick frmAll Text1");
    Ok("dblclick frmAll Label1");
    EXPECT_EQ(controls.events, "textdblclick labeldblclick ");
}

TEST_F(DriverTest, SetChoosesAComboRow)
{
    StartWithControls();
    Ok("set frmAll Combo1 1");
    EXPECT_EQ(controls.combo.ListIndex, 1);
    EXPECT_EQ(controls.events, "combo ");
    Error("set frmAll Combo1 2");
    Error("set frmAll List1(2) 0");
}

TEST_F(DriverTest, SetMovesASliderAndLetsItGo)
{
    StartWithControls();
    Ok("set frmAll VScroll(6) 15");
    EXPECT_EQ(controls.bar.value, 15);
    Ok("set frmAll VScroll(6) 15");
    EXPECT_EQ(controls.events, "change15 ");
    Error("set frmAll VScroll(6) 21");
    Error("set frmAll VScroll(6) -1");
    EXPECT_EQ(controls.bar.value, 15);
}

TEST_F(DriverTest, DragKeepsASliderHeldUntilItIsSet)
{
    StartWithControls();
    Ok("drag frmAll VScroll(6) 11");
    Ok("drag frmAll VScroll(6) 12");
    EXPECT_EQ(controls.events, "scroll11 scroll12 ");
    Ok("set frmAll VScroll(6) 12");
    Ok("set frmAll VScroll(6) 12");
    EXPECT_EQ(controls.events, "scroll11 scroll12 change12 ");
    EXPECT_EQ(Error("drag frmAll Combo1 1"), "Combo1 is not a slider or a scroll bar");
    EXPECT_EQ(Error("set frmAll Label1 1"), "Label1 is not a combo box, a slider or a scroll bar");
}

TEST_F(DriverTest, ThePointerReachesKeysAndFrames)
{
    StartWithControls();
    Ok("pointer frmAll Key(0) down");
    Ok("pointer frmAll Key(0) move");
    Ok("pointer frmAll Key(0) move 936");
    Ok("pointer frmAll Key(0) up");
    Ok("pointer frmAll Frame1 move");
    Ok("pointer frmAll Frame1 down 20");
    EXPECT_EQ(controls.events, "keydown1 keymove0 keymove936 keyup1 framemove ");
    controls.events.clear();
    Ok("popup frmAll Key(0)");
    EXPECT_EQ(controls.events, "keydown2 keyup2 ");
    EXPECT_EQ(Error("pointer frmAll Label1 down"), "Label1 is not a piano key or a frame");
    EXPECT_EQ(Error("pointer frmAll Key(1) down"), "frmAll has no control Key(1)");
    EXPECT_EQ(Error("pointer frmAll Key(0) sideways"), "usage: pointer WINDOW CONTROL down|up|move [Y]");
    Error("pointer frmAll Key(0) move deep");
}

TEST_F(DriverTest, WindowsCanBeMovedAndChangeTheirState)
{
    StartWithControls();
    Ok("move frmAll -300 150");
    Ok("resize frmAll 6000 4500");
    const Json window = Ok("windows").at("windows").at(0);
    EXPECT_EQ(window, (Json{{"name", "frmAll"},
                            {"form", "frmAll"},
                            {"kind", 0},
                            {"slot", 0},
                            {"caption", ""},
                            {"left", -300},
                            {"top", 150},
                            {"width", 6000},
                            {"height", 4500},
                            {"state", 0},
                            {"active", true}}));
    Ok("minimise frmAll");
    EXPECT_EQ(Ok("windows").at("windows").at(0).at("state"), 1);
    Ok("maximise frmAll");
    EXPECT_EQ(Ok("windows").at("windows").at(0).at("state"), 2);
    Ok("restore active");
    EXPECT_EQ(Ok("windows").at("windows").at(0).at("state"), 0);
    Error("move frmAll 0");
    Error("move frmAll x 0");
    Error("resize frmAll -1 0");
}

TEST_F(DriverTest, TheFrameIsAWindowToo)
{
    StartWithControls();
    Ok("restore frmMain");
    Ok("move frmMain 30 60");
    Ok("resize frmMain 9000 6000");
    EXPECT_EQ(session.Program().app.frame.place.Get(), (Place{30, 60, 9000, 6000}));
    Ok("minimise frmMain");
    EXPECT_EQ(session.Program().app.frame.windowState, WindowState::Minimised);
}

TEST_F(DriverTest, CloseTellsWhetherTheWindowClosed)
{
    StartWithControls();
    EXPECT_EQ(Ok("close frmAll").at("closed"), true);
    Error("close frmAll");
    Error("close active");
    EXPECT_EQ(Ok("close frmMain").at("running"), false);
}

} // namespace
} // namespace velluto::driver
