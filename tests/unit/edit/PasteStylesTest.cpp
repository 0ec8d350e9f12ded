// Paste into Style windows: the rows, a target without items, and what cannot be done.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using PasteStylesTest = EditTest;

// --- Where it goes: the rows

TEST_F(PasteStylesTest, TheRowsShowNameAndSize)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {4});
    EXPECT_EQ(Row(window, 4), " 05 Samba                4");
    EXPECT_EQ(Row(window, 5), " 06 Tango                5");
    EXPECT_EQ(Drawn(window.List1)[3], " 04");
    EXPECT_EQ(Drawn(window.List1)[6], " 07");
    EXPECT_EQ(window.List1.ListCount(), 16);
}

TEST_F(PasteStylesTest, ASizeOfFiveDigitsEndsWhereTheOthersEnd)
{
    Copy(Style("a.sty", {{"Sixteen letters!", 0, std::string(12345, 'S')}, {"Samba STS", 0, "ss"}}), {0});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    EXPECT_EQ(Row(window, 0), " 01 Sixteen letters! 12345");
}

TEST_F(PasteStylesTest, OfTheNameTheFirstFourCharactersKeepTheirZeros)
{
    Copy(Style("a.sty", {{"Al", 0, "SSSS"}, {"Samba STS", 0, "ss"}}), {0});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    EXPECT_EQ(Row(window, 0), " 01 Al\0\0                 4"s);
}

TEST_F(PasteStylesTest, AZeroInsideTheNameIsABlankToo)
{
    Copy(Style("a.sty", {{"Samba\0Jo"s, 0, "SSSS"}, {"Samba STS", 0, "ss"}}), {0});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    EXPECT_EQ(Row(window, 0), " 01 Samba Jo             4");
}

TEST_F(PasteStylesTest, TheSelectionAndTheCaptionStay)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = NewSty();
    const std::string title = window.caption;
    Paste(window, {4, 9});
    EXPECT_TRUE(window.List1.Selected(4));
    EXPECT_FALSE(window.List1.Selected(5));
    EXPECT_TRUE(window.List1.Selected(9));
    EXPECT_EQ(window.caption.Get(), title);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PasteStylesTest, ARunLongerThanTheGapIsCutShortByTheEndOfTheList)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {15});
    EXPECT_EQ(Image(window), Legible(Written({{"Samba", 15}, {"Samba STS", 15}}, "SSSSss", {84, 88})));
    EXPECT_EQ(window.List1.ListCount(), 16);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, ARunLongerThanTheGapIsCutShortByAnOccupiedRow)
{
    frmStyUN &source = Style("a.sty", kSambaInterleaved);
    Copy(source, {0, 1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 4, "AAA"}, {"Bossa STS", 4, "aa"}});
    Paste(window, {3});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 4}, {"Bossa STS", 4}, {"Samba", 3}, {"Samba STS", 3}}, "AAAaaSSSSss", {132, 135, 137, 141})));
    EXPECT_EQ(Drawn(window.List1)[4], " 05 Bossa                3");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, ASelectedRowThatIsOccupiedIsPassedBy)
{
    Copy(Style("a.sty", kSambaInterleaved), {1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}});
    Paste(window, {0, 2});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Bossa STS", 0}, {"Tango", 2}, {"Tango STS", 2}}, "AAAaaTTTTTt", {132, 135, 137, 142})));
}

// --- A target without items

TEST_F(PasteStylesTest, OfPairsIntoANewFileGivesPairs)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {4});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Samba", 4}, {"Samba STS", 4}, {"Tango", 5}, {"Tango STS", 5}}, "SSSSssTTTTTt", {132, 136, 138, 143})));
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_TRUE(window.CommSTS.enabled);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, OfGroupedStylesIntoANewFileGivesPairsToo)
{
    Copy(Style("a.sty", kSambaGrouped), {0, 1});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Samba", 0}, {"Samba STS", 0}, {"Tango", 1}, {"Tango STS", 1}}, "SSSSssTTTTTt", {132, 136, 138, 143})));
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, OfTheSecondGroupedStyleAloneTakesItsOwnSts)
{
    Copy(Style("a.sty", kSambaGrouped), {1});
    frmStyUN &window = NewSty();
    Paste(window, {9});
    EXPECT_EQ(Image(window), Legible(Written({{"Tango", 9}, {"Tango STS", 9}}, "TTTTTt", {84, 89})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, OfOneStyleWithoutStsIntoANewFileDisablesTheStsButton)
{
    Copy(Style("a.sty", kSambaTangoRumba), {1});
    frmStyUN &window = NewSty();
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Tango", 2}}, "TTTTT", {60})));
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_FALSE(window.CommSTS.enabled);
}

TEST_F(PasteStylesTest, OfStylesWithoutStsThePlacesBetweenKeepTheLengthsThatTheyHeld)
{
    Copy(Style("a.sty", kSambaTangoRumba), {0, 1, 2});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    // Lengths 4, nothing yet, 5: the third begins where the second does.
    EXPECT_EQ(Image(window), Legible(Written({{"Samba", 0}, {"Tango", 1}, {"Rumba", 2}}, "SSSSTTTTTRR", {108, 112, 112})));
    EXPECT_EQ(files.BuildItemIndex[128], 4);
    EXPECT_EQ(files.BuildItemIndex[129], 0);
    EXPECT_EQ(files.BuildItemIndex[130], 5);
    EXPECT_EQ(files.BuildItemIndex[131], 0);
    EXPECT_EQ(files.BuildItemIndex[132], 2);
}

TEST_F(PasteStylesTest, OfStylesWithoutStsTheLengthsBetweenAreThoseOfTheEditBefore)
{
    Cut(Pcg("a.pcg", {{"Piano", 0, "A"}, {"Organ", 1, "bb"}, {"Choir", 2, "seven.."}}), {0});
    ASSERT_EQ(files.BuildItemIndex[129], 7);
    Copy(Style("a.sty", kSambaTangoRumba), {0, 1, 2});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Samba", 0}, {"Tango", 1}, {"Rumba", 2}}, "SSSSTTTTTRR", {108, 112, 119})));
}

TEST_F(PasteStylesTest, IntoAFileThatACutEmptiedSettlesTheStsAnew)
{
    frmStyUN &source = Style("a.sty", kSambaTangoRumba);
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}});
    Cut(window, {0});
    Copy(source, {0});
    Paste(window, {0});
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    EXPECT_FALSE(window.CommSTS.enabled);
    Cut(window, {0});
    Copy(Style("c.sty", kSambaInterleaved), {0});
    Paste(window, {0});
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_TRUE(window.CommSTS.enabled) << "on again";
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, IntoANewFileWithNoFreeRowSelectedFramesItAndSettlesTheSts)
{
    Copy(Style("a.sty", kSambaTangoRumba), {0});
    frmStyUN &window = NewSty();
    const Texts rows = window.List1.Rows();
    Paste(window, {});
    EXPECT_EQ(Image(window), Legible(Written({}, "", {})));
    EXPECT_EQ(window.Tag.image.View()[7], 52);
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 1);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(window.List1.Rows(), rows);
}

TEST_F(PasteStylesTest, OnlyTheSlotByteOfAnEntryChanges)
{
    Bytes file = FileOf(kSambaInterleaved);
    file[36 + 16] = 0xA1;
    file[36 + 19] = 0xA2;
    file[36 + 21] = 0xA3;
    file[36 + 24 + 23] = 0xA4;
    Copy(OpenStyle("a.sty", file), {0});
    frmStyUN &window = NewSty();
    Paste(window, {7});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Samba", 7, "\xA1\x22\x33\xA2\xA3\x66\x77"}, {"Samba STS", 7, "\x11\x22\x33\x44\x55\x66\xA4"}}, "SSSSss",
                              {84, 88})));
}

// --- Again and again

TEST_F(PasteStylesTest, TheSameRunMayBePastedAgain)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = NewSty();
    Paste(window, {0});
    Paste(window, {1});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Samba", 0}, {"Samba STS", 0}, {"Samba", 1}, {"Samba STS", 1}}, "SSSSssSSSSss", {132, 136, 138, 142})));
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 1);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, WhatWasCutComesBackInAnotherPlace)
{
    frmStyUN &window = Style("a.sty", kSambaGrouped);
    Cut(window, {0});
    Paste(window, {7});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Tango", 1}, {"Tango STS", 1}, {"Samba", 7}, {"Samba STS", 7}}, "TTTTTtSSSSss", {132, 137, 138, 142})));
    EXPECT_EQ(Drawn(window.List1)[0], " 01");
    EXPECT_EQ(Drawn(window.List1)[7], " 08 Samba                4");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteStylesTest, AnItemOfAnotherTypeGoesByTheTargetsSteps)
{
    Copy(Pcg("a.pcg", {{"Piano", 40, "PP"}, {"Organ", 41, "O"}}), {41});
    frmStyUN &window = NewSty();
    Paste(window, {3});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 3}}, "O", {60})));
    EXPECT_EQ(Row(window, 3), " 04 Organ                1");
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
}

// --- What cannot be done leaves all as it was

TEST_F(PasteStylesTest, ABodyThatLiesOutsideTheClipboardsFileStopsThePaste)
{
    Bytes file = FileOf(kSambaInterleaved); // the index begins at 144
    file[144 + 16 + 1] = 0x01;
    Copy(OpenStyle("a.sty", file), {0});
    frmStyUN &empty = NewSty();
    frmStyUN &pairs = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    frmStyUN &grouped = Style("c.sty", kBossaDanceLambada);
    for (frmStyUN *window : {&empty, &pairs, &grouped}) {
        const Everything before = All(*window);
        const bool button = window->CommSTS.enabled;
        Paste(*window, {1});
        EXPECT_EQ(All(*window), before) << window->FullName();
        EXPECT_EQ(window->CommSTS.enabled, button);
    }
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 1);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(PasteStylesTest, ALaterPassThatCannotBeDoneTakesTheEarlierOnesBack)
{
    // The first entry belongs to the second row, and its body is said to lie far behind the file.
    Bytes file = FileOf({{"Tango", 1, "TTTTT"}, {"Tango STS", 1, "t"}, {"Samba", 0, "SSSS"}, {"Samba STS", 0, "ss"}});
    file[144 + 16 + 1] = 0x01;
    Copy(OpenStyle("a.sty", file), {0, 1});
    ASSERT_EQ(clipboard.ClipCount, 2);
    frmStyUN &window = Style("b.sty", kBossaDanceLambada);
    const Everything before = All(window);
    Paste(window, {5});
    EXPECT_EQ(All(window), before);
}

TEST_F(PasteStylesTest, ATargetOfMoreItemsThanTheSavedTableHoldsStaysAsItIs)
{
    std::vector<Lettered> items;
    for (int i = 0; i < 33; ++i) {
        items.push_back({"Style " + std::to_string(i), i % 8, std::string(1, static_cast<char>('a' + i % 26))});
    }
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = OpenStyle("b.sty", FileOf(items));
    const Everything before = All(window);
    Paste(window, {12});
    EXPECT_EQ(All(window), before);
    items[1].slot = 0; // appended to, not grouped
    frmStyUN &other = OpenStyle("c.sty", FileOf(items));
    const Everything also = All(other);
    Paste(other, {12});
    EXPECT_EQ(All(other), also);
}

} // namespace
} // namespace velluto::test
