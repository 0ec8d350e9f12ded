// Cut from Style files: one Style and its STS for each pass, in the three arrangements.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using CutStylesTest = EditTest;

const std::vector<Lettered> kStylesOnly{{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}, {"Polka", 2, "C"}};
const std::vector<Lettered> kInterleaved{{"Bossa", 0, "AAA"},     {"Bossa STS", 0, "aa"}, {"Beguine", 1, "BBBB"},
                                         {"Beguine STS", 1, "b"}, {"Polka", 2, "C"},      {"Polka STS", 2, "ccccc"}};
const std::vector<Lettered> kGrouped{{"Bossa", 0, "AAA"},    {"Beguine", 1, "BBBB"},  {"Polka", 2, "C"},
                                     {"Bossa STS", 0, "aa"}, {"Beguine STS", 1, "b"}, {"Polka STS", 2, "ccccc"}};

// --- Styles only

TEST_F(CutStylesTest, OfAFileWithoutStsTakesOneEntryEach)
{
    frmStyUN &window = Style("a.sty", kStylesOnly);
    Cut(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Polka", 2}}, "AAAC", {84, 87}))) << "the middle is as clean as the ends";
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheFirstWithoutSts)
{
    frmStyUN &window = Style("a.sty", kStylesOnly);
    Cut(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Beguine", 1}, {"Polka", 2}}, "BBBBC", {84, 88})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheLastWithoutSts)
{
    frmStyUN &window = Style("a.sty", kStylesOnly);
    Cut(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Beguine", 1}}, "AAABBBB", {84, 87})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfAllWithoutStsLeavesAFileOfNoItemsWithItsLength)
{
    frmStyUN &window = Style("a.sty", kStylesOnly);
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(window.Tag.image.size(), 60U);
    EXPECT_EQ(window.Tag.image.View()[7], 52);
}

// --- Interleaved

TEST_F(CutStylesTest, OfAnInterleavedFileTakesTheStyleAndTheStsBehindIt)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    Cut(window, {1});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Bossa STS", 0}, {"Polka", 2}, {"Polka STS", 2}}, "AAAaaCccccc", {132, 135, 137, 138})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheFirstPair)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    Cut(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Beguine", 1}, {"Beguine STS", 1}, {"Polka", 2}, {"Polka STS", 2}}, "BBBBbCccccc", {132, 136, 137, 138})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheLastTwoPairs)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    Cut(window, {1, 2});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Bossa STS", 0}}, "AAAaa", {84, 87})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfAllPairs)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), kNoItems);
}

// --- Grouped

TEST_F(CutStylesTest, OfSixGroupedEntriesTheStyleInSlot1IsEntries2And5)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {1});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Polka", 2}, {"Bossa STS", 0}, {"Polka STS", 2}}, "AAACaaccccc", {132, 135, 136, 138})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheFirstGroupedStyle)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Beguine", 1}, {"Polka", 2}, {"Beguine STS", 1}, {"Polka STS", 2}}, "BBBBCbccccc", {132, 136, 137, 138})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTheLastGroupedStyle)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {2});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Beguine", 1}, {"Bossa STS", 0}, {"Beguine STS", 1}}, "AAABBBBaab", {132, 135, 139, 141})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfTwoGroupedStylesInTwoPasses)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {1, 2});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Bossa STS", 0}}, "AAAaa", {84, 87})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutStylesTest, OfAllGroupedStyles)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), kNoItems);
}

TEST_F(CutStylesTest, TheArrangementIsThatOfTheWholeFileForAllPasses)
{
    // Of five entries the first pass takes the first and the third. What remains has slots 1 1 1, which alone would pass
    // for interleaved: then the third entry would keep its body.
    frmStyUN &window =
        Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}, {"Bossa STS", 0, "aa"}, {"Beguine STS", 1, "b"}, {"More", 1, "m"}});
    Cut(window, {0, 1});
    EXPECT_EQ(Image(window), Legible(Written({{"More", 1}}, "", {60})));
}

TEST_F(CutStylesTest, AnOddGroupedFileLosesAnStsOfAnotherStyleAndABody)
{
    // Five entries, so the STS are taken to stand two further on.
    frmStyUN &window =
        Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}, {"Polka", 2, "C"}, {"Bossa STS", 0, "aa"}, {"Beguine STS", 1, "b"}});
    Cut(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Polka", 2}, {"Beguine STS", 1}}, "AAAC", {108, 111, 112})));
}

// --- Rows, state, clipboard

TEST_F(CutStylesTest, ARowKeepsItsFirstFourCharacters)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    ASSERT_EQ(Row(window, 1), " 02 Beguine              4  ");
    const std::string third = Row(window, 2);
    Cut(window, {1});
    EXPECT_EQ(Row(window, 1), " 02 " + std::string(16, ' '));
    EXPECT_EQ(Row(window, 2), third);
    EXPECT_TRUE(window.List1.Selected(1));
}

TEST_F(CutStylesTest, TheClipboardHoldsTheFileAsItWasBeforeTheFirstPass)
{
    frmStyUN &window = Style("a.sty", kGrouped);
    Cut(window, {1, 2});
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kGrouped)));
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(clipboard.ClipKind, 20);
    EXPECT_EQ(clipboard.ClipSlot, 1);
    EXPECT_EQ(clipboard.ClipHasSts, 0) << "only Copy sets it";
}

TEST_F(CutStylesTest, TheWindowIsMarkedAsChangedAndNothingElseOfItsStateChanges)
{
    frmStyUN &window = Style("a.sty", kInterleaved);
    std::string prefix = window.Tag.prefix;
    Cut(window, {0, 1, 2});
    prefix[5] = '\x01';
    EXPECT_EQ(window.Tag.prefix, prefix) << "it still passes for a file with STS";
    EXPECT_TRUE(window.CommSTS.enabled);
}

TEST_F(CutStylesTest, TheDeleteKeyCutsInTheViewOfTheStsToo)
{
    frmStyUN &window = Style("a.sty", kTwoPairs);
    Press(window.CommSTS);
    Pick(window, {0});
    PressKey(window.List1, Key::Delete);
    EXPECT_EQ(Image(window), Legible(Written({{"Beguine", 1}, {"Beguine STS", 1}}, "BBBBb", {84, 88})));
    EXPECT_EQ(Drawn(window.List1)[0], " 01");
    EXPECT_EQ(Drawn(window.List1)[1], " 02 Beguine STS          1");
}

// --- A new Style file

TEST_F(CutStylesTest, OfTheLastItemOfANewFileLetsTheNextPasteSettleTheSts)
{
    frmStyUN &source = Style("a.sty", kTwoPairs);
    Copy(source, {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {3});
    ASSERT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    Cut(window, {3});
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1) << "one is left";
    Cut(window, {4});
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_EQ(Image(window), kNoItems);
}

TEST_F(CutStylesTest, OfTheLastItemOfAnOpenedFileSettlesNothing)
{
    frmStyUN &window = Style("a.sty", kTwoPairs);
    Cut(window, {0, 1});
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
    Paste(window, {0});
    ASSERT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    Cut(window, {0, 1});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
}

TEST_F(CutStylesTest, OfANewFileThatKeepsAnItemStaysSettled)
{
    Copy(Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}}), {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {0, 1});
    Cut(window, {0});
    ASSERT_EQ(CountItems(window.Tag.image.View()), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
}

TEST_F(CutStylesTest, OfANewFileThatWasSavedItIsStillNew)
{
    frmStyUN &source = Style("a.sty", kTwoPairs);
    Copy(source, {0});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    SaveAs(run.At("mine.sty"));
    Cut(window, {0});
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
}

// --- Nothing selected

TEST_F(CutStylesTest, WithNothingSelectedAtFirstTheFileBecomesWhatTheLastEditBuilt)
{
    frmStyUN &window = Style("a.sty", kTwoPairs);
    const Texts rows = window.List1.Rows();
    ASSERT_TRUE(files.BuildImage.empty());
    Pick(window, {});
    PressKey(window.List1, Key::Delete);
    EXPECT_TRUE(window.Tag.image.empty()) << "nothing was built yet";
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(window.List1.Rows(), rows);
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 17);
    EXPECT_EQ(clipboard.ClipCount, 0);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kTwoPairs)));
}

TEST_F(CutStylesTest, AWindowThatLostItsImageThatWayStaysAsItIs)
{
    frmStyUN &window = Style("a.sty", kTwoPairs);
    Cut(window, {});
    ASSERT_TRUE(window.Tag.image.empty());
    clipboard.ClipValid = 0;
    const Everything before = All(window);
    Cut(window, {0}); // the row is still shown
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipValid, 0);
    EXPECT_EQ(files.CutCount, 0);
}

TEST_F(CutStylesTest, WithNothingSelectedTheFileMayBecomeOneOfPrograms)
{
    Copy(Pcg("a.pcg", {{"Piano", 0, "AAA"}}), {0});
    Paste(NewPcg64(), {7});
    frmStyUN &window = Style("a.sty", kTwoPairs);
    Cut(window, {});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 7}}, "AAA", {60})));
}

TEST_F(CutStylesTest, WithNothingSelectedANewFileStaysTheEmptyFileThatItsWindowBuilt)
{
    frmStyUN &window = NewSty();
    const std::string empty = Image(window);
    window.Tag.Set(TagPosition::PasteFixed, 1);
    Cut(window, {});
    EXPECT_EQ(Image(window), empty);
    EXPECT_EQ(window.Tag.image.View()[7], 0) << "without a length";
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
}

TEST_F(CutStylesTest, WithNothingSelectedOneOfStylesOnlyIsNoLongerCountedThoughItsBytesStay)
{
    Cut(Pcg("a.pcg", {{"Piano", 0, "AAA"}}), {0});
    frmStyUN &window = Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}});
    Cut(window, {});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Beguine", 1}}, "AAABBBB", {60})));
    EXPECT_EQ(clipboard.ClipFirstRow, 17);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(Drawn(window.List1)[1], " 02 Beguine              4");
}

TEST_F(CutStylesTest, WithNothingSelectedEachPassOfBeforeTakesOneMore)
{
    Cut(Pcg("a.pcg", {{"Piano", 0, "AAA"}, {"Organ", 1, "b"}}), {0, 1});
    frmStyUN &window = Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}});
    Cut(window, {});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Beguine", 1}}, "AAABBBB", {})));
}

TEST_F(CutStylesTest, WithNothingSelectedAPairIsNoLongerCountedThoughItsBytesStay)
{
    Cut(Pcg("a.pcg", {{"Piano", 0, "AAA"}}), {0});
    frmStyUN &window = Style("a.sty", kTwoPairs);
    Cut(window, {});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Bossa STS", 0}, {"Beguine", 1}, {"Beguine STS", 1}}, "AAAaaBBBBb", {84, 87})));
}

TEST_F(CutStylesTest, WithNothingSelectedAGroupedFileIsLeftAsItIs)
{
    // Seen from the place behind the last entry there are less than no entries behind the STS.
    Cut(Pcg("a.pcg", {{"Piano", 0, "AAA"}}), {0});
    frmStyUN &window = Style("a.sty", {{"Bossa", 0, "AAA"}, {"Beguine", 1, "BBBB"}, {"Bossa STS", 0, "aa"}, {"Beguine STS", 1, "b"}});
    const Everything before = All(window);
    Cut(window, {});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipKind, 14) << "the clipboard too";
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
}

TEST_F(CutStylesTest, WithNothingSelectedAFileWithoutItemsHasNoneToTake)
{
    Cut(Pcg("a.pcg", {{"Piano", 0, "AAA"}}), {0});
    frmStyUN &window = NewSty();
    const Everything before = All(window);
    Cut(window, {});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipKind, 14);
}

TEST_F(CutStylesTest, AnIndexThatPointsOutOfTheFileStopsTheCut)
{
    // The first body's offset is 65536 too high. Taking the first pair out does not ask for it, taking the second does.
    Bytes file = FileOf(kTwoPairs);
    file[142 + 16 + 1] = 0x01;
    frmStyUN &window = OpenStyle("a.sty", file);
    const Everything before = All(window);
    Cut(window, {1});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipValid, 0);
    Cut(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Beguine", 1}, {"Beguine STS", 1}}, "BBBBb", {84, 88})));
}

} // namespace
} // namespace velluto::test
