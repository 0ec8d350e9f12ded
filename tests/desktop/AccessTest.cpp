// Every control can be named by a screen reader, in the program's own windows.
#include "desktop/Desk.h"
#include "files/Opening.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUserAll.h"
#include "midi/frmMIDISetup.h"
#include "midi/frmMsgEx.h"
#include "player/MMControl.h"

#include <QAccessible>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

namespace velluto::test {

namespace {

class AccessTest : public Desk {
protected:
    void SetUp() override { Start(); }
    // Each widget that a control of the form is drawn by, found by the control's name.
    static void EachHasAName(const QWidget &window, const Form &form)
    {
        for (const Control *control : form.controls()) {
            const auto *widget = window.findChild<QWidget *>(FromUtf8(control->FullName()));
            // The keys are parts of the piano, and named there.
            if (dynamic_cast<const Timer *>(control) != nullptr || dynamic_cast<const MenuEntry *>(control) != nullptr ||
                dynamic_cast<const PianoKey *>(control) != nullptr || dynamic_cast<const MMControl *>(control) != nullptr) {
                continue;
            }
            ASSERT_NE(widget, nullptr) << control->FullName();
            EXPECT_FALSE(widget->accessibleName().isEmpty()) << control->FullName();
            EXPECT_FALSE(widget->accessibleName().contains(QLatin1Char('&'))) << control->FullName();
            // A name of the program's inside is no name for a person.
            if (dynamic_cast<const Label *>(control) == nullptr) {
                EXPECT_NE(widget->accessibleName(), FromUtf8(control->FullName()));
            }
        }
    }
};

TEST_F(AccessTest, EveryControlOfEveryWindowHasAName)
{
    ChooseMenu(app.frame.mnuPcgNuovo64);
    ChooseMenu(app.frame.mnuStyNuovo);
    ChooseMenu(app.frame.mnuPrfNuovo);
    ChooseMenu(app.frame.mnuMIDISetup);
    ChooseMenu(app.frame.mnuMsgEx);
    ChooseMenu(app.frame.mnuBankA);
    ChooseMenu(app.frame.mnuSty[1]);
    for (const int kind : {25, 26, 27, 28}) {
        ShowStyUserAllWindow(program.files, kind);
    }
    ShowPrfUserAllWindow(program.files);
    ChooseMenu(app.frame.mnuTastiera);
    ChooseMenu(app.frame.mnuMidiPlayer);
    Settle();
    ASSERT_EQ(app.children.All().size(), 14U);
    for (const Form *form : app.children.All()) {
        EachHasAName(Window(*form), *form);
    }
    EachHasAName(Frame(), app.frame);
}

TEST_F(AccessTest, AListIsAListWithItsRowsAndTheirSelection)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    ClickRow(form, 2);
    QAccessibleInterface *list = QAccessible::queryAccessibleInterface(&List(form));
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->role(), QAccessible::List);
    EXPECT_EQ(list->childCount(), 64);
    EXPECT_EQ(list->child(2)->text(QAccessible::Name), QStringLiteral("3"));
    EXPECT_TRUE(list->child(2)->state().selected);
    EXPECT_FALSE(list->child(3)->state().selected);
    EXPECT_TRUE(list->child(2)->rect().isValid());
}

TEST_F(AccessTest, ALabelIsNotReachedByTabAndABoxWithWordsIs)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    EXPECT_EQ(Widget<QWidget>(form, "Words").focusPolicy(), Qt::NoFocus);
    EXPECT_NE(Widget<QWidget>(form, "Line").focusPolicy(), Qt::NoFocus);
}

TEST_F(AccessTest, ANaturalProgramWindowStaysBelow5082Twips)
{
    ChooseMenu(app.frame.mnuPcgNuovo64);
    ASSERT_EQ(app.children.All().size(), 1U);
    EXPECT_LT(app.children.Active()->Height(), 5082);
    // And its 64 rows are all in view.
    const ListView &list = List(*app.children.Active());
    EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(63, 0))));
}

} // namespace

} // namespace velluto::test
