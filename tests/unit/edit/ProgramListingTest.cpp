// The listings of Program and Performance files, whole.
#include "unit/edit/PrintedFile.h"

#include "files/ItemRows.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;
using Window = PrintLink::Window;

const char *const kProgramTitles = " No  Program         No  Program         No  Program         No  Program";

// An empty Program window of so many places.
void Fill(Window &window, int places)
{
    window.Tag.Set(TagPosition::Places, places);
    window.Rows(EmptyProgramRows(places));
}

TEST_F(PrintingTest, SixtyFourProgramsGiveSixteenLinesOfFourColumns)
{
    Window window(14, 1);
    Fill(window, 64);
    window.List1.SetRow(0, " 001 Grand Piano     ");
    window.List1.SetRow(15, " 016 Jazz Guitar 335 ");
    window.List1.SetRow(16, " 017 16' Drawbars    ");
    window.List1.SetRow(63, " 064 Gunshot         ");
    EXPECT_EQ(link.Listing(window), (Lines{
                                        Line(kProgramTitles),
                                        "",
                                        Line(" 001 Grand Piano     017 16' Drawbars    033                 049"),
                                        Line(" 002                 018                 034                 050"),
                                        Line(" 003                 019                 035                 051"),
                                        Line(" 004                 020                 036                 052"),
                                        Line(" 005                 021                 037                 053"),
                                        Line(" 006                 022                 038                 054"),
                                        Line(" 007                 023                 039                 055"),
                                        Line(" 008                 024                 040                 056"),
                                        Line(" 009                 025                 041                 057"),
                                        Line(" 010                 026                 042                 058"),
                                        Line(" 011                 027                 043                 059"),
                                        Line(" 012                 028                 044                 060"),
                                        Line(" 013                 029                 045                 061"),
                                        Line(" 014                 030                 046                 062"),
                                        Line(" 015                 031                 047                 063"),
                                        Line(" 016 Jazz Guitar 335 032                 048                 064 Gunshot"),
                                    }));
}

TEST_F(PrintingTest, AHundredAndTwentyEightProgramsGiveThirtyTwoLines)
{
    Window window(14, 1);
    Fill(window, 128);
    const Lines listing = link.Listing(window);
    ASSERT_EQ(listing.size(), 34U);
    EXPECT_EQ(listing[2], Line(" 001                 033                 065                 097"));
    EXPECT_EQ(listing[33], Line(" 032                 064                 096                 128"));
}

TEST_F(PrintingTest, AProgramWindowThatIsLoadingNewIsListedWithSixtyFourPlacesOnly)
{
    Window small(18, 11);
    Fill(small, 64);
    EXPECT_EQ(link.Listing(small).size(), 18U);
    Window large(19, 12);
    Fill(large, 128);
    EXPECT_EQ(link.Listing(large).size(), 0U);
}

TEST_F(PrintingTest, TheLastCharacterOfAFullNameYieldsToTheNextColumn)
{
    Window window(14, 1);
    Fill(window, 64);
    for (const int row : {0, 16, 32, 48}) {
        window.List1.SetRow(row, window.List1.Row(row).substr(0, 5) + "Sixteen letters!");
    }
    EXPECT_EQ(link.Listing(window).at(2), Line(" 001 Sixteen letters 017 Sixteen letters 033 Sixteen letters 049 Sixteen letters!"));
}

TEST_F(PrintingTest, AProgramRowGoesToPaperAsItIs)
{
    Window window(14, 1);
    Fill(window, 64);
    window.List1.SetRow(0, " 001 Caf\xE9 \x80\0\x81 x"s);
    // The byte 0x81 has no character of its own.
    EXPECT_EQ(link.Listing(window).at(2), " 001 Café €\0\u0081 x      017                 033                 049                    "s);
}

TEST_F(PrintingTest, ARowLongerThanItsColumnIsCoveredByTheNextAndCutAtTheEnd)
{
    Window window(14, 1);
    Fill(window, 64);
    window.List1.SetRow(0, std::string(30, 'a'));
    window.List1.SetRow(48, std::string(30, 'z'));
    EXPECT_EQ(link.Listing(window).at(2), "aaaaaaaaaaaaaaaaaaaa 017                 033                zzzzzzzzzzzzzzzzzzzzzzzz");
}

TEST_F(PrintingTest, RowsPastTheEndOfTheListAreBlank)
{
    Window window(14, 1);
    window.Tag.Set(TagPosition::Places, 64);
    window.Rows({" 001 Alone"});
    Lines expected(18, Line(""));
    expected[0] = Line(kProgramTitles);
    expected[1] = "";
    expected[2] = Line(" 001 Alone");
    EXPECT_EQ(link.Listing(window), expected);
}

TEST_F(PrintingTest, AWindowWithoutAListGivesBlankRows)
{
    Form window("frmBare");
    window.Tag.prefix = TagPrefix();
    window.Tag.Set(TagPosition::Kind, 14);
    window.Tag.Set(TagPosition::Places, 8);
    EXPECT_EQ(link.Listing(window), (Lines{Line(kProgramTitles), "", Line(""), Line("")}));
}

TEST_F(PrintingTest, PlacesThatAreNoMultipleOfFourAreNotReadOutsideTheList)
{
    Window window(14, 1);
    Fill(window, 64);
    window.Tag.Set(TagPosition::Places, 7);
    EXPECT_EQ(link.Listing(window),
              (Lines{Line(kProgramTitles), "", Line(" 001                 002                 004                 006")}));
    window.Tag.Set(TagPosition::Places, 0);
    EXPECT_EQ(link.Listing(window), (Lines{Line(kProgramTitles), ""}));
}

TEST_F(PrintingTest, PerformancesAreListedOneBelowTheOther)
{
    Window window(22, 1);
    window.Rows({" 1 Night Club       ", " 2 Ballad          ", " 3                 ", " 4 Big Band", " 5 Waltz           ",
                 " 6 Polka           ", " 7                 ", " 8 Last One        "});
    EXPECT_EQ(link.Listing(window), (Lines{
                                        Line(" No Performance"),
                                        "",
                                        Line(" 1  Night Club"),
                                        Line(" 2  Ballad"),
                                        Line(" 3"),
                                        Line(" 4  Big Band"),
                                        Line(" 5  Waltz"),
                                        Line(" 6  Polka"),
                                        Line(" 7"),
                                        Line(" 8  Last One"),
                                    }));
}

TEST_F(PrintingTest, APerformanceNameOfFullLengthLosesItsLastCharacter)
{
    Window window(22, 1);
    window.Rows({" 1 Sixteen letters!"});
    EXPECT_EQ(link.Listing(window).at(2), Line(" 1  Sixteen letters"));
}

TEST_F(PrintingTest, APerformanceFileWithoutItemsShowsTheHeadOfItsRowsApart)
{
    Window window(22, 1);
    window.Rows({"001                 "});
    EXPECT_EQ(link.Listing(window).at(2), Line("00 1"));
}

TEST_F(PrintingTest, ShortPerformanceRowsGiveWhatThereIs)
{
    Window window(22, 1);
    window.Rows({"", "x", "xy", "xyz", "caf\xE9"});
    EXPECT_EQ(link.Listing(window), (Lines{Line(" No Performance"), "", Line(""), Line("x"), Line("xy"), Line("xy z"),
                                           "ca fé" + std::string(79, ' '), Line(""), Line(""), Line("")}));
}

TEST_F(PrintingTest, ANewPerformanceFileShowsItsNumberedEmptyRows)
{
    Window window(23, 0, "Senza titolo.prf");
    Lines rows;
    for (int number = 1; number <= 8; ++number) {
        rows.push_back(" " + std::to_string(number) + std::string(17, ' '));
    }
    window.Rows(rows);
    EXPECT_EQ(link.Texts(window),
              (Lines{Line("Velluto - Velluto v 1.1           Senza titolo.prf             14/05/2005"), "", "", Line(" No Performance"), "",
                     Line(" 1"), Line(" 2"), Line(" 3"), Line(" 4"), Line(" 5"), Line(" 6"), Line(" 7"), Line(" 8")}));
}

TEST_F(PrintingTest, ProgramAndPerformanceListingsLeaveTheClipboardAlone)
{
    const Bytes file = InstrumentFile({{"Kept", 0, {1, 2, 3}}});
    link.files.clipboard = {1, ImageOf(file), 3, 2, 20, 4, 1};
    link.files.ItemIndex.fill(77);
    for (const int kind : {14, 18, 22, 23, 15}) {
        Window window(kind, 1, Native("/pa80/Bank"), InstrumentFile({{"Other", 0, {9}}}));
        window.Tag.Set(TagPosition::Places, 64);
        link.Page(window);
    }
    const ItemClipboard &clipboard = link.files.clipboard;
    EXPECT_EQ(clipboard.ClipValid, 1);
    EXPECT_EQ(BytesOf(clipboard.ClipImage), file);
    EXPECT_EQ(clipboard.ClipFirstRow, 3);
    EXPECT_EQ(clipboard.ClipCount, 2);
    ItemTable untouched{};
    untouched.fill(77);
    EXPECT_EQ(link.files.ItemIndex, untouched);
}

} // namespace
} // namespace velluto::test
