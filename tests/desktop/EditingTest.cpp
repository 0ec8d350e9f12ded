// Copy, Cut and Paste with real keys and mouse buttons, from window to window; and the same keys in a text box.
#include "desktop/Desk.h"
#include "midi/frmMsgEx.h"
#include "unit/edit/EditedFiles.h"

#include <QClipboard>
#include <QPlainTextEdit>

namespace velluto::test {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The bank User 2 in front, with three Programs in it. The banks of the other types can be opened beside it.
class EditingTest : public Desk {
protected:
    void SetUp() override
    {
        Start();
        app.settings.PcgDocTable[10].Path.Set(Put("a.pcg", {{"Piano", 0, "AAA"}, {"Organ", 1, "bb"}, {"Choir", 2, "CCCC"}}));
        app.frame.mnuPcgUser[10].enabled = true;
        ChooseMenu(app.frame.mnuPcgUser[10]);
        source = dynamic_cast<frmPcgUN *>(program.files.programs.windows[10].get());
        ASSERT_NE(source, nullptr);
        QApplication::clipboard()->clear();
        Settle();
    }
    std::string Put(const std::string &name, const std::vector<Lettered> &items)
    {
        WriteBytes(folder->At(name), FileOf(items));
        return folder->At(name);
    }
    frmPcgUN &NewPcg64()
    {
        ChooseMenu(app.frame.mnuPcgNuovo64);
        Settle();
        return dynamic_cast<frmPcgUN &>(*program.files.programs.windows[11]);
    }
    // Makes the window the active one by a click on a row.
    void Pick(const Form &form, int row, Qt::KeyboardModifiers modifiers = {})
    {
        ClickRow(form, row, modifiers);
        List(form).setFocus();
    }
    void Press(const Form &form, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier)
    {
        QTest::keyClick(&List(form), key, modifiers);
    }
    // As a mouse does it: both move there first. A menu takes no click of a pointer that has not moved since it popped up.
    void RightClick(const Form &form)
    {
        QWidget *rows = List(form).viewport();
        const QPoint place(5, 5);
        QTest::mouseMove(rows, place);
        QTest::mouseClick(rows, Qt::RightButton, {}, place);
        Settle();
    }
    static void ClickEntry(QMenu &menu, QAction *entry)
    {
        const QPoint place = menu.actionGeometry(entry).center();
        QTest::mouseMove(&menu, menu.rect().topLeft() + QPoint(1, 1));
        QTest::mouseMove(&menu, place);
        QTest::mouseClick(&menu, Qt::LeftButton, {}, place);
        Settle();
    }
    // A row as it stands on the screen.
    QString Shown(const Form &form, int row)
    {
        QString text = List(form).model()->index(row, 0).data().toString();
        while (text.endsWith(QLatin1Char(' '))) {
            text.chop(1);
        }
        return text;
    }
    static std::string Image(const Form &form) { return Legible(BytesOf(form.Tag.image)); }

    frmPcgUN *source = nullptr;
};

// --- The keys of the menu

TEST_F(EditingTest, CtrlCAndCtrlVMoveItemsFromWindowToWindow)
{
    Pick(*source, 1);
    Pick(*source, 2, Qt::ShiftModifier);
    Press(*source, Qt::Key_C);
    frmPcgUN &target = NewPcg64();
    Pick(target, 4);
    Press(target, Qt::Key_V);
    EXPECT_EQ(Image(target), Legible(Written({{"Organ", 4}, {"Choir", 5}}, "bbCCCC", {84, 86})));
    EXPECT_EQ(Shown(target, 3), QStringLiteral(" 004"));
    EXPECT_EQ(Shown(target, 4), QStringLiteral(" 005 Organ"));
    EXPECT_EQ(Shown(target, 5), QStringLiteral(" 006 Choir"));
    EXPECT_EQ(Shown(*source, 1), QStringLiteral(" 002 Organ"));
    EXPECT_THAT(SelectedRows(target.List1), ElementsAre(4));
}

TEST_F(EditingTest, CtrlZCuts)
{
    Pick(*source, 0);
    Press(*source, Qt::Key_Z);
    EXPECT_EQ(Image(*source), Legible(Written({{"Organ", 1}, {"Choir", 2}}, "bbCCCC", {84, 86})));
    EXPECT_EQ(Shown(*source, 0), QStringLiteral(" 001"));
    EXPECT_EQ(Shown(*source, 1), QStringLiteral(" 002 Organ"));
    EXPECT_THAT(SelectedRows(source->List1), ElementsAre(0));
}

TEST_F(EditingTest, AShortcutThatTheMenuDoesNotOfferDoesNothing)
{
    const std::string before = Image(*source);
    Pick(*source, 9);
    Press(*source, Qt::Key_C);
    Press(*source, Qt::Key_Z);
    Press(*source, Qt::Key_V);
    EXPECT_EQ(Image(*source), before);
    EXPECT_EQ(program.files.clipboard.ClipValid, 0);
}

TEST_F(EditingTest, TheKeysActOnTheActiveWindowWhateverOfItHasTheFocus)
{
    Pick(*source, 1);
    Widget<QAbstractButton>(*source, "CommClose").setFocus();
    QTest::keyClick(&Widget<QAbstractButton>(*source, "CommClose"), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(program.files.clipboard.ClipFirstRow, 2);
}

TEST_F(EditingTest, DeleteCuts)
{
    Pick(*source, 2);
    Press(*source, Qt::Key_Delete, Qt::NoModifier);
    EXPECT_EQ(Image(*source), Legible(Written({{"Piano", 0}, {"Organ", 1}}, "AAAbb", {84, 87})));
    EXPECT_EQ(Shown(*source, 2), QStringLiteral(" 003"));
}

TEST_F(EditingTest, DeleteHeldDownCutsOnce)
{
    Pick(*source, 2);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QKeyEvent again(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(&List(*source), &first);
    QCoreApplication::sendEvent(&List(*source), &again);
    EXPECT_EQ(Image(*source), Legible(Written({{"Piano", 0}, {"Organ", 1}}, "AAAbb", {84, 87})));
}

TEST_F(EditingTest, DeleteHeldDownCutsOnceEvenIfTheDisplayTellsOfReleases)
{
    Pick(*source, 2);
    for (const quint64 at : {1000ULL, 1030ULL, 1060ULL}) {
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Delete, Qt::NoModifier);
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
        release.setTimestamp(at);
        press.setTimestamp(at);
        if (at != 1000) {
            QCoreApplication::sendEvent(&List(*source), &release);
        }
        QCoreApplication::sendEvent(&List(*source), &press);
    }
    EXPECT_EQ(Image(*source), Legible(Written({{"Piano", 0}, {"Organ", 1}}, "AAAbb", {84, 87})));
}

TEST_F(EditingTest, DeleteOnAButtonOfTheWindowCutsNothing)
{
    Pick(*source, 2);
    const std::string before = Image(*source);
    auto &button = Widget<QAbstractButton>(*source, "CommClose");
    button.setFocus();
    QTest::keyClick(&button, Qt::Key_Delete);
    EXPECT_EQ(Image(*source), before);
}

// --- The right button

TEST_F(EditingTest, TheRightButtonPopsTheEditMenuUpWithWhatTheSelectionAllows)
{
    Pick(*source, 1);
    RightClick(*source);
    QMenu &menu = *ActionOf(app.frame.mnuModifica)->menu();
    ASSERT_TRUE(menu.isVisible());
    QAction &copy = *ActionOf(app.frame.mnuCopia);
    EXPECT_TRUE(copy.isEnabled());
    EXPECT_TRUE(ActionOf(app.frame.mnuTaglia)->isEnabled());
    EXPECT_FALSE(ActionOf(app.frame.mnuIncolla)->isEnabled());
    ClickEntry(menu, &copy);
    EXPECT_FALSE(menu.isVisible());
    EXPECT_EQ(program.files.clipboard.ClipFirstRow, 2);

    Pick(*source, 9);
    RightClick(*source);
    EXPECT_FALSE(copy.isEnabled());
    EXPECT_TRUE(ActionOf(app.frame.mnuIncolla)->isEnabled());
    ClickEntry(menu, ActionOf(app.frame.mnuIncolla));
    EXPECT_EQ(Shown(*source, 9), QStringLiteral(" 010 Organ"));
    EXPECT_EQ(Image(*source),
              Legible(Written({{"Piano", 0}, {"Organ", 1}, {"Choir", 2}, {"Organ", 9}}, "AAAbbCCCCbb", {132, 135, 137, 141})));
}

TEST_F(EditingTest, TheRightButtonBesideTheListPopsItUpToo)
{
    Pick(*source, 1);
    ChildWindow &window = Window(*source);
    QWidget &close = Widget<QAbstractButton>(*source, "CommClose");
    const QPoint beside = close.mapTo(&window, QPoint(-10, close.height() / 2));
    QWidget *area = window.childAt(beside);
    ASSERT_NE(area, nullptr);
    QTest::mouseClick(area, Qt::RightButton, {}, area->mapFrom(&window, beside));
    Settle();
    EXPECT_TRUE(ActionOf(app.frame.mnuModifica)->menu()->isVisible());
    EXPECT_TRUE(ActionOf(app.frame.mnuCopia)->isEnabled());
    ActionOf(app.frame.mnuModifica)->menu()->hide();
}

// --- Styles

TEST_F(EditingTest, AStylePastedIntoANewFileSwitchesTheStsButton)
{
    app.settings.StyDocTable[10].Path.Set(Put("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}}));
    app.frame.mnuStyUser[10].enabled = true;
    ChooseMenu(app.frame.mnuStyUser[10]);
    Settle();
    frmStyUN &styles = dynamic_cast<frmStyUN &>(*program.files.styles.windows[10]);
    Pick(styles, 1);
    Press(styles, Qt::Key_C);
    ChooseMenu(app.frame.mnuStyNuovo);
    Settle();
    frmStyUN &target = dynamic_cast<frmStyUN &>(*program.files.styles.windows[0]);
    EXPECT_TRUE(Widget<QAbstractButton>(target, "CommSTS").isEnabled());
    Pick(target, 15);
    Press(target, Qt::Key_V);
    EXPECT_EQ(Shown(target, 15), QStringLiteral(" 16 Beguine              4"));
    EXPECT_FALSE(Widget<QAbstractButton>(target, "CommSTS").isEnabled());
}

// --- In a text box the keys are the text's

TEST_F(EditingTest, InTheMonitorTheKeysAreThoseOfItsText)
{
    Pick(*source, 1);
    const std::string before = Image(*source);
    ChooseMenu(app.frame.mnuMsgEx);
    Settle();
    frmMsgEx &monitor = *program.midi.monitor;
    monitor.Text1.text = std::string("90 3C 40 ");
    Settle();
    // Even if the menu offered them.
    std::vector<std::string> heard;
    app.frame.mnuModifica.Drop = [this] { app.frame.mnuTaglia.enabled = app.frame.mnuCopia.enabled = app.frame.mnuIncolla.enabled = true; };
    app.frame.mnuTaglia.Click = [&heard] { heard.emplace_back("cut"); };
    app.frame.mnuCopia.Click = [&heard] { heard.emplace_back("copy"); };
    app.frame.mnuIncolla.Click = [&heard] { heard.emplace_back("paste"); };
    auto &text = Widget<QPlainTextEdit>(monitor, "Text1");
    text.setFocus();
    text.selectAll();
    QTest::keyClick(&text, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("90 3C 40 "));
    QTest::keyClick(&text, Qt::Key_Z, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_V, Qt::ControlModifier);
    QTest::keyClick(&text, Qt::Key_Delete);
    EXPECT_THAT(heard, IsEmpty());
    EXPECT_EQ(text.toPlainText(), QStringLiteral("90 3C 40 ")) << "it is only read";
    EXPECT_EQ(Image(*source), before);
}

TEST_F(EditingTest, WhereTextIsTypedTheKeysEditIt)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    Settle();
    std::vector<std::string> heard;
    app.frame.mnuModifica.Drop = [this] { app.frame.mnuTaglia.enabled = app.frame.mnuCopia.enabled = app.frame.mnuIncolla.enabled = true; };
    app.frame.mnuTaglia.Click = [&heard] { heard.emplace_back("cut"); };
    app.frame.mnuCopia.Click = [&heard] { heard.emplace_back("copy"); };
    app.frame.mnuIncolla.Click = [&heard] { heard.emplace_back("paste"); };
    for (const char *name : {"Line", "Many"}) {
        auto &edit = Widget<QWidget>(form, name);
        const TextBox &box = name == std::string_view("Line") ? form.Line : form.Many;
        edit.setFocus();
        QTest::keyClicks(&edit, QStringLiteral("notes"));
        QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&edit, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("notes"));
        QTest::keyClick(&edit, Qt::Key_End);
        QTest::keyClick(&edit, Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(box.text.Get(), "notesnotes") << name;
        QTest::keyClick(&edit, Qt::Key_Z, Qt::ControlModifier);
        EXPECT_EQ(box.text.Get(), "notes") << name;
        QTest::keyClick(&edit, Qt::Key_Home);
        QTest::keyClick(&edit, Qt::Key_Delete);
        EXPECT_EQ(box.text.Get(), "otes") << name;
        QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&edit, Qt::Key_X, Qt::ControlModifier);
        EXPECT_EQ(box.text.Get(), "") << name;
        EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("otes"));
    }
    EXPECT_THAT(heard, IsEmpty());
}

} // namespace

} // namespace velluto::test
