// Cut by the Delete key, which no menu stands in front of: with nothing selected, without items, without an image; and of
// Performances, whose rows may tell of items that are not there.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using CutEdgesTest = EditTest;

// --- The Delete key, and nothing selected

TEST_F(CutEdgesTest, TheDeleteKeyCuts)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Pick(window, {0});
    EXPECT_TRUE(PressKey(window.List1, Key::Delete));
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 1}, {"Choir", 2}}, "bbCCCC", {84, 86})));
}

TEST_F(CutEdgesTest, TheDeleteKeyCutsFromUser1WhereTheMenuDoesNot)
{
    Pcg("a.pcg", kThreePrograms);
    Press(Window(1).CommUser[9]);
    run.Choose(app.frame.mnuPcgUser[9]);
    Pick(Window(9), {0});
    EXPECT_FALSE(run.Choose(app.frame.mnuTaglia));
    PressKey(Window(9).List1, Key::Delete);
    EXPECT_EQ(Image(Window(9)), Legible(Written({{"Organ", 1}, {"Choir", 2}}, "bbCCCC", {84, 86})));
}

TEST_F(CutEdgesTest, WithNothingSelectedLeavesNoItemsThoughTheRowsStay)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    const Texts rows = window.List1.Rows();
    Pick(window, {});
    PressKey(window.List1, Key::Delete);
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(window.List1.Rows(), rows);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 65);
    EXPECT_EQ(clipboard.ClipCount, 0);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
}

TEST_F(CutEdgesTest, WithOnlyEmptyRowsSelectedLeavesNoItemsEither)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {3, 4});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(Drawn(window.List1)[0], " 001 Piano");
}

TEST_F(CutEdgesTest, WithNothingSelectedTheCountIsThatOfTheCutBefore)
{
    frmPcgUN &first = Pcg("a.pcg", kThreePrograms);
    Cut(first, {0, 1});
    frmPcgUN &window = Pcg("b.pcg", kThreePrograms);
    const Texts rows = window.List1.Rows();
    Cut(window, {});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(window.List1.Rows(), rows) << "rows 65 and 66 are not there to be cleared";
    EXPECT_EQ(clipboard.ClipFirstRow, 65);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(files.CutCount, 2);
}

TEST_F(CutEdgesTest, WithNothingSelectedAnItemInThePlaceBehindTheListIsCutWithTheCountOfBefore)
{
    frmPrfUN &window = Performance("a.prf", {{"Ballad", 0, "AAA"}, {"Hidden", 8, "bb"}});
    files.CutCount = 1;
    Cut(window, {});
    EXPECT_EQ(Image(window), Legible(Written({{"Ballad", 0}}, "AAA", {60})));
    EXPECT_EQ(clipboard.ClipFirstRow, 9);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(CutEdgesTest, OfAFileWithoutItemsGivesItItsLength)
{
    Bytes empty = FileOf({});
    empty[7] = 0;
    frmPcgUN &window = OpenPcg("a.pcg", empty);
    Cut(window, {});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(Modified(window), 1);
}

TEST_F(CutEdgesTest, ADocumentWithoutAnImageStaysAsItIs)
{
    Cut(Pcg("a.pcg", kThreePrograms), {0, 1});
    const std::string before = Legible(BytesOf(clipboard.ClipImage));
    for (DocumentForm *window : {static_cast<DocumentForm *>(&NewPcg64()), static_cast<DocumentForm *>(&NewPrf())}) {
        const Everything all = All(*window);
        Cut(*window, {});
        EXPECT_EQ(All(*window), all);
        Cut(*window, {0, 1});
        EXPECT_EQ(All(*window), all);
    }
    EXPECT_EQ(clipboard.ClipSlot, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 2);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), before);
    EXPECT_EQ(files.CutCount, 2);
}

TEST_F(CutEdgesTest, WithoutAWindowNothingHappens)
{
    mnuTaglia_Click(files);
    EXPECT_EQ(clipboard.ClipValid, 0);
    EXPECT_EQ(files.CutCount, 0);
}

// --- Performances

TEST_F(CutEdgesTest, OfPerformancesGoesByTheirOwnRows)
{
    frmPrfUN &window = Performance("a.prf", kThreePerformances);
    Cut(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Ballad", 0}, {"Disco", 1}}, "AAAbb", {84, 87})));
    EXPECT_EQ(Row(window, 2), " 3 " + kSixteenBlanks);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(clipboard.ClipKind, 22);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutEdgesTest, OfPerformancesFromTheMiddleCarriesTheExtraBytesToo)
{
    frmPrfUN &window = Performance("a.prf", {{"Ballad", 0, "abcdefghijklmnopqrstuvwxyz"}, {"Disco", 1, "bb"}, {"Latin", 2, "CCCC"}});
    Cut(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Ballad", 0}, {"Latin", 2}},
                                             "abcdefghijklmnopqrstuvwx"
                                             "abcdefghijklmnopqrstuvwxyz"
                                             "CCCC",
                                             {84, 110})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(CutEdgesTest, OfAllPerformancesThenOfNothing)
{
    frmPrfUN &window = Performance("a.prf", kThreePerformances);
    Cut(window, {0, 1, 2});
    EXPECT_EQ(Image(window), kNoItems);
    Cut(window, {});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(clipboard.ClipFirstRow, 9);
    EXPECT_EQ(clipboard.ClipCount, 3);
}

TEST_F(CutEdgesTest, ARowOfAPerformanceFileWithoutItemsIsCutLikeAnyOther)
{
    frmPrfUN &window = Performance("a.prf", {});
    Cut(window, {1, 2});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(Row(window, 1), "002" + kSixteenBlanks);
    EXPECT_EQ(Row(window, 2), "003" + kSixteenBlanks);
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 2);
}

// A body whose 21st byte is 1 passes for an entry of the second place, and gives that row a name.
const std::vector<Lettered> kGhost{{"Ballad", 0, "GhostGhostGhost!wxyz\x01rst"}};

TEST_F(CutEdgesTest, ARowThatOnlyABodyMakesUpIsNotFoundAndEmptiesTheFile)
{
    frmPrfUN &window = Performance("a.prf", kGhost);
    ASSERT_EQ(Row(window, 1), " 2 GhostGhostGhost!");
    Cut(window, {1});
    EXPECT_EQ(Image(window), kNoItems);
    EXPECT_EQ(Drawn(window.List1)[0], " 1 Ballad");
    EXPECT_EQ(Row(window, 1), " 2 " + kSixteenBlanks);
}

TEST_F(CutEdgesTest, OfMoreRowsThanTheFileHasItemsIsLeftUndone)
{
    frmPrfUN &window = Performance("a.prf", kGhost);
    const Everything before = All(window);
    Cut(window, {0, 1});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(clipboard.ClipValid, 0);
    EXPECT_EQ(files.CutCount, 2);
}

TEST_F(CutEdgesTest, AnIndexThatPointsOutOfTheFileStopsTheCut)
{
    Bytes file = FileOf(kThreePrograms);
    file[117 + 16 + 1] = 0x01; // the first body's offset is 65644 now
    file[117 + 16 + 5] = 0x01; // and the second's 65647
    for (const Rows &rows : {Rows{0}, Rows{1}, Rows{2}}) {
        frmPcgUN &window = OpenPcg("a.pcg", file);
        const Everything before = All(window);
        Cut(window, rows);
        EXPECT_EQ(All(window), before) << rows.front();
        EXPECT_EQ(clipboard.ClipValid, 0);
        run.Close(window);
    }
}

} // namespace
} // namespace velluto::test
