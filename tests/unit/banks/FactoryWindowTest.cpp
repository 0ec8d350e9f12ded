// The windows of the factory sounds: how they open, stand, close and play.
#include "FactoryDesk.h"

namespace velluto::test {
namespace {

const Place kBankNatural{0, 0, 101 * 135 + 8 * 15, 32 * 240 + 30 * 15};
const Place kStyleNatural{0, 0, 88 * 135 + 8 * 15, 38 * 240 + 30 * 15};

std::string Zeros(std::size_t count)
{
    return std::string(count, '\0');
}

class FactoryWindowTest : public FactoryDesk {
protected:
    void SetUp() override
    {
        WriteTables();
        Start();
    }
};

TEST_F(FactoryWindowTest, EachBankHasAWindowOfItsOwnAndItsCommandIsOffMeanwhile)
{
    const std::pair<MenuEntry *, const char *> banks[] = {{&menu.mnuBankA, "Banks A: Piano, E.Piano, Mallet&Bell, Accordion"},
                                                          {&menu.mnuBankB, "Banks B: Organ, Digital Drawbars, Guitar"},
                                                          {&menu.mnuBankC, "Banks C: String&Vocals, Trumpet&Trombone, Brass"},
                                                          {&menu.mnuBankD, "Banks D: Sax, Woodwind, Synth 1"},
                                                          {&menu.mnuBankE, "Banks E: Synth 2, Bass"},
                                                          {&menu.mnuBankF, "Banks F: Drum&Perc, SFX"}};
    int kind = 2;
    for (const auto &[entry, title] : banks) {
        frmBank117 &window = Bank(kind);
        EXPECT_EQ(app.ViewKind, kind);
        EXPECT_FALSE(entry->enabled);
        EXPECT_EQ(window.FullName(), "frmBank117(" + std::to_string(kind) + ")");
        EXPECT_EQ(window.caption.Get(), title);
        EXPECT_FALSE(window.List1.accessibleName.empty());
        EXPECT_EQ(app.children.Active(), &window);
        EXPECT_EQ(app.children.ChildCount, kind - 1);
        ++kind;
    }
    EXPECT_EQ(Bank(2).List1.accessibleName, "Banks A: Piano, E.Piano, Mallet/Bell, Accordion");
    EXPECT_EQ(Bank(2).List1.ListCount(), 117);
    EXPECT_EQ(Bank(2).List1.Row(2), "01 Prog 3       ");
    EXPECT_EQ(Bank(7).List1.Row(103), "50 Prog 745     ");
    EXPECT_FALSE(app.children.RestoringLayout);
}

TEST_F(FactoryWindowTest, TheTwoStyleListsHaveWindowsOfTheirOwn)
{
    frmSty &first = Styles(1);
    EXPECT_EQ(app.ViewKind, 15);
    EXPECT_FALSE(menu.mnuSty[1].enabled);
    EXPECT_TRUE(menu.mnuSty[2].enabled);
    frmSty &second = Styles(2);
    EXPECT_EQ(app.ViewKind, 16);
    EXPECT_EQ(first.FullName(), "frmSty(1)");
    EXPECT_EQ(second.FullName(), "frmSty(2)");
    EXPECT_EQ(first.caption.Get(), "Banks 1: Style 1-8 ");
    EXPECT_EQ(second.caption.Get(), "Banks 2: Style 9-16");
    EXPECT_EQ(app.children.ChildCount, 2);
    EXPECT_EQ(first.List1.Row(2), "01  Style 3");
    EXPECT_EQ(second.List1.Row(147), "16  Style 256");
}

TEST(FactoryWindowInItalian, TheTitlesFollowTheLanguage)
{
    TestProgram run;
    run.Start(TestProgram::Italian);
    run.Choose(run.program.app.frame.mnuBankE);
    EXPECT_EQ(run.program.app.children.Active()->caption.Get(), "Banchi E: Synth 2, Bass");
    run.Choose(run.program.app.frame.mnuSty[2]);
    EXPECT_EQ(run.program.app.children.Active()->caption.Get(), "Banchi 2: Style 9-16");
}

TEST_F(FactoryWindowTest, TheStateTextOfABankIs65Characters)
{
    Entry(3).Role = 9;
    const WindowTag &tag = Bank(4).Tag;
    EXPECT_EQ(tag.prefix, "\x04" + Zeros(14) + "\x09" + Zeros(4) + "C: String&Vocals, Trumpet&Trombone, Brass" + Blanks(4));
    EXPECT_TRUE(tag.image.empty());
}

TEST_F(FactoryWindowTest, TheStateTextOfAStyleListIs45Characters)
{
    run.program.files.programs.work.State = 2;
    EXPECT_EQ(Styles(1).Tag.prefix, "\x0F" + Zeros(13) + "\x01" + Zeros(1) + "\x02" + Zeros(3) + "1: Style 1-8" + Blanks(13));
    run.program.files.programs.work.State = 0;
    EXPECT_EQ(Styles(2).Tag.prefix, "\x10" + Zeros(13) + "\x02" + Zeros(5) + "2: Style 9-16" + Blanks(12));
}

TEST_F(FactoryWindowTest, ABankStandsInFiveColumnsAndAStyleListInFour)
{
    for (int kind = 2; kind <= 7; ++kind) {
        EXPECT_EQ(Bank(kind).List1.columns, 5) << kind;
    }
    EXPECT_EQ(Styles(1).List1.columns, 4);
    EXPECT_EQ(Styles(2).List1.columns, 4);
}

TEST_F(FactoryWindowTest, AtFirstAWindowHasItsNaturalSizeAndTheEntryLearnsIt)
{
    frmBank117 &bank = Bank(5);
    EXPECT_EQ(bank.place.Get(), kBankNatural);
    EXPECT_EQ(bank.List1.place.Get(), (Place{0, 0, 101 * 135, 32 * 240}));
    EXPECT_EQ(Entry(4).MinWidth, kBankNatural.width);
    EXPECT_EQ(Entry(4).MinHeight, kBankNatural.height);
    EXPECT_EQ(Entry(4).State, 1);
    EXPECT_EQ(Entry(4).Role, 2);
    frmSty &styles = Styles(2);
    EXPECT_EQ(styles.place.Get(), kStyleNatural);
    EXPECT_EQ(styles.List1.place.Get(), (Place{0, 0, 88 * 135, 38 * 240}));
    EXPECT_EQ(Entry(15).MinWidth, kStyleNatural.width);
    EXPECT_EQ(Entry(15).State, 1);
    EXPECT_EQ(Entry(15).Role, 14);
}

TEST_F(FactoryWindowTest, TheListIsInCourierNew11AndOneRowAtATimeIsSelected)
{
    for (FactoryForm *window : {static_cast<FactoryForm *>(&Bank(2)), static_cast<FactoryForm *>(&Styles(1))}) {
        EXPECT_STREQ(window->List1.font.name, "courier new");
        EXPECT_EQ(window->List1.font.size, 11);
        EXPECT_EQ(window->List1.font.weight, 400);
        Click(*window, 3);
        ListGesture::ClickRow(window->List1, 5, Modifier::Ctrl);
        EXPECT_FALSE(window->List1.Selected(3));
        EXPECT_TRUE(window->List1.Selected(5));
    }
}

TEST_F(FactoryWindowTest, RowsWithWordsThatDoNotPlayAreHeadings)
{
    run.program.recall.tables.PcgTable[1] = Blanks(30);
    run.program.recall.tables.PcgTable[36] = Blanks(30);
    EXPECT_EQ(Bank(2).List1.headings, (std::vector<int>{1, 34, 36, 63, 64, 65, 98, 99, 100}));
    EXPECT_EQ(Styles(1).List1.headings, (std::vector<int>{0, 19, 37, 56, 74, 93, 111, 130}));
    EXPECT_EQ(Styles(1).List1.longestColumn, 37) << "a column for each group";
}

TEST_F(FactoryWindowTest, AWindowComesBackWhereItStood)
{
    frmBank117 &bank = Bank(3);
    app.children.Move(bank, 600, -300);
    app.children.Resize(bank, 15000, 9000);
    run.Close(bank);
    EXPECT_EQ(Entry(2).Left, 600);
    EXPECT_EQ(Entry(2).Top, -300);
    EXPECT_EQ(Entry(2).State, 0);
    EXPECT_TRUE(menu.mnuBankB.enabled);
    EXPECT_EQ(app.children.ChildCount, 0);
    EXPECT_FALSE(menu.mnuModifica.enabled);
    EXPECT_EQ(Bank(3).place.Get(), (Place{600, -300, 15000, 9000}));
    EXPECT_EQ(Entry(2).State, 1);
    EXPECT_EQ(Entry(2).MinWidth, kBankNatural.width);
}

TEST_F(FactoryWindowTest, AnEntryThatWasNeverLaidOutGivesAwayItsOldPlace)
{
    Entry(1).Left = 700;
    Entry(1).Top = -300;
    EXPECT_EQ(Bank(2).place.Get(), kBankNatural);
    EXPECT_EQ(Entry(1).Left, 0);
    EXPECT_EQ(Entry(1).Top, 0);
}

TEST_F(FactoryWindowTest, AResizeAndACloseChangeNothingOfTheOtherWindowsEntry)
{
    frmBank117 &first = Bank(2);
    Entry(1).Role = 7;
    Bank(3);
    app.children.Resize(first, kBankNatural.width + 300, kBankNatural.height);
    EXPECT_EQ(Entry(1).Role, 7);
    EXPECT_EQ(Entry(1).Width, kBankNatural.width + 300);
    EXPECT_EQ(Entry(2).Role, 2);
    EXPECT_EQ(Entry(2).Width, kBankNatural.width);
    Bank(4);
    run.Close(first);
    EXPECT_EQ(Entry(1).Role, 7);
    EXPECT_EQ(Entry(1).State, 0);
    EXPECT_EQ(Entry(3).State, 1);
}

TEST_F(FactoryWindowTest, AStyleListThatClosesFreesItsOwnCommandAndEntry)
{
    frmSty &second = Styles(2);
    Styles(1);
    app.children.Move(second, 900, 450);
    run.Close(second);
    EXPECT_TRUE(menu.mnuSty[2].enabled);
    EXPECT_FALSE(menu.mnuSty[1].enabled);
    EXPECT_EQ(Entry(15).Left, 900);
    EXPECT_EQ(Entry(15).Top, 450);
    EXPECT_EQ(Entry(15).State, 0);
    EXPECT_EQ(Entry(14).State, 1);
    EXPECT_EQ(app.children.ChildCount, 1);
}

TEST_F(FactoryWindowTest, ABankThatClosesLeavesItsKindAndAStyleListLeavesNone)
{
    frmBank117 &bank = Bank(3);
    frmSty &styles = Styles(1);
    run.Close(bank);
    EXPECT_EQ(app.ViewKind, 3);
    run.Close(styles);
    EXPECT_EQ(app.ViewKind, 3);
}

TEST_F(FactoryWindowTest, NoSmallerThanNatural)
{
    frmBank117 &bank = Bank(2);
    app.children.Resize(bank, 3000, 12000);
    EXPECT_EQ(bank.Width(), kBankNatural.width);
    EXPECT_EQ(bank.Height(), 12000);
    EXPECT_EQ(bank.List1.place.Get(), (Place{0, 0, 101 * 135, 12000 - 30 * 15}));
    EXPECT_EQ(Entry(1).Height, 12000);
    app.children.Resize(bank, 16000, 100);
    EXPECT_EQ(bank.Width(), 16000);
    EXPECT_EQ(bank.Height(), kBankNatural.height);
    EXPECT_EQ(Entry(1).Width, 16000);
    EXPECT_EQ(Entry(1).Height, kBankNatural.height);
    EXPECT_EQ(Entry(1).MinHeight, kBankNatural.height);
}

TEST_F(FactoryWindowTest, TheOpenByteFollowsTheWindow)
{
    frmSty &styles = Styles(1);
    app.children.Minimise(styles);
    EXPECT_EQ(Entry(14).State, 2);
    EXPECT_EQ(Entry(14).Width, kStyleNatural.width);
    app.children.Restore(styles);
    EXPECT_EQ(Entry(14).State, 1);
    app.children.Maximise(styles);
    EXPECT_EQ(Entry(14).State, 1);
    const Size space = run.face.Workspace();
    EXPECT_EQ(styles.List1.place.Get(), (Place{0, 0, space.width, space.height}));
}

TEST_F(FactoryWindowTest, WhileALoadRunsAResizeDoesNothing)
{
    frmBank117 &bank = Bank(2);
    app.children.RestoringLayout = true;
    app.children.Resize(bank, 3000, 3000);
    EXPECT_EQ(bank.Width(), 3000);
    EXPECT_EQ(Entry(1).Width, kBankNatural.width);
    app.children.RestoringLayout = false;
}

TEST_F(FactoryWindowTest, AResizeBringsTheMenuUpToDate)
{
    frmBank117 &bank = Bank(2);
    menu.mnuWindow.enabled = false;
    app.children.Resize(bank, 16000, 9000);
    EXPECT_TRUE(menu.mnuWindow.enabled);
}

TEST_F(FactoryWindowTest, NaturalSizeComesBackByTheEditMenu)
{
    frmBank117 &bank = Bank(6);
    DropMenu(menu.mnuModifica);
    EXPECT_FALSE(menu.mnuIngrandisci.enabled);
    app.children.Resize(bank, 16000, 9000);
    EXPECT_TRUE(run.Choose(menu.mnuIngrandisci));
    EXPECT_EQ(bank.place.Get(), kBankNatural);
}

TEST_F(FactoryWindowTest, TheFileMenuClosesThemAndNeitherSavesNorPrints)
{
    for (Form *window : {static_cast<Form *>(&Bank(2)), static_cast<Form *>(&Styles(2))}) {
        app.children.Activate(*window);
        menu.mnuSalva.enabled = menu.mnuSalvaAs.enabled = menu.mnuStampa.enabled = true;
        DropMenu(menu.mnuFile);
        EXPECT_TRUE(menu.mnuChiudi.enabled);
        EXPECT_FALSE(menu.mnuSalva.enabled);
        EXPECT_FALSE(menu.mnuSalvaAs.enabled);
        EXPECT_FALSE(menu.mnuStampa.enabled);
    }
}

TEST_F(FactoryWindowTest, TheRightButtonPopsUpTheEditMenuWithTheWindowsRole)
{
    Entry(2).Role = 14;
    frmBank117 &bank = Bank(3);
    Raise(bank.List1.MouseDown, MouseButton::Right);
    EXPECT_TRUE(menu.mnuMIDIStp[14].checked);
    bank.Form_MouseDown(MouseButton::Right);
    Raise(bank.List1.MouseDown, MouseButton::Left);
    Raise(Styles(1).List1.MouseDown, MouseButton::Right);
    EXPECT_EQ(run.face.popUps, (std::vector<MenuEntry *>(3, &menu.mnuModifica)));
}

TEST_F(FactoryWindowTest, ItemsPlayAndHeadingsDoNot)
{
    frmBank117 &bank = Bank(4);
    EXPECT_EQ(Click(bank, 0), Sent{});
    EXPECT_EQ(Click(bank, 1), Sent{});
    EXPECT_EQ(Click(bank, 2), Messages(0, 121, 256 % 128, 256 % 128));
    EXPECT_EQ(Click(bank, 73), Sent{}) << "record 327";
    EXPECT_EQ(Click(bank, 76), Messages(0, 121, 330 % 128, 330 % 128));
    EXPECT_EQ(app.settings.LastChannel, 0);
}

TEST_F(FactoryWindowTest, StyleItemsPlayAndHeadingsAndBlankRowsDoNot)
{
    frmSty &second = Styles(2);
    EXPECT_EQ(Click(second, 0), Sent{});
    EXPECT_EQ(Click(second, 1), Sent{});
    EXPECT_EQ(Click(second, 2), Messages(1, 0, 8, 0));
    EXPECT_EQ(Click(second, 18), Sent{});
    EXPECT_EQ(Click(second, 21), Messages(1, 0, 9, 0));
    EXPECT_EQ(Click(second, 147), Messages(1, 0, 15, 15));
    EXPECT_EQ(Click(Styles(1), 147), Messages(1, 0, 7, 15));
}

TEST_F(FactoryWindowTest, AStyleHeadingWithABlankInThirdPlacePlaysTheListsFirst)
{
    run.program.recall.tables.StyTable[121] = "     8 & 9             ";
    EXPECT_EQ(Click(Styles(2), 0), Sent{});
    run.Close(Styles(2));
    run.program.recall.tables.StyTable[121] = "     At Home           ";
    EXPECT_EQ(Click(Styles(2), 0), Messages(1, 0, 8, 0));
}

TEST_F(FactoryWindowTest, AStyleHeadingOfOneOrTwoLettersDoesNotPlay)
{
    run.program.recall.tables.StyTable[2] = "     AB                ";
    EXPECT_EQ(Click(Styles(1), 0), Sent{});
}

TEST_F(FactoryWindowTest, ARoleChosenByTheMenuCountsAtOnceAndTheStateTextKeepsTheOldOne)
{
    frmBank117 &bank = Bank(2);
    app.settings.ChannelRole[4] = 4;
    DropMenu(menu.mnuModifica);
    ASSERT_TRUE(run.Choose(menu.mnuMIDIStp[4]));
    EXPECT_EQ(Entry(1).Role, 4);
    EXPECT_EQ(Click(bank, 2), Messages(4, 121, 3, 3));
    EXPECT_EQ(bank.Tag.At(16), 2);
}

TEST_F(FactoryWindowTest, ARoleThatIsOffSelectsTheRowAndSendsNothing)
{
    frmBank117 &bank = Bank(2);
    ASSERT_TRUE(run.Choose(menu.mnuMIDIStp[0])) << "offered, since some channel is OFF";
    EXPECT_EQ(Entry(1).Role, 0);
    EXPECT_EQ(Click(bank, 2), Sent{});
    EXPECT_TRUE(bank.List1.Selected(2));
}

TEST_F(FactoryWindowTest, OnlyAStyleRowThatPlaysBringsTheMenuUpToDate)
{
    menu.mnuWindow.enabled = false;
    frmBank117 &bank = Bank(2);
    menu.mnuWindow.enabled = false;
    Click(bank, 2);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    frmSty &styles = Styles(1);
    menu.mnuWindow.enabled = false;
    Click(styles, 0);
    EXPECT_FALSE(menu.mnuWindow.enabled);
    Click(styles, 2);
    EXPECT_TRUE(menu.mnuWindow.enabled);
}

TEST_F(FactoryWindowTest, ABankClosesWithoutAQuestion)
{
    EXPECT_TRUE(run.Close(Bank(6)));
    EXPECT_TRUE(run.face.boxes.empty());
}

} // namespace
} // namespace velluto::test
