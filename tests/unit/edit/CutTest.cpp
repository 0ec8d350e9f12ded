// Cut from Program and Performance files: the rows, the clipboard, and the image that remains, byte for byte.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using CutTest = EditTest;

const std::string kAlphabet = "abcdefghijklmnopqrstuvwxyz";

// --- Which bytes remain

TEST_F(CutTest, OfTheFirstItemIsClean)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 1}, {"Choir", 2}}, "bbCCCC", {84, 86})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfTheLastItemIsClean)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}, {"Organ", 1}}, "AAAbb", {84, 87})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfTheLastTwoItemsIsClean)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {1, 2});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}}, "AAA", {60})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfTheFirstTwoItemsIsClean)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {0, 1});
    EXPECT_EQ(Image(window), Legible(Written({{"Choir", 2}}, "CCCC", {60})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfAllItemsLeavesAFileOfNoItemsWithItsLength)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(files.BuildItemIndex[0], 37) << "the place of a first body is worked out all the same";
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, FromTheMiddleCarriesOneEntrysLengthOfTheFirstBodyAlong)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, kAlphabet}, {"Organ", 1, "bb"}, {"Choir", 2, "CCCC"}});
    Cut(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}, {"Choir", 2}},
                                             "abcdefghijklmnopqrstuvwx"
                                             "abcdefghijklmnopqrstuvwxyz"
                                             "CCCC",
                                             {84, 110})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfShortBodiesTheExtraBytesReachIntoTheIndex)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}, {"Choir", 2}},
                                             "AAAbbCCCC\xFE\0\0\x18\0\0\0\x1C"
                                             "KBEG\0\0\0"
                                             "AAACCCC"s,
                                             {84, 87})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, TheExtraBytesAreAnEntrysLengthForEachItemBeforeTheRun)
{
    frmPcgUN &window =
        Pcg("a.pcg", {{"Piano", 0, kAlphabet}, {"Organ", 3, kAlphabet}, {"Choir", 4, "C"}, {"Flute", 5, "d"}, {"Tuba", 9, "ee"}});
    Cut(window, {4, 5});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}, {"Organ", 3}, {"Tuba", 9}},
                                             "abcdefghijklmnopqrstuvwxyz" // 48 bytes past the directory's end
                                             "abcdefghijklmnopqrstuv"
                                             "abcdefghijklmnopqrstuvwxyz" // the bodies
                                             "abcdefghijklmnopqrstuvwxyz"
                                             "ee",
                                             {108, 134, 160})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, TheExtraBytesMayEndWithTheFile)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "aa"}, {"Organ", 1, "bb"}, {"Choir", 2, "cc"}, {"Flute", 3, "dd"}});
    Cut(window, {2});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Piano", 0}, {"Organ", 1}, {"Flute", 3}},
                              "aabbccdd\xFE\0\0\x18\0\0\0 KBEG\0\0\0\x1C\0\0\0\x84\0\0\0\x86\0\0\0\x88\0\0\0\x8AKEND\0\0\0\x05"
                              "aabbdd"s,
                              {108, 110, 112})));
}

TEST_F(CutTest, ExtraBytesThatTheFileDoesNotHaveStopTheCut)
{
    // One byte less than in the file above.
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "aa"}, {"Organ", 1, "bb"}, {"Choir", 2, "cc"}, {"Flute", 3, "d"}});
    Copy(window, {0, 1});
    const Everything before = All(window);
    Cut(window, {2});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(files.CutCount, 1) << "what was counted before stays counted";
    EXPECT_EQ(files.ItemIndex[3], 139);
    EXPECT_EQ(files.ItemIndex[128 + 3], 1);
}

TEST_F(CutTest, ItemsAreFoundBySlotNotByNumber)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 3, "AAA"}, {"Organ", 7, "bb"}, {"Choir", 60, "CCCC"}});
    Cut(window, {60});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 3}, {"Organ", 7}}, "AAAbb", {84, 87})));
    Cut(window, {3});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 7}}, "bb", {60})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutTest, OfALargeBankReachesItsLastRow)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "AAA"}, {"Organ", 126, "bb"}, {"Choir", 127, "CCCC"}});
    Cut(window, {126, 127});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}}, "AAA", {60})));
    EXPECT_EQ(clipboard.ClipFirstRow, 127);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

TEST_F(CutTest, OfTheVeryLastRowAlone)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "AAA"}, {"Organ", 1, "bb"}, {"Choir", 63, "CCCC"}});
    Cut(window, {0});
    EXPECT_EQ(clipboard.ClipCount, 1);
    files.CutCount = 2; // of some Cut before
    Cut(window, {63});
    EXPECT_EQ(clipboard.ClipFirstRow, 64);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 1}}, "bb", {60})));
}

TEST_F(CutTest, TheTablesDescribeTheNewImage)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {0});
    EXPECT_EQ(files.BuildItemIndex[0], 85);
    EXPECT_EQ(files.BuildItemIndex[1], 87);
    EXPECT_EQ(files.BuildItemIndex[128], 2);
    EXPECT_EQ(files.BuildItemIndex[129], 4);
    EXPECT_EQ(files.ItemIndex[0], 109) << "and this one the old";
    EXPECT_EQ(files.ItemIndex[128 + 2], 4);
}

TEST_F(CutTest, TheOtherBytesOfAnEntryAreKept)
{
    Bytes file = FileOf(kThreePrograms);
    file[36 + 24 + 16] = 0xA1;
    file[36 + 24 + 19] = 0xA2;
    file[36 + 24 + 21] = 0xA3;
    file[36 + 24 + 23] = 0xA4;
    frmPcgUN &window = OpenPcg("a.pcg", file);
    Cut(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 1, "\xA1\x22\x33\xA2\xA3\x66\xA4"}, {"Choir", 2}}, "bbCCCC", {84, 86})));
}

// --- Which rows

TEST_F(CutTest, TheRowsKeepTheirNumbersAndLoseTheirNames)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    const std::string third = Row(window, 2);
    Cut(window, {0, 1});
    EXPECT_EQ(Row(window, 0), " 001 " + kSixteenBlanks);
    EXPECT_EQ(Row(window, 1), " 002 " + kSixteenBlanks);
    EXPECT_EQ(Row(window, 2), third);
    EXPECT_EQ(window.List1.ListCount(), 64);
    EXPECT_TRUE(window.List1.Selected(0)) << "the selection stays";
    EXPECT_TRUE(window.List1.Selected(1));
    EXPECT_FALSE(window.List1.Selected(2));
}

TEST_F(CutTest, RowsThreeToFiveWithTheFourthEmptyLoseRowThreeOnly)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 4, "bb"}});
    Cut(window, {2, 3, 4});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 4}}, "bb", {60})));
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(Drawn(window.List1)[4], " 005 Organ");
}

TEST_F(CutTest, ASelectionBeyondAGapIsIgnored)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 6, "bb"}});
    Cut(window, {2, 6});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 6}}, "bb", {60})));
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CutTest, EmptyRowsBeforeTheFirstItemArePassedBy)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 2, "AAA"}, {"Organ", 3, "bb"}});
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 3}}, "bb", {60})));
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CutTest, ARowShorterThanAnEmptyOneDoesNotEndTheRun)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    window.List1.SetRow(1, " 00");
    Copy(window, {0, 1, 2});
    EXPECT_EQ(clipboard.ClipCount, 1) << "as it ends that of a Copy";
    Cut(window, {0, 1, 2});
    EXPECT_EQ(clipboard.ClipCount, 3);
    EXPECT_EQ(Image(window), kNoItems);
}

TEST_F(CutTest, ARowShorterThanAnEmptyOneDoesNotBeginTheRun)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    window.List1.SetRow(0, " 00");
    Cut(window, {0, 1});
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(Row(window, 0), " 00");
}

// --- The window and the clipboard

TEST_F(CutTest, TheWindowIsMarkedAsChangedAndNothingElseOfItsStateChanges)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    std::string prefix = window.Tag.prefix;
    const std::string title = window.caption;
    Cut(window, {1});
    prefix[5] = '\x01';
    EXPECT_EQ(window.Tag.prefix, prefix);
    EXPECT_EQ(window.caption.Get(), title);
    EXPECT_THAT(Boxes(), IsEmpty());
    EXPECT_TRUE(run.midi.sent.empty());
}

TEST_F(CutTest, TheNewStateAndImageAreLeftInTheBuildTexts)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {1});
    EXPECT_EQ(files.BuildPrefix, window.Tag.prefix);
    EXPECT_EQ(files.BuildPrefix.at(5), '\x01');
    EXPECT_EQ(Legible(BytesOf(files.BuildImage)), Image(window));
}

TEST_F(CutTest, TheClipboardHoldsTheFileAsItWasBefore)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {1, 2});
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(clipboard.ClipKind, 14);
    EXPECT_EQ(clipboard.ClipSlot, 1);
    EXPECT_EQ(files.CutCount, 2);
}

TEST_F(CutTest, WhetherTheLastCopyHadStsStaysInTheClipboard)
{
    frmStyUN &styles = Style("a.sty", {{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}});
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Copy(styles, {0});
    Cut(window, {0});
    EXPECT_EQ(clipboard.ClipHasSts, 1);
    EXPECT_EQ(clipboard.ClipKind, 14);
}

TEST_F(CutTest, ClosingACutWindowAsksToSave)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {1});
    EXPECT_FALSE(run.Close(window)) << "nobody answers: cancelled";
    EXPECT_THAT(Boxes(), ElementsAre(testing::HasSubstr("Salvare")));
}

} // namespace
} // namespace velluto::test
