// A driver session in a temporary folder of its own, for the tests of the commands.
#pragma once

#include "driver/Commands.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velluto::driver {

// A window of every kind of control that the commands reach for.
struct AllControls : Form {
    explicit AllControls() : Form("frmAll")
    {
        list.SetRows({"one", "two", "three", "four"});
        combo.rows = {"OFF", "LOWR"};
        list.Click = [this] { events += "click "; };
        list.DblClick = [this] { events += "dblclick "; };
        list.KeyDown = [this](int key) { events += "key" + std::to_string(key) + " "; };
        button.Click = [this] { events += "button "; };
        check.Click = [this] { events += "check "; };
        text.Change = [this] { events += "change "; };
        text.DblClick = [this] { events += "textdblclick "; };
        label.DblClick = [this] { events += "labeldblclick "; };
        combo.Click = [this] { events += "combo "; };
        bar.min = 20;
        bar.value = 10;
        bar.Change = [this] { events += "change" + std::to_string(bar.value) + " "; };
        bar.Scroll = [this] { events += "scroll" + std::to_string(bar.value) + " "; };
        pianoKey.color = 0x00FF00;
        pianoKey.MouseDown = [this](int mouseButton) { events += "keydown" + std::to_string(mouseButton) + " "; };
        pianoKey.MouseUp = [this](int mouseButton) { events += "keyup" + std::to_string(mouseButton) + " "; };
        pianoKey.MouseMove = [this](int y) { events += "keymove" + std::to_string(y) + " "; };
        box.caption = std::string("Keys");
        box.MouseMove = [this] { events += "framemove "; };
        list.MouseDown = [this](int mouseButton) { events += "mouse" + std::to_string(mouseButton) + " "; };
    }
    void Form_Activate() override { events += "activate "; }
    void Form_MouseDown(int mouseButton) override { events += "formmouse" + std::to_string(mouseButton) + " "; }

    std::string events;
    ListBox list{*this, "List1", 2};
    ComboBox combo{*this, "Combo1"};
    Button button{*this, "CommClose"};
    CheckBox check{*this, "CheckHoldNote"};
    OptionButton left{*this, "Option1", 0};
    OptionButton right{*this, "Option1", 1};
    TextBox text{*this, "Text1"};
    Label label{*this, "Label1"};
    Timer timer{*this, "Timer1", 50};
    Picture picture{*this, "Picture1"};
    ScrollBar bar{*this, "VScroll", 6};
    PianoKey pianoKey{*this, "Key", 0};
    Frame box{*this, "Frame1"};
};

class DriverTest : public testing::Test {
public:
    DriverTest(const DriverTest &) = delete;
    DriverTest &operator=(const DriverTest &) = delete;
    DriverTest() { std::filesystem::current_path(folder.Path()); }
    ~DriverTest() override
    {
        if (session.Running()) {
            session.Program().app.children.UnloadAll();
        }
        std::filesystem::current_path(std::filesystem::temp_directory_path());
    }

protected:
    // The answer, which must be a good one.
    Json Ok(const std::string &line)
    {
        Json answer = driver::Run(session, line);
        EXPECT_EQ(answer.at("ok"), true) << line << ": " << OneLine(answer);
        return answer;
    }
    // The error, of a command that must fail.
    std::string Error(const std::string &line)
    {
        const Json answer = driver::Run(session, line);
        EXPECT_EQ(answer.at("ok"), false) << line << ": " << OneLine(answer);
        EXPECT_EQ(answer.size(), 2U) << line;
        return answer.value("error", "");
    }
    // A running program in English with one device each way and the window of all controls open.
    AllControls &StartWithControls()
    {
        Ok("device out One");
        Ok("device in One");
        Ok("start en");
        session.Program().app.children.Show(controls);
        controls.events.clear();
        return controls;
    }

    test::TempFolder folder;
    AllControls controls;
    Session session;
};

} // namespace velluto::driver
