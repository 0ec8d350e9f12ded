#include "unit/driver/DriverTest.h"
#include "unit/support/NativePath.h"

namespace velluto::driver {
namespace {

TEST_F(DriverTest, CommandsThatNeedTheProgramFailBeforeStart)
{
    for (const char *line : {"exit",
                             "menu mnuExit",
                             "drop mnuFile",
                             "popup frmMain",
                             "click active List1 0",
                             "key active List1 Up",
                             "press active CommClose",
                             "type active Text1 x",
                             "caret active Text1 0",
                             "set active Combo1 0",
                             "drag active VScroll 0",
                             "pointer active Key(0) down",
                             "activate active",
                             "close active",
                             "minimise active",
                             "restore active",
                             "maximise active",
                             "move active 0 0",
                             "resize active 0 0",
                             "windows",
                             "show frmMain",
                             "menus",
                             "tag active",
                             "image active a",
                             "value Lingua"}) {
        EXPECT_EQ(Error(line), "the program is not running") << line;
    }
    EXPECT_FALSE(session.Running());
}

TEST_F(DriverTest, StageAndQueuesAreThereBeforeStart)
{
    for (const char *line : {"sent", "boxes", "dialogs", "printed", "clock 10", "choose cancel", "answer yes"}) {
        Ok(line);
    }
}

TEST_F(DriverTest, StartAnswersTheLanguageDialogWithItsWord)
{
    EXPECT_EQ(Ok("start it").at("running"), true);
    EXPECT_EQ(session.Program().app.settings.Lingua, 1);
    EXPECT_EQ(Error("start it"), "the program is running");
    EXPECT_EQ(Ok("exit").at("running"), false);
    EXPECT_EQ(Ok("start none").at("running"), true);
}

TEST_F(DriverTest, StartOfACancelledFirstRunMayBeGivenAgain)
{
    EXPECT_EQ(Ok("start cancel").at("running"), false);
    Error("windows");
    Error("start fr");
    EXPECT_EQ(Ok("start en").at("running"), true);
    EXPECT_EQ(session.Program().app.settings.Lingua, 2);
}

TEST_F(DriverTest, StartNoneFailsWhereTheLanguageIsAskedFor)
{
    EXPECT_EQ(Error("start none"), "the language was asked for; the choice was cancelled");
    EXPECT_FALSE(std::filesystem::exists(folder.At("Velluto.ini")));
    Error("value Lingua");
}

TEST_F(DriverTest, ValuesOfAnEndedRunCanBeRead)
{
    Ok("start en");
    Ok("exit");
    EXPECT_EQ(Ok("value Lingua").at("value"), 2);
    Error("menus");
}

TEST_F(DriverTest, AFreshStartFindsTheDevicesReleased)
{
    Ok("device out One");
    Ok("device in Keys close=3");
    Ok("start en");
    Ok("menu mnuDevMIDIIn(0)");
    EXPECT_TRUE(session.midi.ins[0].isOpen);
    Ok("exit");
    Ok("device set in 0 open=4");
    Ok("start none");
    EXPECT_FALSE(session.midi.ins[0].isOpen);
}

TEST_F(DriverTest, ChooseQueuesFullPathsAndFilters)
{
    Ok("choose open \"a b.pcg\" 4");
    Ok("choose save " + test::OnFirstDisk("/x/y.pcg"));
    Ok("choose open \"\" 1");
    Ok("choose cancel");
    ASSERT_EQ(session.face.choices.size(), 4U);
    EXPECT_EQ(session.face.choices[0].path, folder.At("a b.pcg"));
    EXPECT_EQ(session.face.choices[0].filterIndex, 4);
    EXPECT_FALSE(session.face.choices[0].cancelled);
    EXPECT_EQ(session.face.choices[1].path, test::OnFirstDisk("/x/y.pcg"));
    EXPECT_FALSE(session.face.choices[2].cancelled);
    EXPECT_EQ(session.face.choices[2].path, "");
    EXPECT_TRUE(session.face.choices[3].cancelled);
    Error("choose open a.pcg");
    Error("choose save");
    Error("choose cancel now");
    Error("choose print a");
    EXPECT_EQ(session.face.choices.size(), 4U);
}

TEST_F(DriverTest, AnswersAreTakenByBoxesThatHaveTheButton)
{
    for (const char *line : {"answer yes", "answer ok", "answer no", "answer cancel"}) {
        Ok(line);
    }
    Error("answer maybe");
    EXPECT_EQ(session.face.MessageBox("t", "a", Box::kYesNoCancel), Box::kYes);
    EXPECT_EQ(session.face.MessageBox("t", "b", Box::kNotice), Box::kOk);
    EXPECT_EQ(session.face.MessageBox("t", "c", Box::kNotice), Box::kOk);
    EXPECT_EQ(session.face.MessageBox("t", "d", Box::kYesNoCancel), Box::kCancel);
    EXPECT_EQ(session.face.MessageBox("t", "e", Box::kYesNoCancel), Box::kCancel);
    const Json boxes = Ok("boxes").at("boxes");
    ASSERT_EQ(boxes.size(), 5U);
    EXPECT_EQ(boxes[0], (Json{{"title", "t"}, {"text", "a"}, {"buttons", "yesnocancel"}, {"answer", "yes"}}));
    EXPECT_EQ(boxes[1], (Json{{"title", "t"}, {"text", "b"}, {"buttons", "ok"}, {"answer", "ok"}}));
    EXPECT_EQ(Ok("boxes").at("boxes").size(), 0U);
}

TEST_F(DriverTest, ClockFiresTheTimersOfOpenWindows)
{
    StartWithControls();
    int ticks = 0;
    controls.timer.Tick = [&ticks] { ++ticks; };
    Ok("clock 149");
    EXPECT_EQ(ticks, 2);
    EXPECT_EQ(session.clock.Time(), "12:00:00");
    Ok("clock 851");
    EXPECT_EQ(ticks, 20);
    EXPECT_EQ(session.clock.Time(), "12:00:01");
    Error("clock x");
    session.Program().app.children.Unload(controls);
    Ok("clock 100");
    EXPECT_EQ(ticks, 20);
}

} // namespace
} // namespace velluto::driver
