// The windows of the factory sounds as they stand on the screen, over the tables that ship with the program.
#include "banks/frmBank117.h"
#include "banks/frmSty.h"
#include "desktop/Desk.h"

#include <QScrollBar>

#include <filesystem>

namespace velluto::test {

namespace {

using testing::ElementsAre;

class FactoryTest : public Desk {
protected:
    void SetUp() override
    {
        for (const char *name : {"Velluto-pcg.txt", "Velluto-sty.txt"}) {
            std::filesystem::copy_file(std::string(VELLUTO_DATA) + "/" + name, folder->At(name));
        }
        Start();
        ChooseMenu(app.frame.mnuDevMIDIOut[0]);
    }
    FactoryForm &Open(MenuEntry &entry)
    {
        ChooseMenu(entry);
        Settle();
        return dynamic_cast<FactoryForm &>(*app.children.Active());
    }
    std::vector<MenuEntry *> AllCommands()
    {
        frmMain &menu = app.frame;
        return {&menu.mnuBankA, &menu.mnuBankB, &menu.mnuBankC,  &menu.mnuBankD,
                &menu.mnuBankE, &menu.mnuBankF, &menu.mnuSty[1], &menu.mnuSty[2]};
    }
    QRect RowRect(const Form &form, int row) { return List(form).visualRect(List(form).model()->index(row, 0)); }
};

TEST_F(FactoryTest, EveryRowIsInViewAndWhole)
{
    for (MenuEntry *entry : AllCommands()) {
        const FactoryForm &form = Open(*entry);
        const ListView &view = List(form);
        EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0) << form.FullName();
        for (int row = 0; row < form.List1.ListCount(); ++row) {
            const QRect rect = RowRect(form, row);
            EXPECT_TRUE(view.viewport()->rect().contains(rect)) << form.FullName() << row;
            const QString text = view.model()->index(row, 0).data().toString();
            EXPECT_LE(QFontMetrics(view.font()).horizontalAdvance(text.trimmed()), rect.width()) << text.toStdString();
        }
    }
}

TEST_F(FactoryTest, AClickPlaysTheSoundThatItsRowNames)
{
    const FactoryForm &form = Open(app.frame.mnuBankA);
    midi.sent.clear();
    ClickRow(form, 0);
    EXPECT_THAT(midi.sent, testing::IsEmpty());
    ClickRow(form, 3); // "02 Wide Grand"
    EXPECT_THAT(midi.sent, ElementsAre(0x7900B0, 0x0120B0, 0x00C0));
    QTest::keyClick(&List(form), Qt::Key_Right); // a column of 31 rows on: "30"
    EXPECT_EQ(form.List1.ListIndex(), 34);
}

TEST_F(FactoryTest, HeadingsAreBoldAndNothingElseIs)
{
    const FactoryForm &form = Open(app.frame.mnuSty[1]);
    for (int row = 0; row < form.List1.ListCount(); ++row) {
        const QVariant own = List(form).model()->index(row, 0).data(Qt::FontRole);
        const bool heading = row % 37 == 0 || row % 37 == 19;
        EXPECT_EQ(own.isValid() && own.value<QFont>().bold(), heading) << row;
    }
}

TEST_F(FactoryTest, BoldLettersAreAsWideAsTheOthers)
{
    const FactoryForm &form = Open(app.frame.mnuBankC);
    const QString text = List(form).model()->index(0, 0).data().toString();
    const auto bold = List(form).model()->index(0, 0).data(Qt::FontRole).value<QFont>();
    EXPECT_EQ(text.trimmed(), QStringLiteral("String/Vocals"));
    EXPECT_EQ(QFontMetrics(bold).horizontalAdvance(text), QFontMetrics(List(form).font()).horizontalAdvance(text));
}

TEST_F(FactoryTest, AStyleGroupKeepsItsColumnInATallerWindow)
{
    FactoryForm &form = Open(app.frame.mnuSty[2]);
    app.children.Resize(form, form.Width() + 3000, form.Height() + 6000);
    Settle();
    for (const int group : {0, 1, 2, 3}) {
        EXPECT_EQ(RowRect(form, group * 37).top(), RowRect(form, 0).top());
        EXPECT_EQ(RowRect(form, group * 37 + 36).left(), RowRect(form, group * 37).left());
    }
    EXPECT_EQ(form.List1.rowsPerColumn, 37);
    ClickRow(form, 0);
    QTest::keyClick(&List(form), Qt::Key_Right);
    EXPECT_EQ(form.List1.ListIndex(), 37);
}

TEST_F(FactoryTest, TheTitleIsShownAsItIsAndSpokenWithoutItsMarks)
{
    const FactoryForm &form = Open(app.frame.mnuBankA);
    EXPECT_EQ(Window(form).windowTitle(), QStringLiteral("Banks A: Piano, E.Piano, Mallet&Bell, Accordion"));
    EXPECT_EQ(List(form).accessibleName(), QStringLiteral("Banks A: Piano, E.Piano, Mallet/Bell, Accordion"));
}

} // namespace

} // namespace velluto::test
