// Paste into Program and Performance windows before items that are there: the shift of the table, and the bodies by it.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using PasteBeforeTest = EditTest;

TEST_F(PasteBeforeTest, BeforeAnItemOfTheSameLengthTheBodiesFitTheirEntries)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FFF"}, {"Oboe", 5, "oo"}});
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Organ", 2}, {"Oboe", 5}}, "FFFbboo", {108, 111, 113})));
    EXPECT_EQ(Modified(window), 1);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, DirectlyBeforeAnItem)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FFF"}, {"Oboe", 2, "oo"}});
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Organ", 1}, {"Oboe", 2}}, "FFFbboo", {108, 111, 113})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, AnItemWithABlankNameLeavesItsRowFreeAndStaysBeforeWhatComesThere)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FFF"}, {std::string(16, ' '), 3, "n"}, {"Oboe", 5, "oo"}});
    ASSERT_EQ(Row(window, 3), " 004 ");
    Paste(window, {3});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Flute", 0}, {std::string(16, ' '), 3}, {"Organ", 3}, {"Oboe", 5}}, "FFFnbboo", {132, 135, 136, 138})));
}

TEST_F(PasteBeforeTest, BeforeAShorterItemTheCopyRunsOnIntoTheIndex)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "o"}});
    Paste(window, {2});
    // Place 2 has the length of the one that comes in, and so two bytes are taken from Oboe on.
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Organ", 2}, {"Oboe", 5}}, "FFbbo\xFE", {108, 110, 112})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, BeforeALongerItemItsEndIsLost)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "ooooo"}});
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Organ", 2}, {"Oboe", 5}}, "FFbboo", {108, 110, 112})));
}

TEST_F(PasteBeforeTest, BeforeTwoItemsOnlyTheFirstOfThemIsMoved)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "ooo"}, {"Tuba", 6, "t"}});
    Paste(window, {2});
    // Place 4 is Oboe's old one, behind Tuba's, which kept its own.
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Organ", 2}, {"Oboe", 5}, {"Tuba", 6}}, "FFbbooot", {132, 134, 137, 138})));
    EXPECT_EQ(files.BuildItemIndex[128 + 1], 2);
    EXPECT_EQ(files.BuildItemIndex[128 + 2], 1);
    EXPECT_EQ(files.BuildItemIndex[128 + 3], 3);
}

TEST_F(PasteBeforeTest, TwoItemsBeforeTwoAreShiftedInOrder)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "ooo"}, {"Tuba", 6, "t"}});
    Paste(window, {2});
    // Lengths 2, 3, 2, 3, 1; behind the block the bytes from Oboe on are as many as places 2 and 3 say now, one too many.
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Piano", 2}, {"Organ", 3}, {"Oboe", 5}, {"Tuba", 6}}, "FFAAAbbooot\xFE",
                                             {156, 158, 161, 163, 166})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, TwoItemsBeforeOneTheSecondShiftReadsWhatTheFirstWrote)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "o"}});
    Paste(window, {2});
    // Places 3 and 4 both become Oboe's; then 2 and 3 those that come in, and 4 keeps the length 1. Place 3 was meant for
    // Organ, but was moved from place 2 before.
    EXPECT_EQ(Image(window),
              Legible(Written({{"Flute", 0}, {"Piano", 2}, {"Organ", 3}, {"Oboe", 5}}, "FFAAAbbo\xFE\0"s, {132, 134, 137, 139})));
    EXPECT_EQ(files.BuildItemIndex[128 + 3], 1);
}

TEST_F(PasteBeforeTest, BeforeAllItemsTheBodiesAreTakenFromWhereTheNewDirectoryWouldEnd)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Oboe", 5, "oo"}});
    Paste(window, {2});
    // Position 85 of the old image lies in the mark at its end; and to the new position 85 the move comes once more.
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 2}, {"Oboe", 5}}, "bbND", {108, 110})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, BeforeAllItemsALengthThatTheOldImageDoesNotHaveStopsThePaste)
{
    Copy(Pcg("a.pcg", {{"Piano", 0, "AAAAAAA"}}), {0});
    frmPcgUN &window = Pcg("b.pcg", {{"Oboe", 5, "oo"}}); // positions 85 to 90 are its last six bytes
    const Everything before = All(window);
    Paste(window, {2});
    EXPECT_EQ(All(window), before);
    EXPECT_EQ(files.BuildItemIndex[0], 85) << "the table was shifted already";
    EXPECT_EQ(files.BuildItemIndex[128], 7);
}

TEST_F(PasteBeforeTest, BeforeAllItemsTheLastByteOfTheOldImageIsTheLastThatServes)
{
    Copy(Pcg("a.pcg", {{"Piano", 0, "AAAAAA"}}), {0});
    frmPcgUN &window = Pcg("b.pcg", {{"Oboe", 5, "oo"}});
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 2}, {"Oboe", 5}}, "AAAAAAND\0\0\0\x02"s, {108, 114})));
}

TEST_F(PasteBeforeTest, TheLengthThatComesInIsLookedUpByRowAndNotByItem)
{
    // Choir is the second item, in the third row: it gets the length of a third item, which the source does not have. The
    // table holds what was there before.
    frmPcgUN &source = Pcg("a.pcg", {{"Piano", 0, "AAA"}, {"Choir", 2, "CCCC"}});
    Copy(source, {2});
    files.ItemIndex[128 + 2] = 1;
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "o"}});
    Paste(window, {3});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Choir", 3}, {"Oboe", 5}}, "FFCCCCo", {108, 110, 111})));
}

TEST_F(PasteBeforeTest, BeforeItemsTheGapLimitsTheEntriesButNotTheBlock)
{
    // Rows 10 and 11 are free, row 12 is not.
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1, 2});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 12, "ooooo"}});
    Paste(window, {10});
    // Places 3 and 4 become Oboe's, 2 and 3 the new ones': lengths 2, 3, 2, 5. Behind the block of nine bytes come three of
    // Oboe's, as many as place 2 says.
    EXPECT_EQ(Image(window),
              Legible(Written({{"Flute", 0}, {"Piano", 10}, {"Organ", 11}, {"Oboe", 12}}, "FFAAAbbCCCCooo", {132, 134, 137, 139})));
    EXPECT_EQ(Drawn(window.List1)[9], " 010");
    EXPECT_EQ(Drawn(window.List1)[10], " 011 Piano");
    EXPECT_EQ(Drawn(window.List1)[11], " 012 Organ");
    EXPECT_EQ(Drawn(window.List1)[12], " 013 Oboe");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteBeforeTest, BeforeARowThatOnlyABodyMakesUpTheItemsGoToTheEnd)
{
    // The bytes of Ballad's body pass for an entry of the sixth place; no entry of the directory stands behind the third.
    Copy(Performance("a.prf", {{"Disco", 1, "bb"}}), {1});
    frmPrfUN &window = Performance("b.prf", {{"Ballad", 0, "GhostGhostGhost!wxyz\x05rst"}});
    ASSERT_EQ(Row(window, 5), " 6 GhostGhostGhost!");
    files.ItemIndex[128 + 1] = 2; // by row: the source has no second item
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Ballad", 0}, {"Disco", 2}},
                                             "GhostGhostGhost!wxyz\x05rst"
                                             "bb",
                                             {84, 108})));
}

TEST_F(PasteBeforeTest, PerformancesBeforeOthers)
{
    Copy(Performance("a.prf", {{"Ballad", 0, "AAA"}}), {0});
    frmPrfUN &window = Performance("b.prf", {{"Latin", 0, "L"}, {"Disco", 7, "ddd"}});
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Latin", 0}, {"Ballad", 1}, {"Disco", 7}}, "LAAAddd", {108, 109, 112})));
    ExpectTheSameAfterSaveAndOpen(window);
}

} // namespace
} // namespace velluto::test
