// The banks that a Style file can be tied to, and the slots that its windows take for good.
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

class StyleBanksTest : public StyleWindowTest {};

TEST_F(StyleBanksTest, CommUserTiesTheFileAndItsRoleToTheBank)
{
    MenuEntry &entry = app.frame.mnuStyUser[11];
    EXPECT_FALSE(entry.enabled);
    EXPECT_FALSE(app.frame.mnuStyUserAll.enabled);
    StyRecord(8).Role = 4; // inherited by the new document
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    Press(window.CommUser[11]);
    EXPECT_EQ(StyRecord(11).Path.Trimmed(), run.At("a.sty"));
    EXPECT_EQ(StyRecord(11).Role, 4);
    EXPECT_EQ(StyRecord(11).MinWidth, 0) << "the bank keeps a place of its own";
    EXPECT_EQ(entry.caption.Get(), "&4 User 3: a.sty");
    EXPECT_TRUE(entry.enabled);
    EXPECT_TRUE(app.frame.mnuStyUserAll.enabled);
    EXPECT_EQ(files.styles.current, 11);
    EXPECT_THAT(OpenForms(), ElementsAre("frmStyUN(1)"));
    OpenSty(Put("b.sty", FileWithItems({{"Beat", 0}})));
    Press(Sty(2).CommUser[11]);
    EXPECT_EQ(entry.caption.Get(), "&4 User 3: b.sty");
}

TEST_F(StyleBanksTest, CommDirectHDTiesTheFileButNotItsRole)
{
    StyRecord(8).Role = 4;
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    EXPECT_FALSE(app.frame.mnuStyDirectHD19.enabled);
    Press(window.CommDirectHD[12]);
    EXPECT_EQ(StyRecord(12).Path.Trimmed(), run.At("a.sty"));
    EXPECT_EQ(StyRecord(12).Role, 14);
    EXPECT_EQ(app.frame.mnuStyDirectHD[1].caption.Get(), "1 a.sty");
    EXPECT_TRUE(app.frame.mnuStyDirectHD[1].enabled);
    EXPECT_TRUE(app.frame.mnuStyDirectHD19.enabled);
    EXPECT_TRUE(app.frame.mnuStyDirectHD123.enabled);
    EXPECT_FALSE(app.frame.mnuStyDirectHD456.enabled);
    EXPECT_FALSE(app.frame.mnuStyUserAll.enabled);
    Press(window.CommDirectHD[12]);
    EXPECT_EQ(app.frame.mnuStyDirectHD[1].caption.Get(), "1 a.sty");
}

TEST_F(StyleBanksTest, EachGroupOfThreeDirectHdBanksHasItsEntry)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    for (const int slot : {14, 15, 17, 18, 20}) {
        for (MenuEntry *group : {&app.frame.mnuStyDirectHD123, &app.frame.mnuStyDirectHD456, &app.frame.mnuStyDirectHD789}) {
            group->enabled = false;
        }
        Press(window.CommDirectHD[slot]);
        EXPECT_EQ(app.frame.mnuStyDirectHD123.enabled, slot <= 14) << slot;
        EXPECT_EQ(app.frame.mnuStyDirectHD456.enabled, slot >= 15 && slot <= 17) << slot;
        EXPECT_EQ(app.frame.mnuStyDirectHD789.enabled, slot >= 18) << slot;
    }
}

TEST_F(StyleBanksTest, AnOpenBankIsUnloadedBeforeItIsTiedToAnotherFile)
{
    for (const int slot : {9, 16}) {
        frmStyUN &bank = OpenBank(slot, Put("bank.sty", FileWithItems({{"Bossa", 0}})));
        MarkModified(bank);
        OpenSty(Put(std::to_string(slot) + ".sty", FileWithItems({{"Beat", 0}})));
        run.face.answers.push_back(Box::kNo);
        frmStyUN &file = Sty(slot == 9 ? 1 : 2);
        Press(slot == 9 ? file.CommUser[slot] : file.CommDirectHD[slot]);
        app.children.Sweep();
        EXPECT_FALSE(HasSty(slot));
        EXPECT_EQ(StyRecord(slot).State, 0);
        EXPECT_EQ(StyRecord(slot).Path.Trimmed(), run.At(std::to_string(slot) + ".sty"));
        EXPECT_EQ(Boxes().size(), 1U);
    }
}

TEST_F(StyleBanksTest, TyingAProgramFileLeavesTheStyleBankOfThatSlotOpen)
{
    OpenBank(9, Put("a.sty", FileWithItems({{"Samba", 0}, {"Rumba", 1}})));
    Open(Put("a.pcg", FileOfLength(200)));
    Press(Window(1).CommUser[9]);
    run.Choose(app.frame.mnuPcgUser[9]);
    Press(Window(1).CommUser[9]);
    app.children.Sweep();
    EXPECT_FALSE(HasWindow(9));
    EXPECT_TRUE(HasSty(9));
}

TEST_F(StyleBanksTest, OpeningStylesAndPerformancesLeavesTheMarkOfAKnownProgramFile)
{
    const std::string styles = Put("a.sty", FileWithItems({{"Samba", 0}, {"Rumba", 1}}));
    const std::string performances = Put("a.prf", FileWithItems({{"Ballad", 0}}));
    files.KnownFileFlag = 1;
    OpenSty(styles);
    OpenPrf(performances);
    EXPECT_EQ(files.KnownFileFlag, 1) << "neither was known";
    run.Close(Sty(1));
    run.Close(Prf(1));
    files.KnownFileFlag = 0;
    OpenSty(styles);
    OpenPrf(performances);
    EXPECT_EQ(files.KnownFileFlag, 0) << "both are known now";
}

TEST_F(StyleBanksTest, ANewFileTakesThePlaceOfItsOwnSlot)
{
    StyRecord(0).MinWidth = 100;
    StyRecord(0).MinHeight = 100;
    StyRecord(0).Left = 450;
    StyRecord(0).Top = 600;
    StyRecord(0).Width = 9000;
    StyRecord(0).Height = 4500;
    PrfRecord(0) = StyRecord(0);
    files.styles.work = DocRecord();
    files.performances.work = DocRecord();
    run.Choose(app.frame.mnuStyNuovo);
    EXPECT_EQ(Sty(0).place.Get(), (Place{450, 600, 9000, 4500}));
    EXPECT_EQ(files.styles.current, 0);
    run.Choose(app.frame.mnuPrfNuovo);
    EXPECT_EQ(Prf(0).place.Get(), (Place{450, 600, 9000, 4500}));
    EXPECT_EQ(files.performances.current, 0);
    run.Choose(app.frame.mnuPcgNuovo64);
    EXPECT_EQ(files.programs.current, 11);
    run.Choose(app.frame.mnuPcgNuovo128);
    EXPECT_EQ(files.programs.current, 12);
}

TEST_F(StyleBanksTest, AMinimisedBankStaysOpenWhenItIsTied)
{
    frmStyUN &bank = OpenBank(9, Put("bank.sty", FileWithItems({{"Bossa", 0}})));
    app.children.Minimise(bank);
    frmStyUN &file = StyleOf(FileWithItems({{"Beat", 0}}));
    Press(file.CommUser[9]);
    EXPECT_TRUE(HasSty(9));
    EXPECT_EQ(StyRecord(9).State, 2);
}

TEST_F(StyleBanksTest, BanksOpenUnderTheirNames)
{
    const std::string path = Put("bank.sty", FileWithItems({{"Bossa", 0}, {"STS", 0}}));
    EXPECT_EQ(OpenBank(10, path).caption.Get(), "Banco User 2: bank.sty   (STY)");
    EXPECT_FALSE(app.frame.mnuStyUser[10].enabled);
    EXPECT_EQ(OpenBank(20, path).caption.Get(), "Banco Direct HD 9: bank.sty   (STY)");
    EXPECT_FALSE(app.frame.mnuStyDirectHD[9].enabled);
    EXPECT_EQ(Sty(20).Tag.Kind(), 20);
    EXPECT_EQ(Sty(20).Tag.Slot(), 20);
    EXPECT_EQ(Sty(20).Tag.At(TagPosition::Role), 14) << "the role of the bank's own record";
    Press(Sty(20).CommSTS);
    EXPECT_EQ(Sty(20).caption.Get(), "Banco Direct HD 9: bank.sty   (STS)");
    run.Close(Sty(10));
    run.Close(Sty(20));
    EXPECT_TRUE(app.frame.mnuStyUser[10].enabled);
    EXPECT_TRUE(app.frame.mnuStyDirectHD[9].enabled);
}

TEST_F(StyleBanksTest, RowsOfBanksAreSelectedOnTheInstrumentEmptyOrNot)
{
    std::vector<std::pair<int, int>> selected;
    files.services.SelectOnInstrument = [&](Form &window, int row) { selected.emplace_back(window.number(), row); };
    const std::string path = Put("bank.sty", FileWithItems({{"Bossa", 0}, {"STS", 0}}));
    ListGesture::ClickRow(OpenBank(9, path).List1, 0, Modifier::None);
    ListGesture::ClickRow(Sty(9).List1, 5, Modifier::None);
    ListGesture::ClickRow(OpenBank(20, path).List1, 15, Modifier::None);
    OpenSty(path);
    ListGesture::ClickRow(Sty(1).List1, 0, Modifier::None);
    run.Choose(app.frame.mnuStyNuovo);
    ListGesture::ClickRow(Sty(0).List1, 0, Modifier::None);
    EXPECT_EQ(selected, (std::vector<std::pair<int, int>>{{9, 0}, {9, 5}, {20, 15}})) << "files and new files never select";
    Sty(9).List1.SetRow(5, "06   ");
    ListGesture::ClickRow(Sty(9).List1, 5, Modifier::None);
    EXPECT_EQ(selected.size(), 3U) << "a row of two characters is ignored";
}

TEST_F(StyleBanksTest, EightOpensExhaustTheSlotsForTheRun)
{
    for (int i = 1; i <= 8; ++i) {
        EXPECT_TRUE(app.frame.mnuStyApri.enabled);
        OpenSty(Put("f" + std::to_string(i) + ".sty", FileWithItems({{"Bossa", 0}})));
        ASSERT_TRUE(HasSty(i));
        EXPECT_EQ(app.frame.mnuStyApri.enabled, i < 8);
        run.Close(Sty(i));
        EXPECT_TRUE(files.styles.openFlags.at(static_cast<std::size_t>(i)));
    }
    EXPECT_TRUE(app.frame.mnuStyApri.enabled) << "the window that closed has enabled it";
    EXPECT_EQ(FindFree(files.styles), 0);
    run.face.dialogs.clear();
    OpenSty(Put("f9.sty", FileWithItems({{"Bossa", 0}})));
    run.face.choices.clear();
    EXPECT_THAT(run.face.dialogs, IsEmpty());
    run.Choose(app.frame.mnuRecentFile[1]);
    EXPECT_THAT(OpenForms(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(StyleBanksTest, AReopenedFileTakesItsOldSlotAndNoOther)
{
    const std::string path = Put("a.sty", FileWithItems({{"Bossa", 0}}));
    for (int i = 0; i < 3; ++i) {
        OpenSty(path);
        app.children.Move(Sty(1), 300, 450);
        run.Close(Sty(1));
    }
    OpenSty(path);
    EXPECT_EQ(Sty(1).Left(), 300) << "its place comes back without more ado";
    EXPECT_EQ(Sty(1).Top(), 450);
    EXPECT_EQ(FindFree(files.styles), 2);
}

TEST_F(StyleBanksTest, WithAllSlotsTakenAHandOverStopsWithItsCodeStillSet)
{
    files.styles.openFlags.fill(true);
    Open(Put("a.sty", FileWithItems({{"Bossa", 0}})));
    EXPECT_EQ(files.OpenChainCode, 5);
    EXPECT_THAT(OpenForms(), IsEmpty());
    run.Choose(app.frame.mnuChiudi); // any entry of the menu: it drops first
    EXPECT_EQ(files.OpenChainCode, 0);
}

TEST_F(StyleBanksTest, TheOpenFlagIsSetBeforeTheWindowIsShown)
{
    // Seen from the window's own activation.
    bool taken = false;
    app.frame.mnuWindow.observer = [&](Aspect /*aspect*/) { taken = files.styles.openFlags[1]; };
    app.frame.mnuWindow.enabled = false;
    StyleOf(FileWithItems({{"Bossa", 0}}));
    EXPECT_TRUE(taken);
}

TEST_F(StyleBanksTest, ABankWhoseFileHasGoneDoesNothing)
{
    TieSty(9, run.At("gone.sty"));
    TieSty(12, run.At("gone.sty"));
    EXPECT_TRUE(run.Choose(app.frame.mnuStyUser[9]));
    EXPECT_TRUE(run.Choose(app.frame.mnuStyDirectHD[1]));
    EXPECT_THAT(OpenForms(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_TRUE(app.frame.mnuStyUser[9].enabled);
    EXPECT_TRUE(app.frame.mnuStyDirectHD[1].enabled);
    EXPECT_FALSE(Exists(run.At("gone.sty")));
}

TEST_F(StyleBanksTest, NumbersOutsideTheBanksDoNothing)
{
    for (const int index : {-1, 0, 8, 12}) {
        mnuStyUser_Click(files, index);
    }
    for (const int index : {-1, 0, 10}) {
        mnuStyDirectHD_Click(files, index);
    }
    EXPECT_THAT(OpenForms(), IsEmpty());
}

} // namespace
} // namespace velluto::test
