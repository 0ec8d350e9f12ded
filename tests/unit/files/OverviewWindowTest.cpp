// The windows that show several banks side by side: what they read, how they stand, and the load that stops.
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

const std::string kBlankRow(28, ' ');

class OverviewWindowTest : public BankFilesTest {
protected:
    std::string Styles(const std::string &name) { return Put(name, FileWithItems({{name, 0}, {"STS", 0}, {"Second", 3}, {"STS", 3}})); }
    std::string Performances(const std::string &name) { return Put(name, FileWithItems({{name, 0}, {"Second", 1}})); }
    // All lists with a selected row.
    template <class Window>
    std::vector<int> Selected(Window &window)
    {
        std::vector<int> numbers;
        for (ListBox &list : window.List1) {
            for (int row = 0; row < list.ListCount(); ++row) {
                if (list.Selected(row)) {
                    numbers.push_back(list.index());
                    break;
                }
            }
        }
        return numbers;
    }
};

TEST_F(OverviewWindowTest, EachVariantReadsItsOwnThreeSlots)
{
    const std::vector<std::pair<MenuEntry *, int>> variants{{&app.frame.mnuStyUserAll, 9},
                                                            {&app.frame.mnuStyDirectHD123, 12},
                                                            {&app.frame.mnuStyDirectHD456, 15},
                                                            {&app.frame.mnuStyDirectHD789, 18}};
    const std::vector<std::string> titles{"Banchi Style User 1-3", "Banco Direct HD 123", "Banco Direct HD 456", "Banco Direct HD 789"};
    for (int slot = 9; slot <= 20; ++slot) {
        TieSty(slot, Styles(std::to_string(slot) + ".sty"));
    }
    int kind = 25;
    for (const auto &[entry, first] : variants) {
        EXPECT_TRUE(run.Choose(*entry));
        EXPECT_FALSE(entry->enabled);
        frmStyUserAll &window = StyAll(kind);
        for (int k = 1; k <= 3; ++k) {
            const std::string name = std::to_string(first + k - 1) + ".sty";
            EXPECT_EQ(window.Label1[k].caption.Get(), "User " + std::to_string(k) + ": " + name) << "User in every variant";
            EXPECT_EQ(window.Label1[k].toolTip.Get(), run.At(name));
            ASSERT_EQ(window.List1[k].ListCount(), 16);
            EXPECT_EQ(window.List1[k].Row(0).substr(0, 4 + name.size()), " 01 " + name);
            EXPECT_EQ(window.List1[k].Row(1), kBlankRow);
            EXPECT_EQ(window.List1[k].Row(3), " 04 Second               3  ");
        }
        EXPECT_EQ(window.FullName(), "frmStyUserAll(" + std::to_string(kind) + ")");
        EXPECT_EQ(window.caption.Get(), titles[static_cast<std::size_t>(kind - 25)]);
        EXPECT_EQ(window.Tag.prefix, static_cast<char>(kind) + std::string(19, '\0'));
        EXPECT_TRUE(window.Tag.image.empty());
        ++kind;
    }
    EXPECT_EQ(app.children.ChildCount, 4);
    EXPECT_FALSE(app.children.RestoringLayout);
}

TEST_F(OverviewWindowTest, OneAssignedBankGivesOneFilledListAndTwoEmptyOnes)
{
    EXPECT_FALSE(app.frame.mnuStyUserAll.enabled) << "no bank is assigned";
    TieSty(13, Styles("two.sty"));
    run.Choose(app.frame.mnuStyDirectHD123);
    frmStyUserAll &window = StyAll(26);
    EXPECT_EQ(window.List1[1].ListCount(), 0);
    EXPECT_EQ(window.List1[2].ListCount(), 16);
    EXPECT_EQ(window.List1[3].ListCount(), 0);
    EXPECT_EQ(window.Label1[1].caption.Get(), "User 1");
    EXPECT_EQ(window.Label1[2].caption.Get(), "User 2: two.sty");
    EXPECT_EQ(window.Label1[3].toolTip.Get(), "");
}

TEST_F(OverviewWindowTest, TheTwentyPerformanceBanksAreReadFromSlots9To28)
{
    TiePrf(9, Performances("first.prf"));
    TiePrf(20, Performances("twelfth.prf"));
    TiePrf(28, Performances("last.prf"));
    EXPECT_TRUE(run.Choose(app.frame.mnuPrfUserAll));
    frmPrfUserAll &window = PrfAll();
    EXPECT_FALSE(app.frame.mnuPrfUserAll.enabled);
    EXPECT_EQ(window.FullName(), "frmPrfUserAll");
    EXPECT_EQ(window.caption.Get(), "Banchi Performance User 1-20");
    EXPECT_EQ(window.Tag.prefix, static_cast<char>(24) + std::string(19, '\0'));
    EXPECT_EQ(window.Label1[12].caption.Get(), "User 12: twelfth.prf");
    EXPECT_EQ(window.Label1[2].caption.Get(), "User 2");
    EXPECT_EQ(window.List1[2].ListCount(), 0);
    ASSERT_EQ(window.List1[12].ListCount(), 8);
    EXPECT_EQ(window.List1[12].Row(0), "1 twelfth.prf     ");
    EXPECT_EQ(window.List1[12].Row(1), "2 Second          ");
    EXPECT_EQ(window.List1[12].Row(7), "8                 ");
    EXPECT_EQ(window.List1[20].Row(0), "1 last.prf        ");
    EXPECT_EQ(app.children.ChildCount, 1);
}

TEST_F(OverviewWindowTest, StyleListsStandSideBySideAndEachIs58CharactersWide)
{
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    frmStyUserAll &window = StyAll(25);
    const Size letter = run.face.MeasureA(window.List1[1].font);
    for (int k = 1; k <= 3; ++k) {
        const Place list = window.List1[k].place;
        EXPECT_EQ(window.List1[k].columns, 2);
        EXPECT_EQ(list.width, 58 * letter.width);
        EXPECT_EQ(list.height, 17 * letter.height / 2);
        EXPECT_EQ(list.top, window.List1[1].place.Get().top);
        const Place label = window.Label1[k].place;
        EXPECT_EQ(label.left + label.width / 2, list.left + list.width / 2) << "centred";
        EXPECT_LT(label.width, list.width);
        EXPECT_LE(label.top + label.height, list.top);
        EXPECT_LE(list.left + list.width, window.ScaleWidth());
        EXPECT_LE(list.top + list.height, window.ScaleHeight());
    }
    EXPECT_LT(window.List1[1].place.Get().left + window.List1[1].place.Get().width, window.List1[2].place.Get().left);
    const WindowPlacement &entry = app.settings.PlacementTable[24];
    EXPECT_EQ(entry.MinWidth, window.Width());
    EXPECT_EQ(entry.MinHeight, window.Height());
    EXPECT_EQ(entry.Left, 0);
}

TEST_F(OverviewWindowTest, AnEntryThatWasNeverLaidOutGivesAwayItsOldPlace)
{
    WindowPlacement &entry = app.settings.PlacementTable[24];
    entry.Left = 700;
    entry.Top = 300;
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    EXPECT_EQ(StyAll(25).Left(), 0);
    EXPECT_EQ(StyAll(25).Top(), 0);
    EXPECT_EQ(entry.Left, 0);
    EXPECT_EQ(entry.Top, 0);
}

TEST_F(OverviewWindowTest, ALabelIsNeverWiderThanItsList)
{
    TieSty(9, Styles(std::string(150, 'n') + ".sty"));
    run.Choose(app.frame.mnuStyUserAll);
    const Place label = StyAll(25).Label1[1].place;
    EXPECT_EQ(label.left, StyAll(25).List1[1].place.Get().left);
    EXPECT_EQ(label.width, StyAll(25).List1[1].place.Get().width);
}

TEST_F(OverviewWindowTest, PerformanceListsStandInFourRowsOfFive)
{
    TiePrf(9, Performances("one.prf"));
    run.Choose(app.frame.mnuPrfUserAll);
    frmPrfUserAll &window = PrfAll();
    for (int k = 1; k <= 20; ++k) {
        const int column = (k - 1) % 5;
        const int row = (k - 1) / 5;
        EXPECT_EQ(window.List1[k].place.Get(), (Place{250 + column * 2850, 250 + row * 2350, 2600, 2100})) << k;
        const Place label = window.Label1[k].place;
        EXPECT_EQ(label.left, window.List1[k].place.Get().left);
        EXPECT_EQ(label.top + label.height, window.List1[k].place.Get().top);
    }
    EXPECT_EQ(window.Width() - window.frame.width, 250 + 5 * 2850);
    EXPECT_EQ(window.Height() - window.frame.height, 250 + 4 * 2350);
}

TEST_F(OverviewWindowTest, EveryControlHasAnAccessibleName)
{
    TieSty(9, Styles("one.sty"));
    TiePrf(9, Performances("one.prf"));
    run.Choose(app.frame.mnuStyUserAll);
    run.Choose(app.frame.mnuPrfUserAll);
    for (const Form *form : app.children.All()) {
        for (const Control *control : form->controls()) {
            EXPECT_FALSE(control->accessibleName.empty()) << control->FullName();
        }
    }
    EXPECT_EQ(StyAll(25).List1[1].accessibleName, "User 1: one.sty");
    EXPECT_EQ(StyAll(25).List1[2].accessibleName, "User 2");
}

TEST_F(OverviewWindowTest, AStyleFileOfStylesOnlyShowsItsFirstHalf)
{
    TieSty(9, Put("only.sty", FileWithItems({{"One", 0}, {"Two", 1}, {"Three", 2}})));
    TieSty(10, Put("single.sty", FileWithItems({{"One", 0}})));
    run.Choose(app.frame.mnuStyUserAll);
    EXPECT_EQ(StyAll(25).List1[1].Row(0), " 01 One                  1  ");
    EXPECT_EQ(StyAll(25).List1[1].Row(1), kBlankRow);
    EXPECT_EQ(StyAll(25).List1[2].Rows(), std::vector<std::string>(16, kBlankRow)) << "a file of one entry shows nothing";
}

TEST_F(OverviewWindowTest, AChangeOnTheDiskShowsAtTheNextOpening)
{
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    Put("one.sty", FileWithItems({{"Other", 0}, {"STS", 0}}));
    EXPECT_EQ(StyAll(25).List1[1].Row(0).substr(4, 7), "one.sty");
    run.Close(StyAll(25));
    EXPECT_TRUE(app.frame.mnuStyUserAll.enabled);
    run.Choose(app.frame.mnuStyUserAll);
    EXPECT_EQ(StyAll(25).List1[1].Row(0).substr(4, 7), "Other  ");
}

TEST_F(OverviewWindowTest, ABankWhoseFileIsGoneStopsTheLoadAtThatListWithNothingSaid)
{
    TieSty(9, Styles("one.sty"));
    TieSty(10, run.At("gone.sty"));
    TieSty(11, Styles("three.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    EXPECT_THAT(Boxes(), IsEmpty());
    frmStyUserAll &window = StyAll(25);
    EXPECT_EQ(window.List1[1].ListCount(), 16) << "the banks read so far";
    EXPECT_EQ(window.Label1[1].place.Get().width, run.face.LabelWidth(window.Label1[1].caption) + 90) << "as wide as it reads";
    EXPECT_EQ(window.List1[2].ListCount(), 0);
    EXPECT_EQ(window.List1[3].ListCount(), 0);
    EXPECT_EQ(window.Label1[1].caption.Get(), "User 1: one.sty");
    EXPECT_EQ(window.Label1[2].caption.Get(), "User 2");
    EXPECT_EQ(window.caption.Get(), "");
    EXPECT_EQ(window.Tag.prefix, "");
    EXPECT_EQ(app.children.ChildCount, 0);
    EXPECT_TRUE(app.children.RestoringLayout);
    EXPECT_TRUE(app.children.IsOpen(window)) << "the window stays up";
}

TEST_F(OverviewWindowTest, AfterALoadThatStoppedNoWindowFollowsAResizeUntilAnotherLoadEnds)
{
    OpenSty(Styles("other.sty"));
    frmStyUN &other = Sty(1);
    const int width = StyRecord(1).Width;
    TieSty(9, run.At("gone.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    app.children.Resize(other, 300, 300);
    EXPECT_EQ(other.Width(), 300) << "not even its natural size is kept";
    EXPECT_EQ(StyRecord(1).Width, width);
    app.children.Minimise(other);
    EXPECT_EQ(StyRecord(1).State, 1);
    app.children.Restore(other);
    run.Choose(app.frame.mnuPrfNuovo);
    EXPECT_FALSE(app.children.RestoringLayout);
    app.children.Resize(other, 400, 400);
    EXPECT_EQ(other.Width(), StyRecord(1).MinWidth);
}

TEST_F(OverviewWindowTest, AWindowWhoseLoadStoppedClosesWithoutAKindOfItsOwn)
{
    run.Choose(app.frame.mnuPrfNuovo);
    TieSty(9, run.At("gone.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    app.children.Move(StyAll(25), 900, 900);
    EXPECT_TRUE(run.Close(StyAll(25)));
    EXPECT_EQ(files.overviews[1], nullptr);
    EXPECT_EQ(app.settings.PlacementTable[24].Left, 0);
    EXPECT_FALSE(app.frame.mnuStyUserAll.enabled) << "its command stays off";
    EXPECT_EQ(app.children.ChildCount, 0) << "one less than there are: this window was never counted";
}

TEST_F(OverviewWindowTest, AFailureThatIsToldStopsTheLoadToo)
{
    TiePrf(9, Performances("one.prf"));
    TiePrf(10, Put("broken.prf", {1, 2, 3}));
    TiePrf(11, Performances("three.prf"));
    run.Choose(app.frame.mnuPrfUserAll);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di broken.prf: Formato dati errato"));
    EXPECT_EQ(PrfAll().List1[1].ListCount(), 8);
    EXPECT_EQ(PrfAll().List1[3].ListCount(), 0);
    EXPECT_EQ(PrfAll().Tag.prefix, "");
    EXPECT_EQ(PrfAll().caption.Get(), "");
    EXPECT_EQ(app.children.ChildCount, 0);
    EXPECT_TRUE(app.children.RestoringLayout);

    const std::string path = Styles("one.sty");
    TieSty(9, path);
    Fail(FileFault::Operation::Read, path, 57);
    run.Choose(app.frame.mnuStyUserAll);
    EXPECT_THAT(Boxes(), ElementsAre("Apertura di one.sty: Errore di lettura da disco"));
    EXPECT_EQ(StyAll(25).Tag.prefix, "");
}

TEST_F(OverviewWindowTest, ClosingStoresThePlaceAndOffersTheCommandAgain)
{
    TieSty(18, Styles("one.sty"));
    TiePrf(9, Performances("one.prf"));
    run.Choose(app.frame.mnuStyDirectHD789);
    run.Choose(app.frame.mnuPrfUserAll);
    app.children.Move(StyAll(28), 450, 300);
    app.children.Resize(StyAll(28), 30000, 6000);
    app.settings.PlacementTable[27].State = 2;
    app.children.Move(PrfAll(), 150, 165);
    EXPECT_TRUE(run.Close(StyAll(28)));
    EXPECT_TRUE(run.Close(PrfAll()));
    const WindowPlacement &styles = app.settings.PlacementTable[27];
    EXPECT_EQ(styles.Left, 450);
    EXPECT_EQ(styles.Top, 300);
    EXPECT_EQ(styles.Width, 30000);
    EXPECT_EQ(styles.Height, 6000);
    EXPECT_EQ(styles.State, 0);
    EXPECT_EQ(app.settings.PlacementTable[23].Left, 150);
    EXPECT_TRUE(app.frame.mnuStyDirectHD789.enabled);
    EXPECT_TRUE(app.frame.mnuPrfUserAll.enabled);
    EXPECT_EQ(app.children.ChildCount, 0);
    EXPECT_FALSE(app.frame.mnuModifica.enabled);
    run.Choose(app.frame.mnuStyDirectHD789);
    EXPECT_EQ(StyAll(28).place.Get(), (Place{450, 300, 30000, 6000}));
}

TEST_F(OverviewWindowTest, AWindowIsNeverSmallerThanItsNaturalSizeAndListsGrowWithIt)
{
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    frmStyUserAll &window = StyAll(25);
    const Size natural{window.Width(), window.Height()};
    const int list = window.List1[3].place.Get().width;
    app.children.Resize(window, 100, 100);
    EXPECT_EQ(window.Width(), natural.width);
    EXPECT_EQ(window.Height(), natural.height);
    app.children.Resize(window, natural.width + 3000, natural.height);
    EXPECT_EQ(window.List1[3].place.Get().width, list + 1000);
    EXPECT_LE(window.List1[3].place.Get().left + window.List1[3].place.Get().width, window.ScaleWidth());
}

TEST_F(OverviewWindowTest, TheRightButtonPopsUpTheEditMenu)
{
    TiePrf(9, Performances("one.prf"));
    run.Choose(app.frame.mnuPrfUserAll);
    PrfAll().List1[7].MouseDown(MouseButton::Right);
    PrfAll().Form_MouseDown(MouseButton::Right);
    PrfAll().List1[7].MouseDown(MouseButton::Left);
    EXPECT_EQ(run.face.popUps.size(), 2U);
}

TEST_F(OverviewWindowTest, AClickLeavesTheSelectionInItsListAloneAndPlaysIt)
{
    for (int slot = 9; slot <= 11; ++slot) {
        TieSty(slot, Styles(std::to_string(slot) + ".sty"));
        StyRecord(slot).Role = 14;
    }
    run.Choose(app.frame.mnuDevMIDIOut[0]);
    run.Choose(app.frame.mnuStyUserAll);
    frmStyUserAll &window = StyAll(25);
    ListGesture::ClickRow(window.List1[1], 3, Modifier::None);
    ListGesture::ClickRow(window.List1[3], 0, Modifier::None);
    run.midi.sent.clear();
    ListGesture::ClickRow(window.List1[2], 3, Modifier::None);
    EXPECT_EQ(Selected(window), (std::vector<int>{2}));
    EXPECT_EQ(run.midi.sent, (std::vector<std::uint32_t>{0x0000B1, 0x1220B1, 0x0003C1})) << "bank 0 18, program 3, second channel";
    EXPECT_EQ(files.styles.current, 2);
}

TEST_F(OverviewWindowTest, ThePerformanceOverviewPlaysByTheNumberOfTheList)
{
    TiePrf(28, Performances("last.prf"));
    PrfRecord(20).Role = 14;
    run.Choose(app.frame.mnuDevMIDIOut[0]);
    run.Choose(app.frame.mnuPrfUserAll);
    run.midi.sent.clear();
    ListGesture::ClickRow(PrfAll().List1[20], 1, Modifier::None);
    EXPECT_EQ(run.midi.sent, (std::vector<std::uint32_t>{0x0100B1, 0x1320B1, 0x0001C1}));
    EXPECT_EQ(files.performances.current, 20);
}

TEST_F(OverviewWindowTest, ARoleSetInAnOverviewGoesToTheBankOfTheSelectedRow)
{
    TieSty(16, Styles("five.sty"));
    run.Choose(app.frame.mnuStyDirectHD456);
    ListGesture::ClickRow(StyAll(27).List1[2], 0, Modifier::None);
    EXPECT_TRUE(run.Choose(app.frame.mnuMIDIStp[2])) << "a channel carries UP.1";
    EXPECT_EQ(StyRecord(16).Role, 2);
    EXPECT_EQ(StyRecord(15).Role, 14);
}

TEST_F(OverviewWindowTest, ARoleSetInThePerformanceOverviewGoesToTheEntryOfTheListsNumber)
{
    TiePrf(13, Performances("five.prf"));
    run.Choose(app.frame.mnuPrfUserAll);
    ListGesture::ClickRow(PrfAll().List1[5], 0, Modifier::None);
    EXPECT_TRUE(run.Choose(app.frame.mnuMIDIStp[2]));
    EXPECT_EQ(PrfRecord(5).Role, 2);
    EXPECT_EQ(PrfRecord(13).Role, 14) << "the bank's own window keeps a role of its own";
}

TEST_F(OverviewWindowTest, ARoleWithoutASelectedRowGoesNowhere)
{
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    mnuMIDIStp_Click(files, 2);
    for (int slot = 1; slot <= 20; ++slot) {
        EXPECT_EQ(StyRecord(slot).Role, 14);
    }
}

TEST_F(OverviewWindowTest, AnExitStoresThePlacesOfAllOverviews)
{
    TieSty(9, Styles("one.sty"));
    run.Choose(app.frame.mnuStyUserAll);
    app.children.Move(StyAll(25), 120, 135);
    EXPECT_TRUE(run.Exit());
    EXPECT_EQ(app.settings.PlacementTable[24].Left, 120);
    EXPECT_EQ(files.overviews[1], nullptr);
}

} // namespace
} // namespace velluto::test
