#include "view/ChildWindows.h"

#include "standin/StandinFace.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

using namespace velluto;

namespace {

using Events = std::vector<std::string>;

struct RecordingForm : Form {
    RecordingForm(std::string name, Events &log) : Form(std::move(name)), events(log) {}
    void Note(const std::string &event) { events.push_back(name() + " " + event); }
    void Form_Load() override { Note("Load"); }
    bool Form_QueryUnload() override
    {
        Note("QueryUnload");
        return !refuses;
    }
    void Form_Unload() override { Note("Unload"); }
    void Form_Activate() override { Note("Activate"); }
    void Form_Deactivate() override { Note("Deactivate"); }
    void Form_LostFocus() override { Note("LostFocus"); }
    void Form_Resize() override { Note("Resize"); }
    Events &events;
    bool refuses = false;
};

struct ChildWindowsTest : testing::Test {
    StandinFace face;
    ChildWindows children{face};
    Events events;
    RecordingForm a{"a", events};
    RecordingForm b{"b", events};
    RecordingForm c{"c", events};

    void ShowAll()
    {
        children.Show(a);
        children.Show(b);
        children.Show(c);
        events.clear();
    }
};

} // namespace

TEST_F(ChildWindowsTest, ShowLoadsResizesAndActivatesInThisOrder)
{
    children.Show(a);
    EXPECT_EQ(events, (Events{"a Load", "a Resize", "a Activate"}));
    EXPECT_EQ(children.Active(), &a);
    EXPECT_EQ(a.frame, face.ChildFrame());
}

TEST_F(ChildWindowsTest, TheNextOneShownTakesTheActivationFromTheFirst)
{
    children.Show(a);
    events.clear();
    children.Show(b);
    EXPECT_EQ(events, (Events{"b Load", "b Resize", "a Deactivate", "a LostFocus", "b Activate"}));
    EXPECT_EQ(children.All(), (std::vector<Form *>{&a, &b}));
}

TEST_F(ChildWindowsTest, ShowingAnOpenWindowBringsItUpWithoutALoad)
{
    ShowAll();
    children.Minimise(a);
    events.clear();
    children.Show(a);
    EXPECT_EQ(events, (Events{"a Resize", "c Deactivate", "c LostFocus", "a Activate"}));
    EXPECT_EQ(a.windowState, WindowState::Normal);
}

TEST_F(ChildWindowsTest, ActivatingTheActiveChildOrAClosedOneDoesNothing)
{
    children.Show(a);
    events.clear();
    children.Activate(a);
    children.Activate(b);
    EXPECT_TRUE(events.empty());
}

TEST_F(ChildWindowsTest, AnUnloadedChildHandsOverToTheOneActiveBefore)
{
    ShowAll();
    children.Activate(a);
    events.clear();
    EXPECT_TRUE(children.Unload(a));
    EXPECT_EQ(events, (Events{"a QueryUnload", "a Unload", "c Activate"}));
    EXPECT_EQ(children.Active(), &c);
    EXPECT_FALSE(children.IsOpen(a));
}

TEST_F(ChildWindowsTest, AChildIsStillTheActiveOneWhileItUnloads)
{
    struct Looking : RecordingForm {
        Looking(Events &log, ChildWindows &windows) : RecordingForm("looking", log), all(windows) {}
        void Form_Unload() override { active = all.Active(); }
        ChildWindows &all;
        Form *active = nullptr;
    } looking(events, children);
    children.Show(looking);
    children.Show(b);
    children.Unload(looking);
    EXPECT_EQ(looking.active, &looking);
    children.Show(looking);
    looking.active = nullptr;
    EXPECT_TRUE(children.UnloadAll());
    EXPECT_EQ(looking.active, &looking);
}

TEST_F(ChildWindowsTest, ARefusingChildStays)
{
    ShowAll();
    b.refuses = true;
    EXPECT_FALSE(children.Unload(b));
    EXPECT_TRUE(children.IsOpen(b));
    EXPECT_EQ(children.Active(), &b);
}

TEST_F(ChildWindowsTest, UnloadAllAsksInTheOrderOfOpeningBeforeItUnloadsAny)
{
    ShowAll();
    EXPECT_TRUE(children.UnloadAll());
    Events asked;
    bool unloading = false;
    for (const std::string &event : events) {
        unloading = unloading || event.ends_with(" Unload");
        if (event.ends_with("QueryUnload")) {
            EXPECT_FALSE(unloading);
            asked.push_back(event);
        }
    }
    EXPECT_EQ(asked, (Events{"a QueryUnload", "b QueryUnload", "c QueryUnload"}));
    EXPECT_TRUE(children.All().empty());
    EXPECT_EQ(children.Active(), nullptr);
}

TEST_F(ChildWindowsTest, OneRefusalKeepsThemAll)
{
    ShowAll();
    b.refuses = true;
    EXPECT_FALSE(children.UnloadAll());
    EXPECT_EQ(children.All().size(), 3U);
    for (const std::string &event : events) {
        EXPECT_FALSE(event.ends_with(" Unload")) << event;
        EXPECT_NE(event, "c QueryUnload");
    }
}

TEST_F(ChildWindowsTest, AMoveIsNoResize)
{
    children.Show(a);
    events.clear();
    children.Move(a, 300, 400);
    EXPECT_TRUE(events.empty());
    children.Resize(a, 3000, 2000);
    EXPECT_EQ(events, Events{"a Resize"});
    EXPECT_EQ(a.place.Get(), (Place{300, 400, 3000, 2000}));
}

TEST_F(ChildWindowsTest, AMaximisedWindowKeepsItsNormalPlace)
{
    children.Show(a);
    children.Resize(a, 3000, 2000);
    children.Maximise(a);
    EXPECT_EQ(a.place.Get(), (Place{0, 0, 3000, 2000}));
    children.Restore(a);
    EXPECT_EQ(a.windowState, WindowState::Normal);
}

TEST_F(ChildWindowsTest, TiledWindowsCoverTheWorkspaceWithoutOverlap)
{
    ShowAll();
    const Size space = face.Workspace();
    for (const int order : {1, 2}) {
        children.Arrange(order);
        int area = 0;
        for (const Form *form : children.All()) {
            const Place &place = form->place.Get();
            area += place.width / 15 * (place.height / 15);
            EXPECT_LE(place.left + place.width, space.width);
            EXPECT_LE(place.top + place.height, space.height);
        }
        EXPECT_NEAR(area, space.width / 15 * (space.height / 15), 2000) << order;
    }
}

TEST_F(ChildWindowsTest, TwoWindowsTiledHorizontallyLieOneAboveTheOther)
{
    children.Show(a);
    children.Show(b);
    children.Arrange(1);
    EXPECT_EQ(a.Left(), b.Left());
    EXPECT_NE(a.Top(), b.Top());
    children.Arrange(2);
    EXPECT_EQ(a.Top(), b.Top());
    EXPECT_NE(a.Left(), b.Left());
}

TEST_F(ChildWindowsTest, CascadeStepsDownAndLeavesMinimisedWindowsAlone)
{
    ShowAll();
    children.Minimise(b);
    children.Arrange(0);
    EXPECT_EQ(a.Left(), 0);
    EXPECT_EQ(c.Left(), c.Top());
    EXPECT_GT(c.Top(), a.Top());
    EXPECT_EQ(b.windowState, WindowState::Minimised);
}

TEST_F(ChildWindowsTest, ArrangingNoWindowDoesNothing)
{
    children.Arrange(0);
    children.Arrange(1);
    EXPECT_TRUE(events.empty());
}

TEST_F(ChildWindowsTest, ABuriedFormLivesUntilTheSweep)
{
    struct Mortal : Form {
        explicit Mortal(bool &flag) : Form("mortal"), gone(flag) {}
        ~Mortal() override { gone = true; }
        bool &gone;
    };
    bool gone = false;
    children.Bury(std::make_unique<Mortal>(gone));
    EXPECT_FALSE(gone);
    children.Sweep();
    EXPECT_TRUE(gone);
}
