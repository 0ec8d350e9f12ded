// The rows and the window of a Performance file, and the twenty banks that it can be tied to.
#include "files/ItemRows.h"
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

const std::string kNoName(16, ' ');

TEST(PerformanceRows, ANewFileHasABlankANumberAndSixteenBlanks)
{
    const std::vector<std::string> rows = NewPerformanceRows();
    ASSERT_EQ(rows.size(), 8U);
    EXPECT_EQ(rows[0], " 1                 ");
    EXPECT_EQ(rows[7], " 8                 ");
}

TEST(PerformanceRows, AFileOf60BytesHasRowsFrom001To008)
{
    const Bytes bytes = InstrumentFile({});
    ASSERT_EQ(bytes.size(), 60U);
    const std::vector<std::string> rows = PerformanceRows(bytes);
    ASSERT_EQ(rows.size(), 8U);
    EXPECT_EQ(rows[0], "001                 ");
    EXPECT_EQ(rows[7], "008                 ");
}

TEST(PerformanceRows, EntriesOfSlots0And2FillRows1And3)
{
    const std::vector<std::string> rows = PerformanceRows(FileWithItems({{"Ballad", 0}, {"Sixteen letters!", 2}}));
    EXPECT_EQ(rows[0], WithZeros(" 1 Ballad      \0\0\0\0"));
    EXPECT_EQ(rows[1], " 2                 ");
    EXPECT_EQ(rows[2], " 3 Sixteen letters!");
    EXPECT_EQ(rows[3], " 4                 ");
}

TEST(PerformanceRows, AnEntryBelowThePlaceReachedIsNeverShownAndBlocksTheRest)
{
    const std::vector<std::string> rows = PerformanceRows(FileWithItems({{"Third", 2}, {"Second", 1}, {"Fourth", 3}}));
    EXPECT_EQ(rows[2].substr(0, 15), " 3 Third       ");
    for (const int place : {0, 1, 3, 4, 5, 6, 7}) {
        EXPECT_EQ(rows[static_cast<std::size_t>(place)], " " + std::to_string(place + 1) + " " + kNoName);
    }
}

TEST(PerformanceRows, BehindTheLastEntryTheFirstBodyIsReadAsOne)
{
    Bytes body(24, 0x7E);
    const std::string name = "Bytes of a body.";
    std::copy(name.begin(), name.end(), body.begin());
    body[20] = 5;
    const std::vector<std::string> rows = PerformanceRows(InstrumentFile({{"Ballad", 0, body}}));
    EXPECT_EQ(rows[0].substr(0, 15), " 1 Ballad      ");
    EXPECT_EQ(rows[4], " 5                 ");
    EXPECT_EQ(rows[5], " 6 Bytes of a body.");
}

TEST(PerformanceRows, ZerosBeforeTheLastFourCharactersBecomeBlanks)
{
    const std::vector<std::string> rows =
        PerformanceRows(InstrumentFile({Sized("Ballad", 0, 1), Sized("", 1, 1), Sized(WithZeros("A\0B"), 2, 1)}));
    EXPECT_EQ(rows[0], WithZeros(" 1 Ballad      \0\0\0\0"));
    EXPECT_EQ(rows[1], WithZeros(" 2             \0\0\0\0"));
    EXPECT_EQ(rows[2], WithZeros(" 3 A\0B         \0\0\0\0")) << "it stops at the first other character";
}

TEST(PerformanceRows, TheOverviewGoesByEntriesNotByPlaces)
{
    const std::vector<std::string> sparse = PerformanceOverviewRows(FileWithItems({{"Third", 2}, {"Sixth", 5}}));
    ASSERT_EQ(sparse.size(), 8U);
    for (std::size_t i = 0; i < 8; ++i) {
        EXPECT_EQ(sparse[i], std::to_string(i + 1) + " " + kNoName) << "none of its items is listed";
    }
    EXPECT_EQ(PerformanceRows(FileWithItems({{"Third", 2}, {"Sixth", 5}}))[2].substr(0, 8), " 3 Third");
}

TEST(PerformanceRows, AFullFileShowsAllEightNamesInBothWindows)
{
    std::vector<std::pair<std::string, int>> items;
    for (int slot = 0; slot < 8; ++slot) {
        items.emplace_back("Name " + std::to_string(slot + 1), slot);
    }
    const Bytes bytes = FileWithItems(items);
    for (std::size_t i = 0; i < 8; ++i) {
        const std::string row = std::to_string(i + 1) + " Name " + std::to_string(i + 1);
        EXPECT_EQ(PerformanceRows(bytes)[i].substr(0, row.size() + 1), " " + row);
        EXPECT_EQ(PerformanceOverviewRows(bytes)[i], row + std::string(18 - row.size(), ' '));
    }
}

TEST(PerformanceRows, TheOverviewMakesBlanksOfAllZerosAtTheEndOfAName)
{
    const std::vector<std::string> rows = PerformanceOverviewRows(FileWithItems({{WithZeros("A\0B"), 0}, {"", 1}}));
    EXPECT_EQ(rows[0], WithZeros("1 A\0B             "));
    EXPECT_EQ(rows[1], "2                 ");
}

TEST(PerformanceRows, TheOverviewTakesWhatLiesBehindTheDirectoryForEntries)
{
    Bytes body(24, 0x7E);
    const std::string name = "Bytes of a body.";
    std::copy(name.begin(), name.end(), body.begin());
    body[20] = 1;
    const std::vector<std::string> rows = PerformanceOverviewRows(InstrumentFile({{"Ballad", 0, body}}));
    EXPECT_EQ(rows[1], "2 Bytes of a body.");
}

TEST(PerformanceRows, NoBytesOutsideTheImageAreRead)
{
    Bytes bytes = FileWithItems({{"Ballad", 0}, {"Waltz", 1}});
    bytes.resize(36 + 24 + 12);
    bytes.shrink_to_fit();
    EXPECT_EQ(PerformanceRows(bytes)[0].substr(0, 9), " 1 Ballad");
    EXPECT_EQ(PerformanceRows(bytes)[1], " 2                 ");
    EXPECT_EQ(PerformanceOverviewRows(bytes)[1], "2                 ");
    const Bytes none;
    EXPECT_EQ(PerformanceRows(none)[0], "001                 ");
    EXPECT_EQ(PerformanceOverviewRows(none)[0], "1                 ");
}

class PerformanceWindowTest : public BankFilesTest {
protected:
    using BankFilesTest::BankFilesTest;
    frmPrfUN &OpenBank(int index, const std::string &path)
    {
        TiePrf(index + 8, path);
        run.Choose(app.frame.mnuPrfUser[index]);
        return Prf(index + 8);
    }
};

class EnglishPerformanceWindowTest : public PerformanceWindowTest {
protected:
    EnglishPerformanceWindowTest() : PerformanceWindowTest(TestProgram::English) {}
};

TEST_F(PerformanceWindowTest, TheListIsEightLinesAndAHalfHighInOneColumn)
{
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    const Size letter = run.face.MeasureA(window.List1.font);
    EXPECT_EQ(window.List1.columns, 1);
    EXPECT_EQ(window.List1.place.Get().height, 17 * letter.height / 2);
    EXPECT_GE(window.List1.place.Get().width, 20 * letter.width);
    EXPECT_EQ(PrfRecord(1).MinWidth, window.Width());
    EXPECT_EQ(PrfRecord(1).MinHeight, window.Height());
}

TEST_F(PerformanceWindowTest, TheTagOfAFileTellsItsStateAndHoldsTheWholeFile)
{
    PrfRecord(8).Role = 9;
    files.RecentKind = 2;
    const Bytes bytes = FileWithItems({{"Ballad", 0}});
    frmPrfUN &window = PerformanceOf(bytes);
    EXPECT_EQ(window.Tag.prefix.size(), 270U);
    EXPECT_EQ(window.Tag.Kind(), 22);
    EXPECT_EQ(window.Tag.At(TagPosition::RecentKind), 2);
    EXPECT_EQ(window.Tag.Slot(), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::Role), 9);
    EXPECT_EQ(window.Tag.At(TagPosition::State), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 0);
    EXPECT_EQ(window.Tag.Path(), run.At("a.prf"));
    EXPECT_EQ(BytesOf(window.Tag.image), bytes);
    EXPECT_EQ(window.caption.Get(), "File User: a.prf");
    EXPECT_EQ(window.List1.ListCount(), 8);
}

TEST_F(PerformanceWindowTest, ANewFileHasNoImageAndItsNameIsItalian)
{
    EXPECT_TRUE(run.Choose(app.frame.mnuPrfNuovo));
    frmPrfUN &window = Prf(0);
    EXPECT_EQ(window.Tag.Kind(), 23);
    EXPECT_EQ(window.Tag.Slot(), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Untitled), 1);
    EXPECT_TRUE(window.Tag.image.empty());
    EXPECT_EQ(window.Tag.Path(), "Senza titolo.prf");
    EXPECT_EQ(window.List1.Row(0), " 1                 ");
    EXPECT_EQ(window.List1.ListCount(), 8);
    EXPECT_EQ(window.caption.Get(), "Nuovo File: Senza titolo.prf");
    EXPECT_FALSE(app.frame.mnuPrfNuovo.enabled);
    EXPECT_EQ(PrfRecord(0).Path.Trimmed(), "");
    run.Close(window);
    EXPECT_TRUE(app.frame.mnuPrfNuovo.enabled);
}

TEST_F(EnglishPerformanceWindowTest, ANewFileIsSenzaTitoloInEnglishToo)
{
    run.Choose(app.frame.mnuPrfNuovo);
    EXPECT_EQ(Prf(0).caption.Get(), "Nuovo File: Senza titolo.prf");
}

TEST_F(PerformanceWindowTest, FileWindowsOfferTwentyBanksInTwoRowsOfTenOfOneWidth)
{
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    EXPECT_FALSE(window.CommClose.visible);
    const Place first = window.CommUser[1].place;
    for (Button &button : window.CommUser) {
        const int n = button.index();
        EXPECT_TRUE(button.visible);
        EXPECT_EQ(button.caption.Get(), "U" + std::to_string(n));
        EXPECT_EQ(button.accessibleName, "User " + std::to_string(n));
        const Place place = button.place;
        EXPECT_EQ(place.width, first.width);
        EXPECT_EQ(place.top, n <= 10 ? first.top : window.CommUser[11].place.Get().top);
        EXPECT_EQ(place.left, window.CommUser[(n - 1) % 10 + 1].place.Get().left) << "in columns";
        EXPECT_TRUE(n % 10 == 1 || place.left > window.CommUser[n - 1].place.Get().left) << "in their order";
        EXPECT_LE(place.left + place.width, window.ScaleWidth());
        EXPECT_LE(place.top + place.height, window.ScaleHeight());
    }
    EXPECT_GE(first.top, window.List1.place.Get().height);
    EXPECT_GE(window.CommUser[11].place.Get().top, first.top + first.height);
    EXPECT_GT(first.width, 450) << "room for its words";
}

TEST_F(PerformanceWindowTest, BankWindowsHaveACloseButtonInstead)
{
    frmPrfUN &bank = OpenBank(12, Put("bank.prf", FileWithItems({{"Ballad", 0}})));
    EXPECT_EQ(bank.caption.Get(), "Banco User 12: bank.prf");
    EXPECT_FALSE(bank.CommUser[1].visible);
    EXPECT_FALSE(bank.CommUser[20].visible);
    EXPECT_TRUE(bank.CommClose.visible);
    EXPECT_EQ(bank.CommClose.caption.Get(), "&Chiudi");
    EXPECT_FALSE(app.frame.mnuPrfUser[12].enabled);
    Press(bank.CommClose);
    app.children.Sweep();
    EXPECT_FALSE(HasPrf(20));
    EXPECT_TRUE(app.frame.mnuPrfUser[12].enabled);
}

TEST_F(PerformanceWindowTest, EveryControlHasAnAccessibleNameAndTheListComesFirst)
{
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    for (const Control *control : window.controls()) {
        EXPECT_FALSE(control->accessibleName.empty()) << control->FullName();
    }
    EXPECT_EQ(window.controls().front()->FullName(), "List1");
    EXPECT_EQ(window.controls().back()->FullName(), "CommClose");
}

TEST_F(PerformanceWindowTest, CommUserTiesTheFileWithThisWindowsRectangleAndRole)
{
    PrfRecord(8).Role = 3;
    PrfRecord(20).Left = 77;
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    app.children.Move(window, 600, 450);
    app.children.Resize(window, 9000, 6000);
    app.children.Move(window, 615, 465); // noted only at its close: the record still has the place of the load
    Press(window.CommUser[12]);
    const DocRecord &bank = PrfRecord(20);
    EXPECT_EQ(bank.Path.Trimmed(), run.At("a.prf"));
    EXPECT_EQ(bank.Role, 3);
    EXPECT_EQ(bank.State, 0);
    EXPECT_EQ(bank.Left, PrfRecord(1).Left);
    EXPECT_EQ(bank.Width, 9000);
    EXPECT_EQ(bank.Height, 6000);
    EXPECT_EQ(bank.MinWidth, PrfRecord(1).MinWidth);
    EXPECT_EQ(files.performances.current, 1);
    EXPECT_EQ(app.frame.mnuPrfUser[12].caption.Get(), "12 a.prf");
    EXPECT_TRUE(app.frame.mnuPrfUser[12].enabled);
    EXPECT_TRUE(app.frame.mnuPrfUser120.enabled);
    EXPECT_TRUE(app.frame.mnuPrfUserAll.enabled);
    EXPECT_EQ(window.CommUser[12].toolTip.Get(), "User 12: " + run.At("a.prf"));
    EXPECT_EQ(window.CommUser[13].toolTip.Get(), "User 13");
    run.Choose(app.frame.mnuPrfUser[12]);
    EXPECT_EQ(Prf(20).Width(), 9000);
}

TEST_F(PerformanceWindowTest, CommUserTiesTheNameAndTheRoleOfTheWindowAndNotThoseOfItsSlot)
{
    frmPrfUN &file = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    SaveAs(run.At("b.prf"));
    ASSERT_EQ(PrfRecord(1).Path.Trimmed(), run.At("a.prf")) << "the slot keeps the old name";
    const int role = file.Tag.At(TagPosition::Role);
    PrfRecord(1).Role = static_cast<std::uint8_t>(role + 1);
    app.frame.mnuPrfUser120.enabled = false;
    app.frame.mnuPrfUserAll.enabled = false;
    Press(file.CommUser[12]);
    EXPECT_EQ(PrfRecord(20).Path.Trimmed(), run.At("b.prf"));
    EXPECT_EQ(PrfRecord(20).Role, role);
    EXPECT_TRUE(app.frame.mnuPrfUser120.enabled);
    EXPECT_TRUE(app.frame.mnuPrfUserAll.enabled);
}

TEST_F(PerformanceWindowTest, TheCaptionOfABankBelowTenLosesItsBlank)
{
    EXPECT_EQ(app.frame.mnuPrfUser[3].caption.Get().substr(0, 2), " 3");
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    Press(window.CommUser[3]);
    EXPECT_EQ(app.frame.mnuPrfUser[3].caption.Get(), "3 a.prf");
}

TEST_F(PerformanceWindowTest, AnOpenBankIsUnloadedFirstAndAMinimisedOneOnlyLosesItsState)
{
    frmPrfUN &normal = OpenBank(1, Put("bank.prf", FileWithItems({{"Ballad", 0}})));
    MarkModified(normal);
    app.children.Minimise(OpenBank(2, run.At("bank.prf")));
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Waltz", 0}}));
    run.face.answers.push_back(Box::kNo);
    Press(window.CommUser[1]);
    Press(window.CommUser[2]);
    app.children.Sweep();
    EXPECT_FALSE(HasPrf(9));
    EXPECT_TRUE(HasPrf(10));
    EXPECT_EQ(PrfRecord(10).State, 0);
    EXPECT_EQ(Boxes().size(), 1U);
}

TEST_F(PerformanceWindowTest, EveryRowButOneOfThreeCharactersGoesToTheInstrument)
{
    std::vector<std::pair<int, int>> selected;
    files.services.SelectOnInstrument = [&](Form &window, int row) { selected.emplace_back(window.number(), row); };
    ListGesture::ClickRow(OpenBank(20, Put("bank.prf", FileWithItems({{"Ballad", 0}}))).List1, 7, Modifier::None);
    run.Choose(app.frame.mnuPrfNuovo);
    ListGesture::ClickRow(Prf(0).List1, 2, Modifier::None);
    EXPECT_EQ(selected, (std::vector<std::pair<int, int>>{{28, 7}, {0, 2}})) << "an empty row too, and a new file's";
    app.frame.mnuWindow.enabled = false;
    ListGesture::ClickRow(OpenBank(1, Put("none.prf", InstrumentFile({}))).List1, 0, Modifier::None);
    EXPECT_EQ(selected.size(), 2U) << "\"001\" is ignored";
    EXPECT_TRUE(app.frame.mnuWindow.enabled) << "the menu is refreshed either way";
}

TEST_F(PerformanceWindowTest, TheQuestionIsTitledWithTheSlotOfTheLastTitleAndNoClearsPosition6)
{
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    OpenPrf(Put("b.prf", FileWithItems({{"Waltz", 0}})));
    MarkModified(window);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(window.Form_QueryUnload());
    EXPECT_EQ(run.face.boxes.back().title, "File a.prf (2)");
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 0);
}

TEST_F(PerformanceWindowTest, AChangeGivenUpStaysGivenUpWhenTheExitIsCancelledLater)
{
    frmPrfUN &window = PerformanceOf(FileWithItems({{"Ballad", 0}}));
    OpenPrf(Put("b.prf", FileWithItems({{"Waltz", 0}})));
    MarkModified(window);
    MarkModified(Prf(2));
    run.face.answers = {Box::kNo, Box::kCancel};
    EXPECT_FALSE(run.Exit());
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 0);
    EXPECT_EQ(Prf(2).Tag.At(TagPosition::Modified), 1);
}

TEST_F(PerformanceWindowTest, AClosedWindowFreesItsSlot)
{
    for (int i = 1; i <= 9; ++i) {
        OpenPrf(Put("f" + std::to_string(i) + ".prf", FileWithItems({{"Ballad", 0}})));
        ASSERT_TRUE(HasPrf(1)) << i;
        run.Close(Prf(1));
        EXPECT_FALSE(files.performances.openFlags[1]);
    }
    EXPECT_EQ(PrfRecord(1).Path.Trimmed(), run.At("f9.prf"));
}

TEST_F(PerformanceWindowTest, ABankWhoseFileHasGoneDoesNothing)
{
    TiePrf(9, run.At("gone.prf"));
    EXPECT_TRUE(run.Choose(app.frame.mnuPrfUser[1]));
    EXPECT_THAT(OpenForms(), IsEmpty());
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_TRUE(app.frame.mnuPrfUser[1].enabled);
    for (const int index : {-1, 0, 21}) {
        mnuPrfUser_Click(files, index);
    }
    EXPECT_THAT(OpenForms(), IsEmpty());
}

} // namespace
} // namespace velluto::test
