// Paste into Program and Performance windows: into a target without items, and behind all items.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using PasteProgramsTest = EditTest;

// --- The rows

TEST_F(PasteProgramsTest, TheRowsTakeTheNamesWithBlanksForZeros)
{
    Copy(Pcg("a.pcg",
             {{"Piano", 0, "A"}, {"Organ           ", 1, "b"}, {"Bass\0Pad"s, 2, "C"}, {"Al", 3, "d"}, {"Sixteen letters!", 4, "E"}}),
         {0, 1, 2, 3, 4});
    frmPcgUN &window = NewPcg64();
    Paste(window, {9});
    EXPECT_EQ(Row(window, 9), " 010 Piano           ") << "zeros become blanks that stay";
    EXPECT_EQ(Row(window, 10), " 011 Organ") << "blanks at the end are left out";
    EXPECT_EQ(Row(window, 11), " 012 Bass Pad        ");
    EXPECT_EQ(Row(window, 12), " 013 Al\0\0            "s) << "the first four characters are kept";
    EXPECT_EQ(Row(window, 13), " 014 Sixteen letters!");
    EXPECT_EQ(Drawn(window.List1)[14], " 015");
    EXPECT_EQ(window.List1.ListCount(), 64);
    // Opened anew, a row is drawn up to the zero inside a name.
    Texts rows = Drawn(window.List1);
    rows[11] = " 012 Bass";
    EXPECT_EQ(DrawnAfterSaveAndOpen(window), rows);
}

TEST_F(PasteProgramsTest, RowsOfPerformancesHaveOneDigit)
{
    Copy(Performance("a.prf", {{"Ballad", 0, "AAA"}, {"Disco", 1, "bb"}}), {0, 1});
    frmPrfUN &window = NewPrf();
    Paste(window, {3});
    EXPECT_EQ(Row(window, 3), " 4 Ballad          ");
    EXPECT_EQ(Row(window, 4), " 5 Disco           ");
}

TEST_F(PasteProgramsTest, TheSelectionAndTheCaptionStay)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1});
    frmPcgUN &window = NewPcg64();
    const std::string title = window.caption;
    std::string prefix = window.Tag.prefix;
    Paste(window, {4, 9});
    EXPECT_TRUE(window.List1.Selected(4));
    EXPECT_FALSE(window.List1.Selected(5));
    EXPECT_TRUE(window.List1.Selected(9));
    EXPECT_EQ(window.caption.Get(), title);
    prefix[5] = '\x01';
    EXPECT_EQ(window.Tag.prefix, prefix);
    EXPECT_THAT(Boxes(), IsEmpty());
}

TEST_F(PasteProgramsTest, ARowShorterThanAnEmptyOneIsNoneToBeginIn)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1});
    frmPcgUN &window = NewPcg64();
    window.List1.SetRow(3, " 00");
    Paste(window, {3, 5});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 5}, {"Organ", 6}}, "AAAbb", {84, 87})));
    window.List1.SetRow(8, " 00");
    Paste(window, {7});
    EXPECT_EQ(Drawn(window.List1)[8], " 00Organ") << "but one that is pasted over";
}

// --- A target without items

TEST_F(PasteProgramsTest, IntoANewFileBuildsItsFirstImage)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1, 2});
    frmPcgUN &window = NewPcg64();
    ASSERT_TRUE(window.Tag.image.empty());
    Paste(window, {9});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 9}, {"Organ", 10}, {"Choir", 11}}, "AAAbbCCCC", {108, 111, 113})));
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(files.BuildItemIndex[0], 109);
    EXPECT_EQ(files.BuildItemIndex[2], 114);
    EXPECT_EQ(files.BuildItemIndex[128 + 2], 4);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, IntoANewFileTheLengthsAreThoseOfTheItemsAndNotOfTheRows)
{
    Copy(Pcg("a.pcg", {{"Piano", 1, "AAA"}, {"Organ", 2, "bb"}, {"Choir", 3, "CCCC"}, {"Flute", 4, "ddddd"}}), {2, 3});
    frmPcgUN &window = NewPcg64();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0}, {"Choir", 1}}, "bbCCCC", {84, 86})));
    EXPECT_EQ(files.BuildItemIndex[128], 2);
    EXPECT_EQ(files.BuildItemIndex[128 + 1], 4);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, TheNewStateAndImageAreLeftInTheBuildTexts)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0});
    frmPcgUN &window = NewPcg64();
    Paste(window, {9});
    EXPECT_EQ(files.BuildPrefix, window.Tag.prefix);
    EXPECT_EQ(files.BuildPrefix.at(5), '\x01');
    EXPECT_EQ(Legible(BytesOf(files.BuildImage)), Image(window));
}

TEST_F(PasteProgramsTest, TheNewFileOf128PlacesTakesItemsInItsLastRow)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = NewPcg128();
    Paste(window, {127});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 127}}, "bb", {60})));
    EXPECT_EQ(Drawn(window.List1)[127], " 128 Organ");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, IntoANewFileTheWholeBlockIsCopiedThoughOneEntryFits)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1, 2});
    frmPcgUN &window = NewPcg64();
    Paste(window, {63});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 63}}, "AAAbbCCCC", {60})));
    EXPECT_EQ(window.List1.ListCount(), 64);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, WithNoRowSelectedANewFileGetsTheBlockAndNoEntry)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1});
    frmPcgUN &window = NewPcg64();
    const Texts rows = window.List1.Rows();
    Paste(window, {});
    EXPECT_EQ(Image(window), Legible(Written({}, "AAAbb", {})));
    EXPECT_EQ(window.List1.Rows(), rows);
    EXPECT_EQ(Modified(window), 1);
}

TEST_F(PasteProgramsTest, IntoAFileOfNoItems)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {});
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0}}, "bb", {60})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, ItemsThatTheListDoesNotShowAreLost)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = Pcg("b.pcg", {{"Nowhere", 200, "NN"}});
    ASSERT_EQ(window.List1.ListCount(), 128);
    Paste(window, {5});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 5}}, "bb", {60})));
}

TEST_F(PasteProgramsTest, OfRow5IntoRow0OnlyTheSlotByteOfTheEntryChanges)
{
    Bytes file = FileOf({{"Piano", 0, "AAA"}, {"Organ", 5, "bb"}});
    file[60 + 16] = 0xA1;
    file[60 + 19] = 0xA2;
    file[60 + 21] = 0xA3;
    file[60 + 23] = 0xA4;
    Copy(OpenPcg("a.pcg", file), {5});
    frmPcgUN &window = NewPcg64();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0, "\xA1\x22\x33\xA2\xA3\x66\xA4"}}, "bb", {60})));
}

// --- Behind all items

TEST_F(PasteProgramsTest, BehindAllItemsTheNewOnesAreAppended)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1, 2});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 1, "o"}});
    Paste(window, {4});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Oboe", 1}, {"Organ", 4}, {"Choir", 5}}, "FFobbCCCC", {132, 134, 135, 137})));
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(files.BuildItemIndex[0], 133);
    EXPECT_EQ(files.BuildItemIndex[3], 138);
    EXPECT_EQ(files.BuildItemIndex[128 + 2], 2);
    EXPECT_EQ(files.BuildItemIndex[128 + 3], 4);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, BehindAllItemsTheLengthsAreThoseOfTheItemsAndNotOfTheRows)
{
    Copy(Pcg("a.pcg", {{"Piano", 1, "AAA"}, {"Organ", 2, "bb"}, {"Choir", 3, "CCCC"}, {"Flute", 4, "ddddd"}}), {2, 3});
    frmPcgUN &window = Pcg("b.pcg", {{"Strings", 0, "S"}});
    Paste(window, {5});
    EXPECT_EQ(Image(window), Legible(Written({{"Strings", 0}, {"Organ", 5}, {"Choir", 6}}, "SbbCCCC", {108, 109, 111})));
    EXPECT_EQ(files.BuildItemIndex[128 + 1], 2);
    EXPECT_EQ(files.BuildItemIndex[128 + 2], 4);
}

TEST_F(PasteProgramsTest, DirectlyBehindTheLastItem)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 1, "o"}});
    Paste(window, {2});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Oboe", 1}, {"Piano", 2}}, "FFoAAA", {108, 110, 111})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, DirectlyBehindTheLastItemTheLengthsAreThoseOfTheItemsToo)
{
    Copy(Pcg("a.pcg", {{"Piano", 1, "AAA"}, {"Organ", 2, "bb"}, {"Choir", 3, "CCCC"}, {"Flute", 4, "ddddd"}}), {2, 3});
    frmPcgUN &window = Pcg("b.pcg", {{"Strings", 0, "S"}});
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Strings", 0}, {"Organ", 1}, {"Choir", 2}}, "SbbCCCC", {108, 109, 111})));
}

TEST_F(PasteProgramsTest, AppendedTheWholeBlockIsCopiedThoughTwoEntriesFit)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1, 2});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}});
    Paste(window, {62});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Piano", 62}, {"Organ", 63}}, "FFAAAbbCCCC", {108, 110, 113})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, WithNoFreeRowSelectedTheBlockIsAppendedWithoutAnItem)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0, 1, 2});
    frmPcgUN &window = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 1, "o"}});
    const Texts rows = window.List1.Rows();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Flute", 0}, {"Oboe", 1}}, "FFoAAAbbCCCC", {84, 86})));
    EXPECT_EQ(window.List1.Rows(), rows);
    EXPECT_EQ(Modified(window), 1);
}

TEST_F(PasteProgramsTest, AppendedPerformances)
{
    Copy(Performance("a.prf", {{"Ballad", 0, "AAA"}, {"Disco", 1, "bb"}}), {0, 1});
    frmPrfUN &window = Performance("b.prf", {{"Latin", 0, "L"}});
    Paste(window, {6});
    EXPECT_EQ(Image(window), Legible(Written({{"Latin", 0}, {"Ballad", 6}, {"Disco", 7}}, "LAAAbb", {108, 109, 112})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, TheExtraBytesOfACutStayBehindTheItemsThatAreCounted)
{
    frmPcgUN &window = Pcg("a.pcg", {{"Piano", 0, "abcdefghijklmnopqrstuvwxyz"}, {"Organ", 1, "bb"}, {"Choir", 2, "CCCC"}});
    Cut(window, {1});
    // 24 extra bytes stand before the bodies now, and the index knows nothing of them: the last item has them at its end.
    Paste(window, {3});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 0}, {"Choir", 2}, {"Organ", 3}},
                                             "abcdefghijklmnopqrstuvwx"
                                             "abcdefghijklmnopqrstuvwxyz"
                                             "CCCC"
                                             "bb",
                                             {108, 134, 162})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, AFilledTargetKeepsItsOwnHead)
{
    // Nobody tests the bytes at offsets 16 and 22. An image begun anew has 0x0B and 0 there.
    Bytes file = FileOf({{"Flute", 0, "FFF"}, {"Oboe", 5, "oo"}});
    file[16] = 0x7A;
    file[22] = 0x7B;
    const auto bytes = [](const Form &window) { return Bytes{window.Tag.image.View()[16], window.Tag.image.View()[22]}; };
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &appended = OpenPcg("b.pcg", file);
    Paste(appended, {6});
    EXPECT_EQ(bytes(appended), (Bytes{0x7A, 0x7B}));
    frmPcgUN &inserted = OpenPcg("c.pcg", file);
    Paste(inserted, {2});
    EXPECT_EQ(bytes(inserted), (Bytes{0x7A, 0x7B}));
    Cut(inserted, {0});
    EXPECT_EQ(bytes(inserted), (Bytes{0x0B, 0x00}));
}

// --- The clipboard

TEST_F(PasteProgramsTest, WhatWasCutComesBackFromTheFileAsItWas)
{
    frmPcgUN &window = Pcg("a.pcg", kThreePrograms);
    Cut(window, {0});
    Paste(window, {9});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 1}, {"Choir", 2}, {"Piano", 9}}, "bbCCCCAAA", {108, 110, 114})));
    EXPECT_EQ(Drawn(window.List1)[0], " 001");
    EXPECT_EQ(Drawn(window.List1)[9], " 010 Piano");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteProgramsTest, TheSameRunMayBePastedAgain)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1});
    frmPcgUN &window = NewPcg64();
    Paste(window, {0});
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0}, {"Organ", 1}}, "bbbb", {84, 86})));
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipFirstRow, 2);
    EXPECT_EQ(clipboard.ClipCount, 1);
    EXPECT_EQ(Legible(BytesOf(clipboard.ClipImage)), Legible(FileOf(kThreePrograms)));
}

TEST_F(PasteProgramsTest, TheSourcesOwnChangesAfterTheCopyAreNotPasted)
{
    frmPcgUN &source = Pcg("a.pcg", kThreePrograms);
    Copy(source, {1});
    source.Tag.image = ImageOf(FileOf({{"Other", 1, "other"}}));
    frmPcgUN &window = NewPcg64();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0}}, "bb", {60})));
}

TEST_F(PasteProgramsTest, TheItemsOfTheSourceAreCountedByItsLastByte)
{
    // The last byte says one item: the search for the third row's ends there, and goes on with the second item.
    Bytes file = FileOf(kThreePrograms);
    file.back() = 2;
    clipboard.ClipValid = 1;
    clipboard.ClipImage = ImageOf(file);
    clipboard.ClipFirstRow = 3;
    clipboard.ClipCount = 1;
    frmPcgUN &window = NewPcg64();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Organ", 0}}, "bb", {60})));
}

TEST_F(PasteProgramsTest, TheTypeOfTheSourceDecidesNothing)
{
    Copy(Pcg("a.pcg", kThreePrograms), {1, 2});
    frmPrfUN &performances = NewPrf();
    Paste(performances, {6});
    EXPECT_EQ(Image(performances), Legible(Written({{"Organ", 6}, {"Choir", 7}}, "bbCCCC", {84, 86})));
    EXPECT_EQ(Drawn(performances.List1)[6], " 7 Organ");
    Copy(Style("a.sty", {{"Bossa", 0, "AAA"}, {"Bossa STS", 0, "aa"}}), {0});
    frmPcgUN &programs = NewPcg64();
    Paste(programs, {6});
    EXPECT_EQ(Image(programs), Legible(Written({{"Bossa", 6}}, "AAA", {60}))) << "no partner here";
}

// --- What cannot be done leaves all as it was

TEST_F(PasteProgramsTest, ABlockThatLiesOutsideTheClipboardsFileStopsThePaste)
{
    Bytes file = FileOf(kThreePrograms); // the index begins at 117
    file[117 + 16 + 1] = 0x01;
    Copy(OpenPcg("a.pcg", file), {0});
    frmPcgUN &empty = NewPcg64();
    frmPcgUN &items = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "o"}});
    for (frmPcgUN *window : {&empty, &items}) {
        for (const int row : {3, 8}) {
            const Everything before = All(*window);
            Paste(*window, {row});
            EXPECT_EQ(All(*window), before) << window->FullName() << " " << row;
        }
    }
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(clipboard.ClipCount, 1);
}

TEST_F(PasteProgramsTest, OfACopyOfNothingThereIsNoBlock)
{
    Copy(Pcg("a.pcg", kThreePrograms), {});
    frmPcgUN &window = NewPcg64();
    const Everything before = All(window);
    Paste(window, {3});
    EXPECT_EQ(All(window), before);
}

TEST_F(PasteProgramsTest, AClipboardOfAnyBytesHarmsNothing)
{
    frmPcgUN &empty = NewPcg64();
    frmPcgUN &items = Pcg("b.pcg", {{"Flute", 0, "FF"}, {"Oboe", 5, "o"}});
    const Bytes whole = FileOf(kThreePrograms);
    for (const std::size_t length : {0U, 1U, 5U, 8U, 35U, 36U, 59U, 60U, 107U, 116U, 140U}) {
        clipboard.ClipValid = 1;
        clipboard.ClipImage = ImageOf(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)));
        clipboard.ClipFirstRow = 2;
        clipboard.ClipCount = 2;
        for (frmPcgUN *window : {&empty, &items}) {
            const Everything before = All(*window);
            Paste(*window, {3});
            EXPECT_EQ(All(*window), before) << length;
        }
    }
}

TEST_F(PasteProgramsTest, WithoutAWindowNothingHappens)
{
    Copy(Pcg("a.pcg", kThreePrograms), {0});
    app.children.UnloadAll();
    mnuIncolla_Click(files);
    EXPECT_TRUE(files.BuildImage.empty());
}

} // namespace
} // namespace velluto::test
