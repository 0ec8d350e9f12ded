// Paste into Style windows that hold items: a grouped target, and one that is appended to.
#include "unit/edit/EditedFiles.h"

namespace velluto::test {
namespace {

using PasteFilledStylesTest = EditTest;

// --- A grouped target

TEST_F(PasteFilledStylesTest, IntoTheMiddleOfAGroupedTarget)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = Style("b.sty", kBossaDanceLambada);
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0},
                                              {"Samba", 1},
                                              {"Dance", 2},
                                              {"Lambada", 4},
                                              {"Bossa STS", 0},
                                              {"Samba STS", 1},
                                              {"Dance STS", 2},
                                              {"Lambada STS", 4}},
                                             "AAASSSSDDLaassdllll", {228, 231, 235, 237, 238, 240, 242, 243})));
    EXPECT_EQ(Modified(window), 1);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, BeforeAllOfAGroupedTarget)
{
    Copy(Style("a.sty", kSambaInterleaved), {1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 1, "AAA"}, {"Dance", 2, "DD"}, {"Bossa STS", 1, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Tango", 0}, {"Bossa", 1}, {"Dance", 2}, {"Tango STS", 0}, {"Bossa STS", 1}, {"Dance STS", 2}},
                              "TTTTTAAADDtaad", {180, 185, 188, 190, 191, 193})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, BehindAllOfAGroupedTarget)
{
    Copy(Style("a.sty", kSambaGrouped), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 2, "DD"}, {"Bossa STS", 0, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {5});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Dance", 2}, {"Samba", 5}, {"Bossa STS", 0}, {"Dance STS", 2}, {"Samba STS", 5}},
                              "AAADDSSSSaadss", {180, 183, 185, 189, 191, 192})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, TwoStylesIntoAGroupedTargetInTwoPasses)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 3, "AAA"}, {"Dance", 4, "DD"}, {"Bossa STS", 3, "aa"}, {"Dance STS", 4, "d"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Samba", 0},
                                              {"Tango", 1},
                                              {"Bossa", 3},
                                              {"Dance", 4},
                                              {"Samba STS", 0},
                                              {"Tango STS", 1},
                                              {"Bossa STS", 3},
                                              {"Dance STS", 4}},
                                             "SSSSTTTTTAAADDsstaad", {228, 232, 237, 240, 242, 244, 245, 247})));
    EXPECT_EQ(Drawn(window.List1)[0], " 01 Samba                4");
    EXPECT_EQ(Drawn(window.List1)[1], " 02 Tango                5");
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, BeforeTheLastOfAGroupedTargetTheLastStsFallsOut)
{
    // Samba comes in before the second of two; the second's STS is not carried over, though a sixth item is counted.
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 2, "DD"}, {"Bossa STS", 0, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {1});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Samba", 1}, {"Dance", 2}, {"Bossa STS", 0}, {"Samba STS", 1}},
                                             "AAASSSSDDaass", {180, 183, 187, 189, 191, 193})));
}

TEST_F(PasteFilledStylesTest, AnOddGroupedTargetLosesItsLastEntry)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window =
        Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 1, "DD"}, {"Polka", 2, "P"}, {"Bossa STS", 0, "aa"}, {"Dance STS", 1, "d"}});
    Paste(window, {5});
    // Half of five is two: Samba comes third, its STS behind the two entries from the third on.
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Dance", 1}, {"Samba", 5}, {"Polka", 2}, {"Bossa STS", 0}, {"Samba STS", 5}},
                                             "AAADDSSSSPaass", {204, 207, 209, 213, 214, 216, 218})));
}

TEST_F(PasteFilledStylesTest, BeforeAllOfAnOddGroupedTargetTheLastEntryIsLostToo)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window =
        Style("b.sty", {{"Bossa", 1, "AAA"}, {"Dance", 2, "DD"}, {"Polka", 3, "P"}, {"Bossa STS", 1, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {0});
    // Two entries behind Samba, two behind its STS; of the bodies none is lost.
    EXPECT_EQ(Image(window), Legible(Written({{"Samba", 0}, {"Bossa", 1}, {"Dance", 2}, {"Samba STS", 0}, {"Polka", 3}, {"Bossa STS", 1}},
                                             "SSSSAAADDssPaad", {204, 208, 211, 213, 215, 216, 218})));
}

TEST_F(PasteFilledStylesTest, OfStylesWithoutStsIntoAGroupedTargetTheEntryHalfwayOnStandsInForTheSts)
{
    Copy(Style("a.sty", kSambaTangoRumba), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 2, "DD"}, {"Bossa STS", 0, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {5});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 0}, {"Dance", 2}, {"Samba", 5}, {"Bossa STS", 0}, {"Dance STS", 2}, {"Tango", 5}},
                                             "AAADDSSSSaadTTTTT", {180, 183, 185, 189, 191, 192})));
}

TEST_F(PasteFilledStylesTest, TheEntryOfTheStsAndItsBodyAreLookedUpByTestsOfTheirOwn)
{
    // A file of one item whose body has the item's own slot byte where a second entry would have it. For the directory
    // that is a partner next door; for the bodies the file has no neighbours, and half of one item is none: the partner's
    // body is the item's own.
    clipboard.ClipValid = 1;
    clipboard.ClipImage = ImageOf(FileOf({{"Samba", 3, "abcdefghijklmnopqrst\x03uvwx"}}));
    clipboard.ClipFirstRow = 4;
    clipboard.ClipCount = 1;
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 2, "DD"}, {"Bossa STS", 0, "aa"}, {"Dance STS", 2, "d"}});
    Paste(window, {5});
    EXPECT_EQ(
        Image(window),
        Legible(Written({{"Bossa", 0}, {"Dance", 2}, {"Samba", 5}, {"Bossa STS", 0}, {"Dance STS", 2}, {"abcdefghijklmnop", 5, "qrstuvw"}},
                        "AAADD"
                        "abcdefghijklmnopqrst\x03uvwx"
                        "aad"
                        "abcdefghijklmnopqrst\x03uvwx",
                        {180, 183, 185, 210, 212, 213})));
}

TEST_F(PasteFilledStylesTest, WithNoFreeRowSelectedAGroupedTargetGetsWhatTheLastEditBuilt)
{
    // There is no pass, so nothing is built: the image is the one that the edit before has left.
    Copy(Pcg("a.pcg", {{"Piano", 0, "A"}}), {0});
    Paste(NewPcg64(), {3});
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = Style("b.sty", kBossaDanceLambada);
    const Texts rows = window.List1.Rows();
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Piano", 3}}, "A", {60})));
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(window.List1.Rows(), rows);
}

// --- A target that is appended to

TEST_F(PasteFilledStylesTest, OfAPairIntoStylesOnlyLosesTheSts)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 0, "AAA"}, {"Dance", 9, "DD"}});
    const int button = window.CommSTS.enabled ? 1 : 0;
    Paste(window, {5});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 0}, {"Dance", 9}, {"Samba", 5}, {"Tango", 6}}, "AAADDSSSSTTTTT", {132, 135, 137, 141})));
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 0);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
    EXPECT_EQ(Modified(window), 1);
    EXPECT_EQ(button, 0);
    EXPECT_FALSE(window.CommSTS.enabled);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, OfStylesOnlyIntoStylesOnlyGoesToTheEndWhateverTheSlot)
{
    Copy(Style("a.sty", kSambaTangoRumba), {1, 2});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Dance", 9, "DD"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 8}, {"Dance", 9}, {"Tango", 0}, {"Rumba", 1}}, "AAADDTTTTTRR", {132, 135, 137, 142})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, OfPairsIntoPairs)
{
    Copy(Style("a.sty", kSambaInterleaved), {0, 1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 8}, {"Bossa STS", 8}, {"Samba", 0}, {"Samba STS", 0}, {"Tango", 1}, {"Tango STS", 1}},
                              "AAAaaSSSSssTTTTTt", {180, 183, 185, 189, 191, 196})));
    EXPECT_EQ(window.Tag.At(TagPosition::HasSts), 1);
    EXPECT_EQ(window.Tag.At(TagPosition::PasteFixed), 0);
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, OfGroupedStylesIntoPairs)
{
    Copy(Style("a.sty", kSambaGrouped), {1});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    Paste(window, {10});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 8}, {"Bossa STS", 8}, {"Tango", 10}, {"Tango STS", 10}}, "AAAaaTTTTTt", {132, 135, 137, 142})));
    ExpectTheSameAfterSaveAndOpen(window);
}

TEST_F(PasteFilledStylesTest, OfStylesOnlyIntoPairsTheEntryHalfwayOnStandsInForTheSts)
{
    Copy(Style("a.sty", kSambaTangoRumba), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window),
              Legible(Written({{"Bossa", 8}, {"Bossa STS", 8}, {"Samba", 0}, {"Tango", 0}}, "AAAaaSSSSTTTTT", {132, 135, 137, 141})));
}

TEST_F(PasteFilledStylesTest, ThePartnerOfTheLastOfStylesOnlyIsReadPastTheDirectory)
{
    // The third of three has its partner at the fourth: an entry made of the first body's bytes. Place 4 of the table was
    // never written, so its body is empty.
    Copy(Style("a.sty", {{"Samba", 0, "abcdefghijklmnopqrstuvwxyz"}, {"Tango", 1, "TTTTT"}, {"Rumba", 2, "RR"}}), {2});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    Paste(window, {0});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 8}, {"Bossa STS", 8}, {"Rumba", 0}, {"abcdefghijklmnop", 0, "qrstvwx"}}, "AAAaaRR",
                                             {132, 135, 137, 139})));
}

TEST_F(PasteFilledStylesTest, IntoAFileOfOneItemAppends)
{
    Copy(Style("a.sty", kSambaTangoRumba), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}});
    Paste(window, {3});
    EXPECT_EQ(Image(window), Legible(Written({{"Bossa", 8}, {"Samba", 3}}, "AAASSSS", {84, 87})));
}

TEST_F(PasteFilledStylesTest, WithNoFreeRowSelectedAnAppendedTargetIsBuiltAnewAsItWas)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    const std::string before = Image(window);
    Paste(window, {});
    EXPECT_EQ(Image(window), before);
    EXPECT_EQ(Modified(window), 1);
}

TEST_F(PasteFilledStylesTest, TheSavedTableHoldsTheTargetsAndTheOtherTheSources)
{
    Copy(Style("a.sty", kSambaInterleaved), {0});
    frmStyUN &window = Style("b.sty", {{"Bossa", 8, "AAA"}, {"Bossa STS", 8, "aa"}});
    Paste(window, {0});
    EXPECT_EQ(files.SavedItemIndex[0], 85);
    EXPECT_EQ(files.SavedItemIndex[1], 88);
    EXPECT_EQ(files.SavedItemIndex[32], 3);
    EXPECT_EQ(files.SavedItemIndex[33], 2);
    EXPECT_EQ(files.ItemIndex[0], 133);
    EXPECT_EQ(files.ItemIndex[128], 4);
}

} // namespace
} // namespace velluto::test
