// Every control can be named by a screen reader, in the program's own windows.
#include "desktop/Desk.h"
#include "files/Banks.h"
#include "files/Opening.h"
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
    ShowStyleOverview(program.files, ViewKind::StyleOverview);
    ShowStyleOverview(program.files, ViewKind::StyleOverview + 1);
    ShowStyleOverview(program.files, ViewKind::StyleOverview + 2);
    ShowStyleOverview(program.files, ViewKind::StyleOverviewLast);
    mnuPrfUserAll_Click(program.files);
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

TEST_F(AccessTest, AChildWindowSaysWhetherItIsTheActiveOne)
{
    StubForm &first = NewForm();
    app.children.Show(first);
    StubForm &second = NewForm();
    app.children.Show(second);
    QAccessibleInterface *one = QAccessible::queryAccessibleInterface(&Window(first));
    QAccessibleInterface *other = QAccessible::queryAccessibleInterface(&Window(second));
    EXPECT_EQ(one->role(), QAccessible::Window);
    EXPECT_EQ(one->text(QAccessible::Name), QStringLiteral("Stub"));
    EXPECT_FALSE(one->state().active);
    EXPECT_TRUE(other->state().active);
    app.children.Activate(first);
    Settle();
    EXPECT_TRUE(one->state().active);
    EXPECT_FALSE(other->state().active);
}

TEST_F(AccessTest, AChildWindowThatReachesOutOfTheFrameIsInView)
{
    StubForm &form = NewForm();
    form.place = Place{300, 600, 30000, 30000};
    app.children.Show(form);
    const QAccessible::State state = QAccessible::queryAccessibleInterface(&Window(form))->state();
    EXPECT_FALSE(state.offscreen);
    EXPECT_FALSE(state.invisible);
}

TEST_F(AccessTest, TheMenuOfAChildWindowComesByKeyAndBelongsToIt)
{
    StubForm &form = NewForm();
    app.children.Show(form);
    QAccessibleInterface *window = QAccessible::queryAccessibleInterface(&Window(form));
    ASSERT_EQ(window->childCount(), 1);
    QTest::keyClick(&Frame(), Qt::Key_Minus, Qt::AltModifier);
    ASSERT_EQ(window->childCount(), 2);
    QAccessibleInterface *menu = window->child(1);
    EXPECT_EQ(menu->role(), QAccessible::PopupMenu);
    EXPECT_EQ(window->indexOfChild(menu), 1);
    Window(form).systemMenu()->hide();
    EXPECT_EQ(window->childCount(), 1);
}

TEST_F(AccessTest, AFrameAroundControlsIsAGroupAndNoWindow)
{
    ChooseMenu(app.frame.mnuTastiera);
    auto *box = Window(*app.children.Active()).findChild<QFrame *>(QStringLiteral("Frame1"));
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(box)->role(), QAccessible::Grouping);
}

TEST_F(AccessTest, AComboBoxIsNamedByALabelThatNobodySees)
{
    ChooseMenu(app.frame.mnuMIDISetup);
    auto *combo = Window(*app.children.Active()).findChild<QComboBox *>(QStringLiteral("Combo1(3)"));
    ASSERT_NE(combo, nullptr);
    const auto relations = QAccessible::queryAccessibleInterface(combo)->relations(QAccessible::Label);
    ASSERT_EQ(relations.size(), 1);
    EXPECT_EQ(relations[0].first->text(QAccessible::Name), QStringLiteral("MIDI Channel 3"));
    EXPECT_TRUE(relations[0].first->state().invisible);
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
