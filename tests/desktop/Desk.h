// The whole program on the desktop's face, in a temporary folder, with stand-ins for all but the screen. The hands of
// the tests press real keys and buttons on its widgets.
#pragma once

#include "desktop/ChildWindow.h"
#include "desktop/ListView.h"
#include "desktop/QtFace.h"
#include "desktop/QtText.h"
#include "desktop/QtTicks.h"
#include "desktop/Twips.h"
#include "program/NamedFiles.h"
#include "unit/support/TestProgram.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velluto::test {

// A list in four columns, and one control of each other kind.
class StubForm : public Form {
public:
    StubForm() : Form("frmStub")
    {
        caption = std::string("Stub");
        place = Place{300, 600, 9000, 6000};
        List1.columns = 4;
        for (int row = 1; row <= 64; ++row) {
            List1.AddItem(" " + std::to_string(row));
        }
        List1.place = Place{0, 0, 8400, 4080};
        Line.place = Place{0, 4200, 3000, 360};
        Many.multiLine = true;
        Many.place = Place{3150, 4200, 3000, 900};
        Box.caption = std::string("&Hold");
        Box.place = Place{0, 4650, 1500, 300};
        Push.caption = std::string("&Push");
        Push.place = Place{6300, 4200, 1500, 375};
        Choice.rows = {"one", "two", "three"};
        Choice.place = Place{6300, 4650, 1500, 345};
        Words.caption = std::string("A label much too long for the little room that it has been given");
        Words.place = Place{1600, 4650, 1400, 300};
        List1.Click = [this] { heard.push_back("Click " + std::to_string(List1.ListIndex())); };
        List1.DblClick = [this] { heard.push_back("DblClick " + std::to_string(List1.ListIndex())); };
        List1.KeyDown = [this](int key) { heard.push_back("KeyDown " + std::to_string(key)); };
        List1.MouseDown = [this](int button) { heard.push_back("MouseDown " + std::to_string(button)); };
        Push.Click = [this] { heard.emplace_back("Push"); };
        Box.Click = [this] { heard.emplace_back(Box.value ? "Box on" : "Box off"); };
        Choice.Click = [this] { heard.push_back("Choice " + std::to_string(Choice.ListIndex)); };
        Line.Change = [this] { heard.push_back("Line " + Line.text.Get()); };
        Many.Change = [this] { heard.push_back("Many " + Many.text.Get()); };
        Clock.enabled = false;
    }

    ListBox List1{*this, "List1"};
    TextBox Line{*this, "Line"};
    TextBox Many{*this, "Many"};
    CheckBox Box{*this, "Box"};
    Button Push{*this, "Push"};
    ComboBox Choice{*this, "Choice"};
    Label Words{*this, "Words"};
    Timer Clock{*this, "Clock", 1};

    std::vector<std::string> heard;
    Size smallest; // the form gives itself at least this size
    bool refuses = false;
    int resized = 0;

    bool Form_QueryUnload() override { return !refuses; }
    void Form_MouseDown(int button) override { heard.push_back("Form_MouseDown " + std::to_string(button)); }
    void Form_LostFocus() override { heard.emplace_back("Form_LostFocus"); }
    void Form_Resize() override
    {
        ++resized;
        const Size wanted{std::max(Width(), smallest.width), std::max(Height(), smallest.height)};
        if (wanted != Size{Width(), Height()}) {
            place = Place{Left(), Top(), wanted.width, wanted.height};
        }
    }
    [[nodiscard]] std::vector<std::string> TakeHeard() { return std::exchange(heard, {}); }
};

class Desk : public testing::Test {
protected:
    Desk()
    {
        // One device each way, so that a start shows no box.
        midi.outs.push_back({"Synth out", {}, false, false, {}});
        midi.ins.push_back({"Keys in", {}, false, false, {}});
    }
    // The program as a user meets it who has once chosen English.
    void Start()
    {
        {
            TestProgram before(folder);
            before.Start(language);
            before.program.app.frame.windowState = WindowState::Normal;
            before.program.app.frame.place = Place{300, 300, 15000, 10500};
            before.Exit();
        }
        Attach();
        ASSERT_TRUE(StartUp(program));
        Settle();
    }
    void Attach()
    {
        face.Attach({program.app.frame, program.app.children, program.app.messages.LinguaBase, [this] { return CloseFrame(program); },
                     [this](const std::string &path) { OpenFileByName(program, path); }});
    }
    void TearDown() override
    {
        ++test_;
        app.children.ChildCount = 0;
        face.Detach();
        Settle();
        // A test that has ended the program has asked Qt to quit: until it has, no later box would stay open.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QApplication::exec();
    }
    static void Settle()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
    }

    [[nodiscard]] MainWindow &Frame() { return *face.Window(); }
    [[nodiscard]] ChildWindow &Window(const Form &form) { return *Frame().WindowOf(form); }
    template <class W>
    [[nodiscard]] W &Widget(const Form &form, const char *name)
    {
        auto *found = dynamic_cast<W *>(Window(form).findChild<QWidget *>(QString::fromUtf8(name)));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }
    [[nodiscard]] ListView &List(const Form &form, const char *name = "List1") { return Widget<ListView>(form, name); }
    void ClickRow(const Form &form, int row, Qt::KeyboardModifiers modifiers = {})
    {
        ListView &view = List(form);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, modifiers, view.visualRect(view.model()->index(row, 0)).center());
    }
    static std::vector<int> SelectedRows(const ListBox &list)
    {
        std::vector<int> rows;
        for (int row = 0; row < list.ListCount(); ++row) {
            if (list.Selected(row)) {
                rows.push_back(row);
            }
        }
        return rows;
    }
    [[nodiscard]] QAction *ActionOf(const MenuEntry &entry) { return Frame().findChild<QAction *>(FromUtf8(entry.FullName())); }

    // A form that lives until the face has let go of it.
    StubForm &NewForm() { return *forms_.emplace_back(std::make_unique<StubForm>()); }

    // Runs once a modal window is up; what it does has to close it. Waits no longer than its test.
    template <class Acts>
    static void WhenModal(Acts acts)
    {
        QTimer::singleShot(0, qApp, [acts, test = test_] {
            if (test != test_) {
                return;
            }
            QWidget *modal = QApplication::activeModalWidget();
            if (modal == nullptr) {
                WhenModal(acts);
            } else {
                acts(*modal);
            }
        });
    }

    std::shared_ptr<TempFolder> folder = std::make_shared<TempFolder>();
    FilesFrom machine{folder->Path()};
    StandinMidi midi;
    StandinClock clock;
    StandinPrinter printer;
    StandinSequencer sequencer;
    MachineFolders folders;
    QtFace face;
    QtTicks tickTimer{face.Gate()};
    Velluto program{Ports{machine, midi, clock, printer, sequencer, folders, tickTimer}, face};
    Modulo1 &app = program.app;
    TestProgram::Language language = TestProgram::English;

private:
    static inline int test_ = 0; // counts them: who still waits for a modal window then gives up
    std::vector<std::unique_ptr<StubForm>> forms_;
};

} // namespace velluto::test
