#include "view/ControlArray.h"
#include "view/FolderControls.h"
#include "view/Gestures.h"

#include <gtest/gtest.h>

#include <stdexcept>

using namespace velluto;

namespace {

struct Window : Form {
    Window() : Form("Window") {}
    int resizes = 0;
    void Form_Resize() override { ++resizes; }

    Button CommClose{*this, "CommClose"};
    CheckBox Check1{*this, "Check1"};
    ControlArray<OptionButton, 0, 3> Option1{*this, "Option1"};
    ComboBox Combo1{*this, "Combo1"};
    TextBox Text1{*this, "Text1"};
    ListBox List1{*this, "List1"};
};

} // namespace

TEST(Controls, AreFoundByNameAndNumber)
{
    Window window;
    EXPECT_EQ(ControlNamed(window, "CommClose"), &window.CommClose);
    EXPECT_EQ(ControlNamed(window, "Option1", 2), &window.Option1[2]);
    EXPECT_EQ(ControlNamed(window, "Option1"), nullptr);
    EXPECT_EQ(ControlNamed(window, "Option1", 3), nullptr);
    EXPECT_EQ(window.Option1[2].FullName(), "Option1(2)");
    EXPECT_EQ(window.CommClose.FullName(), "CommClose");
    EXPECT_THROW(window.Option1[3], std::out_of_range);
}

TEST(Controls, AFormWithANumberShowsItInItsName)
{
    const Form slot("frmPcgUN", 3);
    const Form tool("frmMsgEx");
    EXPECT_EQ(slot.FullName(), "frmPcgUN(3)");
    EXPECT_EQ(tool.FullName(), "frmMsgEx");
}

TEST(Controls, AWriteToACheckBoxRaisesItsClickOnlyOnAChange)
{
    Window window;
    int clicks = 0;
    window.Check1.Click = [&] { ++clicks; };
    window.Check1.value = true;
    window.Check1.value = true;
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(Press(window.Check1));
    EXPECT_FALSE(window.Check1.value);
    EXPECT_EQ(clicks, 2);
}

TEST(Controls, OneOptionOfAGroupIsSetAndOnlyThatOneRaisesClick)
{
    Window window;
    std::vector<int> clicks;
    for (int i = 0; i < 3; ++i) {
        window.Option1[i].Click = [&clicks, i] { clicks.push_back(i); };
    }
    window.Option1[0].value = true;
    EXPECT_TRUE(Press(window.Option1[2]));
    EXPECT_FALSE(window.Option1[0].value);
    EXPECT_TRUE(window.Option1[2].value);
    EXPECT_EQ(clicks, (std::vector<int>{0, 2}));
}

TEST(Controls, AChangeOfAComboOrATextRaisesItsEventOnce)
{
    Window window;
    int clicks = 0;
    int changes = 0;
    window.Combo1.Click = [&] { ++clicks; };
    window.Text1.Change = [&] { ++changes; };
    window.Combo1.ListIndex = 4;
    window.Combo1.ListIndex = 4;
    window.Text1.text = std::string("words");
    window.Text1.text = std::string("words");
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(changes, 1);
}

TEST(Controls, ADisabledOrHiddenControlCannotBePressed)
{
    Window window;
    int clicks = 0;
    window.CommClose.Click = [&] { ++clicks; };
    EXPECT_TRUE(Press(window.CommClose));
    window.CommClose.enabled = false;
    EXPECT_FALSE(Press(window.CommClose));
    window.CommClose.enabled = true;
    window.CommClose.visible = false;
    EXPECT_FALSE(Press(window.CommClose));
    EXPECT_EQ(clicks, 1);
    EXPECT_FALSE(Press(window.List1));
}

TEST(Controls, TheObserverHearsOfAChangeBeforeTheEvent)
{
    Window window;
    std::vector<std::string> order;
    window.Check1.observer = [&](Aspect) { order.emplace_back("observer"); };
    window.Check1.Click = [&] { order.emplace_back("click"); };
    window.Check1.value = true;
    EXPECT_EQ(order, (std::vector<std::string>{"observer", "click"}));
}

TEST(Controls, AFormIsResizedByAChangeOfSizeOrStateOnceItIsLoaded)
{
    Window window;
    window.place = Place{0, 0, 100, 100};
    EXPECT_EQ(window.resizes, 0);
    window.Load();
    window.place = Place{50, 60, 100, 100};
    EXPECT_EQ(window.resizes, 0);
    window.place = Place{50, 60, 200, 100};
    EXPECT_EQ(window.resizes, 1);
    window.place = Place{50, 60, 200, 300};
    EXPECT_EQ(window.resizes, 2);
    window.windowState = WindowState::Minimised;
    EXPECT_EQ(window.resizes, 3);
    EXPECT_EQ(window.place.Get(), (Place{50, 60, 200, 300}));
    window.Unload();
    window.place = Place{50, 60, 400, 300};
    EXPECT_EQ(window.resizes, 3);
}

TEST(Controls, ScaleSizeIsTheOuterSizeLessTheFrame)
{
    Window window;
    window.frame = {120, 450};
    window.place = Place{0, 0, 4000, 3000};
    EXPECT_EQ(window.ScaleWidth(), 3880);
    EXPECT_EQ(window.ScaleHeight(), 2550);
}

namespace {

struct Sliders : Form {
    Sliders() : Form("Sliders")
    {
        bar.min = 127;
        bar.value = 64;
        bar.Change = [this] { heard += "change" + std::to_string(bar.value) + " "; };
        bar.Scroll = [this] { heard += "scroll" + std::to_string(bar.value) + " "; };
    }
    std::string heard;
    ScrollBar bar{*this, "VScroll", 0};
};

} // namespace

TEST(ScrollBars, AWriteRaisesChangeInsideTheWriteAndOnlyWhereTheValueDiffers)
{
    Sliders form;
    int seen = -1;
    form.bar.Change = [&] { seen = form.bar.value; };
    form.bar.value = 64;
    EXPECT_EQ(seen, -1);
    form.bar.value = 65;
    EXPECT_EQ(seen, 65);
}

TEST(ScrollBars, DrawnAlongTheyScrollAndLetGoTheyChange)
{
    Sliders form;
    ScrollGesture::DragTo(form.bar, 65);
    ScrollGesture::DragTo(form.bar, 66);
    ScrollGesture::DragTo(form.bar, 66);
    EXPECT_EQ(form.heard, "scroll65 scroll66 ");
    ScrollGesture::LetGo(form.bar);
    ScrollGesture::LetGo(form.bar);
    EXPECT_EQ(form.heard, "scroll65 scroll66 change66 ");
}

TEST(ScrollBars, TakenHoldOfAndNotMovedTheySayNothing)
{
    Sliders form;
    ScrollGesture::DragTo(form.bar, 64);
    ScrollGesture::LetGo(form.bar);
    EXPECT_EQ(form.heard, "");
}

TEST(ScrollBars, SetElsewhereWhileHeldTheyChangeOnce)
{
    Sliders form;
    ScrollGesture::DragTo(form.bar, 70);
    ScrollGesture::MoveTo(form.bar, 80);
    ScrollGesture::LetGo(form.bar);
    EXPECT_EQ(form.heard, "scroll70 change80 ");
}

TEST(ScrollBars, StayWithinTheirEndsWhicheverIsTheLarger)
{
    Sliders form;
    ScrollGesture::MoveTo(form.bar, 200);
    EXPECT_EQ(form.bar.value, 127);
    ScrollGesture::DragTo(form.bar, -5);
    EXPECT_EQ(form.bar.value, 0);
    form.bar.min = 0;
    form.bar.max = 3;
    ScrollGesture::MoveTo(form.bar, 9);
    EXPECT_EQ(form.bar.value, 3);
}

TEST(PianoKeys, TellTheirFaceOfColourAndDot)
{
    struct OneKey : Form {
        OneKey() : Form("OneKey") {}
        PianoKey key{*this, "Key", 0};
    } form;
    std::vector<Aspect> told;
    form.key.observer = [&](Aspect aspect) { told.push_back(aspect); };
    form.key.color = 0xFFFFFF;
    form.key.dot = true;
    form.key.dot = true;
    EXPECT_EQ(told, (std::vector<Aspect>{Aspect::Color, Aspect::Checked}));
}

TEST(ListBoxRows, RewrittenKeepSelectionAndCurrentRowByNumber)
{
    Form form("Window");
    ListBox list(form, "List1");
    list.SetRows({"b", "c"});
    list.Select(1, true);
    list.SetListIndex(1);
    list.RewriteRows({"a", "b", "c"});
    EXPECT_EQ(list.Rows(), (std::vector<std::string>{"a", "b", "c"}));
    EXPECT_TRUE(list.Selected(1));
    EXPECT_FALSE(list.Selected(2));
    EXPECT_EQ(list.ListIndex(), 1);
    list.RewriteRows({"x"}); // what lies beyond stays
    EXPECT_EQ(list.Rows(), (std::vector<std::string>{"x", "b", "c"}));
}

TEST(TimerStarts, CountWhenItIsSwitchedOn)
{
    Form form("Window");
    Timer timer(form, "Timer1", 10);
    timer.enabled = true; // it was
    EXPECT_EQ(timer.Starts(), 0U);
    timer.enabled = false;
    timer.enabled = true;
    EXPECT_EQ(timer.Starts(), 1U);
}

TEST(DriveListTest, ChoosingTellsOfItAlsoWhereNothingChanges)
{
    Form form("Window");
    DriveList drives(form, "Drive1");
    int changes = 0;
    drives.Change = [&changes] { ++changes; };
    EXPECT_EQ(drives.Drive(), "");
    drives.rows = {"/", "/media/stick"};
    drives.Choose(1);
    drives.Choose(1);
    EXPECT_EQ(drives.Drive(), "/media/stick");
    EXPECT_EQ(changes, 2);
    drives.ListIndex = 0; // the program's own doing
    EXPECT_EQ(changes, 2);
}

TEST(Focus, IsToldToTheOneWhoDraws)
{
    Form form("Window");
    TextBox box(form, "Text1");
    int told = 0;
    box.observer = [&told](Aspect aspect) { told += aspect == Aspect::Focus ? 1 : 0; };
    box.SetFocus();
    EXPECT_EQ(told, 1);
}
