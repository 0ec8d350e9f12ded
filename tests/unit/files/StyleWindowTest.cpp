// The window of a Style file: how it loads, its two views, its buttons, and how it closes.
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

class EnglishStyleWindowTest : public StyleWindowTest {
protected:
    EnglishStyleWindowTest() : StyleWindowTest(TestProgram::English) {}
};

TEST_F(StyleWindowTest, TheListIs58CharactersWideAnd9LinesHighInTwoColumns)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}, {"Beat", 1}}));
    const Size letter = run.face.MeasureA(window.List1.font);
    EXPECT_EQ(window.List1.columns, 2);
    EXPECT_STREQ(window.List1.font.name, "courier new");
    EXPECT_EQ(window.List1.font.size, 11);
    EXPECT_EQ(window.List1.place.Get(), (Place{0, 0, 58 * letter.width, 9 * letter.height}));
    EXPECT_EQ(StyRecord(1).Left, 0);
    EXPECT_EQ(StyRecord(1).Top, 0);
    EXPECT_EQ(StyRecord(1).Width, StyRecord(1).MinWidth);
    EXPECT_EQ(StyRecord(1).Height, StyRecord(1).MinHeight);
    EXPECT_EQ(window.Width(), StyRecord(1).MinWidth);
    EXPECT_EQ(window.Height(), StyRecord(1).MinHeight);
}

TEST_F(StyleWindowTest, OfTwoEntriesInOneSlotTheFirstIsTheStyleAndTheSecondItsSts)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}, {"One Touch", 0}}));
    EXPECT_EQ(Row(window, 0), " 01 Bossa                1  ");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 1);
    EXPECT_TRUE(window.CommSTS.enabled);
    EXPECT_TRUE(Press(window.CommSTS));
    EXPECT_EQ(Row(window, 0), " 01 One Touch            2  ");
}

TEST_F(StyleWindowTest, EntriesOfSlots0101AreGrouped)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}, {"Beat", 1}, {"Bossa STS", 0}, {"Beat STS", 1}}));
    EXPECT_EQ(Row(window, 0), " 01 Bossa                1  ");
    EXPECT_EQ(Row(window, 1), " 02 Beat                 2  ");
    EXPECT_EQ(Row(window, 2), " 03                         ");
    Press(window.CommSTS);
    EXPECT_EQ(Row(window, 0), " 01 Bossa STS            3  ");
    EXPECT_EQ(Row(window, 1), " 02 Beat STS             4  ");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
}

TEST_F(StyleWindowTest, Slots0To15WithoutARepeatAreStylesOnly)
{
    std::vector<std::pair<std::string, int>> items;
    for (int slot = 0; slot < 16; ++slot) {
        items.emplace_back("Style " + std::to_string(slot + 1), slot);
    }
    frmStyUN &window = StyleOf(FileWithItems(items));
    EXPECT_EQ(window.List1.ListCount(), 16);
    EXPECT_EQ(Row(window, 15), " 16 Style 16            16  ");
    EXPECT_FALSE(window.CommSTS.enabled);
    EXPECT_FALSE(Press(window.CommSTS));
    EXPECT_EQ(window.CommSTS.caption.Get(), "STS");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 1);
}

TEST_F(StyleWindowTest, AFileOfOneEntryShowsSixteenEmptyRowsAndPassesForOneWithSts)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    EXPECT_EQ(window.List1.ListCount(), 16);
    EXPECT_EQ(Row(window, 0), " 01                         ");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_TRUE(window.CommSTS.enabled);
    Press(window.CommSTS);
    EXPECT_EQ(Row(window, 0), " 01                         ");
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 0);
}

TEST_F(StyleWindowTest, AFileWithoutItemsShowsSixteenEmptyRowsToo)
{
    frmStyUN &window = StyleOf(InstrumentFile({}));
    EXPECT_EQ(window.List1.ListCount(), 16);
    EXPECT_EQ(Row(window, 15), " 16                         ");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
}

TEST_F(StyleWindowTest, TheTagOfAFileTellsItsStateAndHoldsTheWholeFile)
{
    StyRecord(8).Role = 7; // what a new document inherits
    files.RecentKind = 5;
    const Bytes bytes = FileWithItems({{"Bossa", 0}, {"Beat", 1}});
    frmStyUN &window = StyleOf(bytes);
    const WindowTag &tag = window.Tag;
    EXPECT_EQ(tag.prefix.size(), 270U);
    EXPECT_EQ(tag.Kind(), 20);
    EXPECT_EQ(tag.At(TagPosition::RecentKind), 5);
    EXPECT_EQ(tag.Slot(), 1);
    EXPECT_EQ(tag.At(TagPosition::Role), 7);
    EXPECT_EQ(tag.At(TagPosition::State), 1);
    EXPECT_EQ(tag.At(TagPosition::Untitled), 0);
    EXPECT_EQ(tag.At(TagPosition::Modified), 0);
    EXPECT_EQ(tag.At(TagPosition::PasteFixed), 0);
    EXPECT_EQ(tag.Path(), run.At("a.sty"));
    EXPECT_EQ(BytesOf(tag.image), bytes);
    EXPECT_EQ(window.caption.Get(), "File User: a.sty   (STY)");
    EXPECT_EQ(app.children.ChildCount, 1);
    EXPECT_FALSE(app.children.RestoringLayout);
}

TEST_F(StyleWindowTest, CommSTSNamesTheViewThatAClickWillShow)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}, {"One Touch", 0}}));
    EXPECT_EQ(window.CommSTS.caption.Get(), "STS");
    window.List1.Select(0, true);
    Press(window.CommSTS);
    EXPECT_EQ(window.CommSTS.caption.Get(), "Style");
    EXPECT_EQ(window.CommSTS.accessibleName, "Style");
    EXPECT_EQ(window.caption.Get(), "File User: a.sty   (STS)");
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 0);
    EXPECT_FALSE(window.List1.Selected(0)) << "the list is emptied first";
    Press(window.CommSTS);
    EXPECT_EQ(window.CommSTS.caption.Get(), "STS");
    EXPECT_EQ(window.caption.Get(), "File User: a.sty   (STY)");
    EXPECT_EQ(window.Tag.At(TagPosition::ListShows), 1);
    EXPECT_EQ(Row(window, 0), " 01 Bossa                1  ");
}

TEST_F(StyleWindowTest, CommSTSLeavesItsOwnImageInLoadImageAndItsRowsInRowBuffer)
{
    const Bytes first = FileWithItems({{"Bossa", 0}, {"One Touch", 0}});
    frmStyUN &window = StyleOf(first);
    OpenSty(Put("b.sty", FileWithItems({{"Beat", 0}, {"Its STS", 0}, {"Rock", 1}, {"Its STS", 1}})));
    Press(window.CommSTS);
    EXPECT_EQ(BytesOf(files.LoadImage), first);
    EXPECT_EQ(files.RowBuffer.size(), 448U);
    EXPECT_EQ(files.RowBuffer.substr(0, 28), " 01 One Touch            2  ");
    EXPECT_EQ(files.ItemIndex[1], 36 + 48 + 1 + 1) << "1-based position of the second body";
}

TEST_F(StyleWindowTest, ANewFileHasTheEmptyImageAndNoItems)
{
    EXPECT_TRUE(run.Choose(app.frame.mnuStyNuovo));
    frmStyUN &window = Sty(0);
    EXPECT_EQ(window.List1.ListCount(), 16);
    EXPECT_EQ(Row(window, 0), " 01                 ");
    const WindowTag &tag = window.Tag;
    EXPECT_EQ(tag.Kind(), 21);
    EXPECT_EQ(tag.Slot(), 0);
    EXPECT_EQ(tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(tag.At(TagPosition::ListShows), 1);
    EXPECT_EQ(tag.At(TagPosition::Untitled), 1);
    EXPECT_EQ(tag.At(TagPosition::Role), 0) << "of files only";
    EXPECT_EQ(tag.At(TagPosition::State), 0);
    EXPECT_EQ(tag.Path(), "SenzaNome.sty");
    EXPECT_EQ(tag.image.size(), 60U);
    EXPECT_EQ(tag.image.View()[59], 1);
    EXPECT_EQ(tag.image.View()[36], 254);
    EXPECT_EQ(StyRecord(0).Path.Trimmed(), "") << "the name is in the working record only";
    EXPECT_EQ(StyRecord(0).State, 1);
    EXPECT_EQ(window.caption.Get(), "Nuovo File: SenzaNome.sty   (STY)");
    EXPECT_TRUE(window.CommSTS.enabled);
    EXPECT_FALSE(app.frame.mnuStyNuovo.enabled);
    EXPECT_FALSE(run.Choose(app.frame.mnuStyNuovo));
    EXPECT_TRUE(run.Close(window));
    EXPECT_TRUE(app.frame.mnuStyNuovo.enabled);
}

TEST_F(StyleWindowTest, TheViewsOfANewFileBothHaveNumbersOnly)
{
    run.Choose(app.frame.mnuStyNuovo);
    Press(Sty(0).CommSTS);
    EXPECT_EQ(Row(Sty(0), 0), " 01                         ");
    EXPECT_EQ(Sty(0).caption.Get(), "Nuovo File: SenzaNome.sty   (STS)");
}

TEST_F(EnglishStyleWindowTest, ANewFileIsUntitledUnderAnItalianWord)
{
    run.Choose(app.frame.mnuStyNuovo);
    EXPECT_EQ(Sty(0).caption.Get(), "Nuovo File: Untitled.sty   (STY)");
    EXPECT_EQ(Sty(0).CommClose.caption.Get(), "&Close");
}

TEST_F(StyleWindowTest, FileWindowsOfferTwelveBanksAndTheStsButNoCloseButton)
{
    frmStyUN &file = StyleOf(FileWithItems({{"Bossa", 0}, {"One Touch", 0}}));
    for (Button &button : file.CommUser) {
        EXPECT_TRUE(button.visible);
    }
    for (Button &button : file.CommDirectHD) {
        EXPECT_TRUE(button.visible);
    }
    EXPECT_EQ(file.CommUser[9].caption.Get(), "User 1");
    EXPECT_EQ(file.CommUser[11].caption.Get(), "User 3");
    EXPECT_EQ(file.CommDirectHD[12].caption.Get(), "Dir. HD 1");
    EXPECT_EQ(file.CommDirectHD[20].caption.Get(), "Dir. HD 9");
    EXPECT_TRUE(file.CommSTS.visible);
    EXPECT_FALSE(file.CommClose.visible);

    frmStyUN &bank = OpenBank(10, run.At("a.sty"));
    EXPECT_FALSE(bank.CommUser[9].visible);
    EXPECT_FALSE(bank.CommDirectHD[20].visible);
    EXPECT_TRUE(bank.CommSTS.visible);
    EXPECT_TRUE(bank.CommClose.visible);
    EXPECT_EQ(bank.CommClose.caption.Get(), "&Chiudi");
    EXPECT_EQ(bank.CommSTS.place.Get().top, bank.CommClose.place.Get().top) << "side by side";
    EXPECT_LT(bank.CommSTS.place.Get().left + bank.CommSTS.place.Get().width, bank.CommClose.place.Get().left);
    Press(bank.CommClose);
    app.children.Sweep();
    EXPECT_FALSE(HasSty(10));
}

TEST_F(StyleWindowTest, TheButtonsStandInTwoRowsOfOneWidthWithinTheWindow)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}, {"One Touch", 0}}));
    std::vector<Place> first;
    for (Button &button : window.CommUser) {
        first.push_back(button.place);
    }
    first.push_back(window.CommSTS.place);
    std::vector<Place> second;
    for (Button &button : window.CommDirectHD) {
        second.push_back(button.place);
    }
    for (const std::vector<Place> &row : {first, second}) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            EXPECT_EQ(row[i].width, second[0].width);
            EXPECT_EQ(row[i].height, second[0].height);
            EXPECT_EQ(row[i].top, row[0].top);
            EXPECT_GT(row[i].width, 700) << "room for its words";
            EXPECT_TRUE(i == 0 || row[i - 1].left + row[i - 1].width < row[i].left);
        }
        EXPECT_GE(row.front().left, 0);
        EXPECT_LE(row.back().left + row.back().width, window.ScaleWidth());
    }
    EXPECT_GE(first[0].top, window.List1.place.Get().height);
    EXPECT_GE(second[0].top, first[0].top + first[0].height);
    EXPECT_LE(second[0].top + second[0].height, window.ScaleHeight());
}

TEST_F(StyleWindowTest, EveryControlHasAnAccessibleNameInTheOrderOfTheScreen)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    std::vector<std::string> order;
    for (const Control *control : window.controls()) {
        EXPECT_FALSE(control->accessibleName.empty()) << control->FullName();
        order.push_back(control->FullName());
    }
    EXPECT_THAT(order, ElementsAre("List1", "CommUser(9)", "CommUser(10)", "CommUser(11)", "CommSTS", "CommDirectHD(12)",
                                   "CommDirectHD(13)", "CommDirectHD(14)", "CommDirectHD(15)", "CommDirectHD(16)", "CommDirectHD(17)",
                                   "CommDirectHD(18)", "CommDirectHD(19)", "CommDirectHD(20)", "CommClose"));
    EXPECT_EQ(window.CommDirectHD[14].accessibleName, "Direct HD 3");
}

TEST_F(StyleWindowTest, ToolTipsNameTheBankAndTheFileNowTiedToItInEveryWindow)
{
    frmStyUN &one = StyleOf(FileWithItems({{"Bossa", 0}}));
    OpenSty(Put("b.sty", FileWithItems({{"Beat", 0}})));
    frmStyUN &two = Sty(2);
    EXPECT_EQ(one.CommUser[10].toolTip.Get(), "User 2");
    Press(two.CommUser[10]);
    EXPECT_EQ(one.CommUser[10].toolTip.Get(), "User 2: " + run.At("b.sty"));
    EXPECT_EQ(two.CommUser[10].toolTip.Get(), "User 2: " + run.At("b.sty"));
    Press(one.CommDirectHD[20]);
    EXPECT_EQ(two.CommDirectHD[20].toolTip.Get(), "Direct HD 9: " + run.At("a.sty"));
    OpenSty(Put("c.sty", FileWithItems({{"Waltz", 0}})));
    EXPECT_EQ(Sty(3).CommUser[10].toolTip.Get(), "User 2: " + run.At("b.sty"));
}

TEST_F(StyleWindowTest, TheQuestionIsTitledWithTheWholePathAndNoClearsPosition7)
{
    frmStyUN &window = StyleOf(FileWithItems({{"Bossa", 0}}));
    MarkModified(window);
    window.Tag.Set(TagPosition::ProgramEdited, 1);
    run.face.answers.push_back(Box::kNo);
    EXPECT_TRUE(window.Form_QueryUnload());
    EXPECT_EQ(app.CurrentOperation, "File Style: " + run.At("a.sty"));
    EXPECT_EQ(run.face.boxes.back().title, "File Style: " + run.At("a.sty"));
    EXPECT_EQ(window.Tag.At(TagPosition::ProgramEdited), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::Modified), 1);
}

TEST_F(StyleWindowTest, OnlyACopyOfTheSameSlotAndKindGoesWithItsWindow)
{
    OpenSty(Put("a.sty", FileWithItems({{"Bossa", 0}})));
    OpenSty(Put("b.sty", FileWithItems({{"Beat", 0}})));
    OpenSty(Put("c.sty", FileWithItems({{"Waltz", 0}})));
    files.clipboard.ClipValid = 1;
    files.clipboard.ClipSlot = 2;
    files.clipboard.ClipKind = ViewKind::ProgramFile;
    run.Close(Sty(2));
    EXPECT_EQ(files.clipboard.ClipValid, 1);
    files.clipboard.ClipSlot = 3;
    files.clipboard.ClipKind = ViewKind::StyleFile;
    run.Close(Sty(1));
    EXPECT_EQ(files.clipboard.ClipValid, 1);
    run.Close(Sty(3));
    EXPECT_EQ(files.clipboard.ClipValid, 0);
}

} // namespace
} // namespace velluto::test
