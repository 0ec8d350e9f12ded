// Copy: which rows make the run, what the clipboard then holds, and what empties it.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using CopyTest = EditTest;

// --- The run

TEST_F(CopyTest, TheClipboardHoldsTheWholeFileAndTheCoordinatesOfTheRun)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {1, 2});
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(clipboard.ClipKind, 14);
    EXPECT_EQ(clipboard.ClipSlot, 1);
    EXPECT_EQ(clipboard.ClipHasSts, 0);
}

TEST_F(CopyTest, TheSourceStaysAsItIs)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    const Everything before = All(window);
    Copy(window, {0, 2});
    EXPECT_EQ(All(window), before);
    EXPECT_TRUE(window.List1.Selected(0));
    EXPECT_FALSE(window.List1.Selected(1));
    EXPECT_TRUE(window.List1.Selected(2));
}

TEST_F(CopyTest, ASelectionBeyondAGapIsIgnored)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 4, "bb"}, {"Choir", 6, "CCCC"}});
    Copy(window, {2, 6});
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CopyTest, AnOccupiedRowThatIsNotSelectedEndsTheRun)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {0, 2});
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CopyTest, RowsThreeToFiveWithTheFourthEmptyGiveRowThreeOnly)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 4, "bb"}});
    Copy(window, {2, 3, 4});
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CopyTest, EmptyRowsBeforeTheFirstItemArePassedBy)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 3, "bb"}});
    Copy(window, {0, 1, 2, 3, 4});
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CopyTest, WithNothingSelectedTheFirstRowIs257AndTheCount0)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {});
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 257);
    EXPECT_EQ(clipboard.ClipCount, 0);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
}

TEST_F(CopyTest, SelectedEmptyRowsAloneGiveNoRun)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {3, 4, 5});
    EXPECT_EQ(clipboard.ClipFirstRow, 257);
    EXPECT_EQ(clipboard.ClipCount, 0);
}

TEST_F(CopyTest, ARunMayReachTheLastRowOfSixtyFour)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 62, "AAA"}, {"Organ", 63, "bb"}});
    Copy(window, {62, 63});
    EXPECT_EQ(clipboard.ClipFirstRow, 63);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CopyTest, ARunMayReachTheLastRowOfAHundredAndTwentyEight)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "AAA"}, {"Organ", 126, "bb"}, {"Choir", 127, "CCCC"}});
    Copy(window, {126, 127});
    EXPECT_EQ(clipboard.ClipFirstRow, 127);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CopyTest, ASmallBankIsLookedAtAsFarAsALargeOne)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    window.List1.AddItem(" 065 Beyond");
    Copy(window, {64});
    EXPECT_EQ(clipboard.ClipFirstRow, 65);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CopyTest, AProgramOfOneLetterIsAnItem)
{
    frmPcgUN &window = Pcg("a.pcg", {{"X", 5, "AAA"}});
    Copy(window, {5});
    EXPECT_EQ(clipboard.ClipFirstRow, 6);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

// --- Styles and Performances

TEST_F(CopyTest, OfAStyleFileTheClipboardKnowsWhetherItHasSts)
{
    frmStyUN &pairs = Style("a.sty", kTwoPairs);
    Copy(pairs, {0, 1});
    EXPECT_EQ(clipboard.ClipKind, 20);
    EXPECT_EQ(clipboard.ClipSlot, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(clipboard.ClipHasSts, 1);
    frmStyUN &stylesOnly = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 15, "BBBB"}});
    Copy(stylesOnly, {15});
    EXPECT_EQ(clipboard.ClipSlot, 2);
    EXPECT_EQ(clipboard.ClipFirstRow, 16);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(clipboard.ClipHasSts, 0);
}

TEST_F(CopyTest, OfPerformancesEightRowsAreLookedAt)
{
    frmPrfUN &window = Performance("a.prf", {{"Ballad", 0, "AAA"}, {"Disco", 6, "bb"}, {"Latin", 7, "CCCC"}});
    Copy(window, {6, 7});
    EXPECT_EQ(clipboard.ClipKind, 22);
    EXPECT_EQ(clipboard.ClipFirstRow, 7);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CopyTest, TheRowsOfAPerformanceFileWithoutItemsPassForOccupied)
{
    frmPrfUN &window = Performance("a.prf", {});
    ASSERT_EQ(Row(window, 0), "001" + std::string(17, ' '));
    Copy(window, {0, 1});
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CopyTest, NewFilesHaveKindsOfTheirOwn)
{
    Copy(NewSty(), {});
    EXPECT_EQ(clipboard.ClipKind, 21);
    EXPECT_EQ(clipboard.ClipSlot, 0);
    Copy(NewPrf(), {});
    EXPECT_EQ(clipboard.ClipKind, 23);
    EXPECT_EQ(clipboard.ClipSlot, 0);
    Copy(NewPcg128(), {});
    EXPECT_EQ(clipboard.ClipKind, 14);
    EXPECT_EQ(clipboard.ClipSlot, 12);
    EXPECT_TRUE(clipboard.ClipImage.empty());
}

TEST_F(CopyTest, WithoutAWindowTheClipboardStays)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    clipboard.ClipValid = 7;
    app.children.UnloadAll();
    clipboard.ClipValid = 7;
    mnuCopia_Click(files);
    EXPECT_EQ(clipboard.ClipValid, 7);
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
}

// --- What stays of it

TEST_F(CopyTest, TheClipboardKeepsTheFileAsItWasThen)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {0});
    window.Tag.image = ImageOf(FileOf({}));
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
}

TEST_F(CopyTest, TheNextCopyTakesItsPlace)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(window, {0, 1, 2});
    Copy(window, {2});
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

// --- What empties it

TEST_F(CopyTest, ClosingTheSourceEmptiesTheClipboard)
{
    frmPcgUN &programs = Pcg("a.pcg", kThreePrograms);
    Copy(programs, {0});
    run.Close(programs);
    EXPECT_EQ(clipboard.ClipValid, 0);
    frmStyUN &styles = Style("a.sty", kTwoPairs);
    Copy(styles, {0});
    run.Close(styles);
    EXPECT_EQ(clipboard.ClipValid, 0);
    frmPrfUN &performances = Performance("a.prf", {{"Ballad", 0, "AAA"}});
    Copy(performances, {0});
    run.Close(performances);
    EXPECT_EQ(clipboard.ClipValid, 0);
}

TEST_F(CopyTest, ClosingAnotherWindowOfTheTypeKeepsIt)
{
    frmPcgUN &source = Pcg("a.pcg", kThreePrograms);
    frmPcgUN &other = Pcg("b.pcg", kThreePrograms);
    Copy(source, {0});
    run.Close(other);
    EXPECT_EQ(clipboard.ClipValid, 1);
    frmStyUN &styles = Style("a.sty", kTwoPairs);
    frmStyUN &otherStyles = Style("b.sty", kTwoPairs);
    Copy(styles, {0});
    run.Close(otherStyles);
    EXPECT_EQ(clipboard.ClipValid, 1);
    frmPrfUN &performances = Performance("a.prf", {{"Ballad", 0, "AAA"}});
    frmPrfUN &otherPerformances = Performance("b.prf", {{"Disco", 0, "bb"}});
    Copy(performances, {0});
    run.Close(otherPerformances);
    EXPECT_EQ(clipboard.ClipValid, 1);
}

TEST_F(CopyTest, ClosingAProgramWindowOfTheSameSlotEmptiesItWhateverTheKind)
{
    frmPcgUN &programs = Pcg("a.pcg", kThreePrograms);
    frmStyUN &styles = Style("a.sty", kTwoPairs);
    Copy(styles, {0});
    ASSERT_EQ(clipboard.ClipSlot, programs.Tag.Slot());
    run.Close(programs);
    EXPECT_EQ(clipboard.ClipValid, 0);
    frmPcgUN &again = Pcg("b.pcg", kThreePrograms);
    frmPrfUN &performances = Performance("a.prf", {{"Ballad", 0, "AAA"}});
    Copy(performances, {0});
    ASSERT_EQ(clipboard.ClipSlot, again.Tag.Slot());
    run.Close(again);
    EXPECT_EQ(clipboard.ClipValid, 0);
}

TEST_F(CopyTest, ClosingAStyleOrPerformanceWindowEmptiesItOnlyIfTheKindIsTheSameToo)
{
    frmPcgUN &programs = Pcg("a.pcg", kThreePrograms);
    frmStyUN &styles = Style("a.sty", kTwoPairs);
    frmPrfUN &performances = Performance("a.prf", {{"Ballad", 0, "AAA"}});
    frmPrfUN &others = Performance("b.prf", {{"Ballad", 0, "AAA"}});
    Copy(programs, {0});
    ASSERT_EQ(styles.Tag.Slot(), 1);
    run.Close(styles);
    EXPECT_EQ(clipboard.ClipValid, 1);
    ASSERT_EQ(performances.Tag.Slot(), 1);
    run.Close(performances);
    EXPECT_EQ(clipboard.ClipValid, 1);
    frmStyUN &second = Style("b.sty", kTwoPairs);
    Copy(second, {0});
    ASSERT_EQ(second.Tag.Slot(), others.Tag.Slot());
    run.Close(others);
    EXPECT_EQ(clipboard.ClipValid, 1);
}

TEST_F(CopyTest, ANewStyleFileAndANewPerformanceFileDoNotEmptyEachOthers)
{
    Copy(NewSty(), {});
    run.Close(NewPrf());
    EXPECT_EQ(clipboard.ClipValid, 1);
    run.Close(Sty(0));
    EXPECT_EQ(clipboard.ClipValid, 0);
}

TEST_F(CopyTest, PrintingAStyleFileEmptiesIt)
{
    frmPcgUN &programs = Pcg("a.pcg", kThreePrograms);
    frmStyUN &styles = Style("a.sty", kTwoPairs);
    Copy(programs, {0});
    app.children.Activate(styles);
    EXPECT_TRUE(run.Choose(app.frame.mnuStampa));
    EXPECT_EQ(clipboard.ClipValid, 0);
}

TEST_F(CopyTest, PrintingProgramsOrPerformancesLeavesItAlone)
{
    frmPcgUN &programs = Pcg("a.pcg", kThreePrograms);
    frmPrfUN &performances = Performance("a.prf", {{"Ballad", 0, "AAA"}});
    Copy(programs, {0});
    EXPECT_TRUE(run.Choose(app.frame.mnuStampa));
    app.children.Activate(performances);
    EXPECT_TRUE(run.Choose(app.frame.mnuStampa));
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
}

} // namespace
} // namespace velluto::test
