// The page that every listing is printed on: settings, heading, places, failures; and the command in the File menu.
#include "unit/edit/PrintedFile.h"

#include "app/Catalogue.h"
#include "edit/PrintLine.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;

using Window = PrintLink::Window;

TEST(PrintLine, HoldsBlanksToItsEndWhenItIsSet)
{
    PrintLine line;
    EXPECT_EQ(line.Utf8(), std::string(84, ' '));
    line.Set(U"listing");
    line.Set(U"row");
    EXPECT_EQ(line.Utf8(), "row" + std::string(81, ' '));
}

TEST(PrintLine, LaysATextOverWhatIsThere)
{
    PrintLine line;
    line.Set(U"0123456789");
    line.Lay(3, U"ab");
    EXPECT_EQ(line.Utf8(), Line("01ab456789"));
}

TEST(PrintLine, CutsWhatReachesPastPosition84)
{
    PrintLine line;
    line.Lay(83, U"abcd");
    line.Lay(85, U"e");
    EXPECT_EQ(line.Utf8(), std::string(82, ' ') + "ab");
}

TEST(PrintLine, CutsWhatFallsBeforePosition1)
{
    PrintLine line;
    line.Lay(-1, U"abcd");
    EXPECT_EQ(line.Utf8(), Line("cd"));
}

TEST(PrintLine, BlanksTheZerosBetweenTwoPositions)
{
    PrintLine line;
    line.Lay(1, std::u32string(5, U'\0'));
    line.BlankZeros(2, 4);
    EXPECT_EQ(line.Utf8(), std::string("\0   \0", 5) + std::string(79, ' '));
}

TEST_F(PrintingTest, TheFontIsSetAtTheStart)
{
    Window window(2, 0);
    link.Page(window);
    EXPECT_EQ(link.printer.fontName, "courier new");
    EXPECT_EQ(link.printer.fontSize, 11);
    EXPECT_TRUE(link.printer.fontBold);
}

TEST_F(PrintingTest, EachLineBeginsAtTheLeftEdgeAndListingRowsStandApart)
{
    Window window(22, 1);
    const PrintedPage page = link.Page(window);
    ASSERT_EQ(page.size(), 13U);
    // Heading and two empty lines; titles and an empty line; rows of 250 and 113 each.
    const std::vector<std::pair<int, int>> places{{453, 1134}, {0, 1384},   {0, 1634},   {453, 1884}, {0, 2134},   {453, 2384}, {453, 2747},
                                                  {453, 3110}, {453, 3473}, {453, 3836}, {453, 4199}, {453, 4562}, {453, 4925}};
    for (std::size_t i = 0; i < page.size(); ++i) {
        EXPECT_EQ(page[i].x, places[i].first) << i;
        EXPECT_EQ(page[i].y, places[i].second) << i;
        EXPECT_EQ(page[i].text.size(), i == 1 || i == 2 || i == 4 ? 0U : 84U) << i;
    }
}

TEST_F(PrintingTest, ASecondListingBeginsAtTheTopAgain)
{
    Window window(22, 1);
    const PrintedPage first = link.Page(window);
    EXPECT_EQ(link.Page(window), first);
}

TEST_F(PrintingTest, TheNameIsCentredBetweenTheHeadAndPosition64)
{
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/Bank.pcg")),
              Line("Velluto - Velluto v 1.1               Bank.pcg                 14/05/2005"));
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/a.pcg")),
              Line("Velluto - Velluto v 1.1                 a.pcg                  14/05/2005"));
    EXPECT_EQ(link.Heading(14, 1, "C:\\PA80\\Bank.pcg"), Line("Velluto - Velluto v 1.1               Bank.pcg                 14/05/2005"));
}

TEST_F(PrintingTest, TheNameOfANewFileIsCentredWithoutItsBlanks)
{
    EXPECT_EQ(link.Heading(14, 11, "SenzaNome.pcg"), Line("Velluto - Velluto v 1.1             SenzaNome.pcg              14/05/2005"));
}

TEST_F(PrintingTest, TheNameIsReadFromPosition21To260)
{
    const std::string longest = Native("/" + std::string(224, 'd') + "/Bank.pcg"); // 234 characters: to position 254
    EXPECT_EQ(link.Heading(14, 1, longest), Line("Velluto - Velluto v 1.1               Bank.pcg                 14/05/2005"));
    Window window(14, 1, longest);
    window.Tag.Put(255, "123456789");
    EXPECT_EQ(link.Texts(window).at(0), Line("Velluto - Velluto v 1.1            Bank.pcg123456              14/05/2005"));
}

TEST_F(PrintingTest, TheDateIsInTheSystemsShortForm)
{
    link.clock.shortDate = "5/14/05";
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/Bank.pcg")),
              Line("Velluto - Velluto v 1.1               Bank.pcg                 5/14/05"));
}

TEST_F(PrintingTest, EachCharacterOfTheNameTakesOnePosition)
{
    const std::string blanksBehind(11, ' ');
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/Però.pcg")),
              "Velluto - Velluto v 1.1               Però.pcg                 14/05/2005" + blanksBehind);
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/日本.pcg")),
              "Velluto - Velluto v 1.1                日本.pcg                  14/05/2005" + blanksBehind);
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/𝄞𝄞.pcg")),
              "Velluto - Velluto v 1.1                𝄞𝄞.pcg                  14/05/2005" + blanksBehind);
}

TEST_F(PrintingTest, ANameThatIsNoUtf8IsReadByteByByte)
{
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/Per\xF2.pcg")),
              "Velluto - Velluto v 1.1               Però.pcg                 14/05/2005" + std::string(11, ' '));
}

TEST_F(PrintingTest, ALongNameRunsIntoTheHeadAndUnderTheDate)
{
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/") + std::string(60, 'N')),
              Line("Velluto - VeNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNNN14/05/2005"));
}

TEST_F(PrintingTest, AVeryLongNameIsCutAtBothEnds)
{
    std::string name;
    for (int i = 0; i < 10; ++i) {
        name += "0123456789";
    }
    EXPECT_EQ(link.Heading(14, 1, Native("/pa80/") + name),
              "89012345678901234567890123456789012345678901234567890123456789014/05/200512345678901");
}

TEST_F(PrintingTest, StyleFilesOfUserBanksAreCalledByTheirNumber)
{
    EXPECT_EQ(link.Heading(20, 8, Native("/s/Pop.sty")), Line("Velluto - Velluto v 1.1                Pop.sty                 14/05/2005"));
    EXPECT_EQ(link.Heading(20, 9, Native("/s/Pop.sty")), Line("Velluto - Velluto v 1.1            User 1: Pop.sty             14/05/2005"));
    EXPECT_EQ(link.Heading(20, 11, Native("/s/Pop.sty")),
              Line("Velluto - Velluto v 1.1            User 3: Pop.sty             14/05/2005"));
    EXPECT_EQ(link.Heading(20, 12, Native("/s/Pop.sty")),
              Line("Velluto - Velluto v 1.1                Pop.sty                 14/05/2005"));
    EXPECT_EQ(link.Heading(21, 9, Native("/s/Pop.sty")), Line("Velluto - Velluto v 1.1                Pop.sty                 14/05/2005"));
}

TEST_F(PrintingTest, PerformanceFilesOfUserBanksAreCalledByTheirNumber)
{
    EXPECT_EQ(link.Heading(22, 8, Native("/s/Pop.prf")), Line("Velluto - Velluto v 1.1                Pop.prf                 14/05/2005"));
    EXPECT_EQ(link.Heading(22, 9, Native("/s/Pop.prf")), Line("Velluto - Velluto v 1.1            User 1: Pop.prf             14/05/2005"));
    EXPECT_EQ(link.Heading(22, 28, Native("/s/Pop.prf")),
              Line("Velluto - Velluto v 1.1           User 20: Pop.prf             14/05/2005"));
    EXPECT_EQ(link.Heading(22, 29, Native("/s/Pop.prf")),
              Line("Velluto - Velluto v 1.1                Pop.prf                 14/05/2005"));
    EXPECT_EQ(link.Heading(23, 9, Native("/s/Pop.prf")), Line("Velluto - Velluto v 1.1                Pop.prf                 14/05/2005"));
}

TEST_F(PrintingTest, ProgramFilesOfUserBanksAreNot)
{
    EXPECT_EQ(link.Heading(14, 9, Native("/s/Pop.pcg")), Line("Velluto - Velluto v 1.1                Pop.pcg                 14/05/2005"));
    EXPECT_EQ(link.Heading(14, 10, Native("/s/Pop.pcg")),
              Line("Velluto - Velluto v 1.1                Pop.pcg                 14/05/2005"));
}

TEST_F(PrintingTest, AWindowThatIsNoFileGivesTheHeadingAlone)
{
    for (const int kind : {2, 8, 13, 15, 16, 17, 19, 24, 25, 28, 29, 255}) {
        Window window(kind, 1);
        window.Rows({" 001 Grand Piano"});
        EXPECT_EQ(link.Texts(window), (Lines{Line("Velluto - Velluto v 1.1               Bank.pcg                 14/05/2005"), "", ""}))
            << kind;
    }
}

TEST_F(PrintingTest, AToolWithoutAPathGivesTheHeadingToo)
{
    Form tool("frmTool");
    tool.Tag = ToolTag(9);
    EXPECT_EQ(link.Texts(tool), (Lines{Line("Velluto - Velluto v 1.1                                        14/05/2005"), "", ""}));
}

TEST_F(PrintingTest, NothingIsPrintedWithoutAChild)
{
    mnuStampa_Click(link.files);
    EXPECT_TRUE(link.printer.pages.empty());
    EXPECT_TRUE(link.printer.fontName.empty());
}

TEST_F(PrintingTest, KindAndSlotAreReadFromTheTag)
{
    link.app.ViewKind = 11;
    link.app.slot = 1;
    Window window(22, 12);
    link.Page(window);
    EXPECT_EQ(link.app.ViewKind, 22);
    EXPECT_EQ(link.app.slot, 12);
}

// Operations of a Performance listing: 3 of the font, 2 places and 3 lines of the heading, 3 of the titles, 3 of each
// of 8 rows, the end of the document.
constexpr int kOperations = 3 + 5 + 3 + 3 * 8 + 1;

TEST_F(PrintingTest, APrinterThatFailsIsToldInABoxWhereverItFails)
{
    Window window(22, 1);
    link.app.children.Show(window);
    link.app.CurrentOperation = "Open File";
    for (int good = 0; good < kOperations; ++good) {
        link.printer.successes = good;
        link.face.boxes.clear();
        mnuStampa_Click(link.files);
        ASSERT_EQ(link.face.boxes.size(), 1U) << good;
        EXPECT_EQ(link.face.boxes.front().title, "Velluto v 1.1");
        EXPECT_EQ(link.face.boxes.front().text, "generic error");
        EXPECT_EQ(link.face.boxes.front().style, Box::kNotice);
        EXPECT_TRUE(link.printer.pages.empty()) << good;
    }
    link.printer.successes = kOperations;
    link.face.boxes.clear();
    EXPECT_EQ(link.Page(window).size(), 13U);
    EXPECT_TRUE(link.face.boxes.empty());
    EXPECT_EQ(link.app.CurrentOperation, "Open File");
}

TEST_F(PrintingTest, TheBoxSpeaksTheLanguageOfTheRun)
{
    link.app.messages.LinguaBase = 0;
    link.printer.successes = 0;
    Window window(22, 1);
    link.app.children.Show(window);
    mnuStampa_Click(link.files);
    EXPECT_EQ(link.BoxTexts(), Lines{"errore generico"});
}

TEST_F(PrintingTest, WhatFailedLeavesNothingOnTheNextPage)
{
    Window window(22, 1);
    const PrintedPage whole = link.Page(window);
    link.printer.successes = 12;
    mnuStampa_Click(link.files);
    link.printer.successes.reset();
    EXPECT_EQ(link.Page(window), whole);
}

TEST_F(PrintingTest, AUserWhoCancelsIsToldNothing)
{
    Window window(22, 1);
    link.app.children.Show(window);
    link.printer.successes = 5;
    link.printer.failure = PrinterError::kCancelled;
    mnuStampa_Click(link.files);
    EXPECT_TRUE(link.face.boxes.empty());
    EXPECT_TRUE(link.printer.pages.empty());
}

TEST(PrintCommand, PrintsTheActiveFileFromTheFileMenu)
{
    TestProgram run;
    ASSERT_TRUE(run.Start(TestProgram::English));
    MenuEntry &mnuStampa = run.program.app.frame.mnuStampa;
    EXPECT_FALSE(run.Choose(mnuStampa));

    WriteBytes(run.At("Tiny.pcg"), InstrumentFile({{"Grand Piano", 0, {1, 2}}}));
    run.face.choices.push_back({false, run.At("Tiny.pcg"), 1});
    run.Choose(run.program.app.frame.mnuPcgApri);
    ASSERT_TRUE(run.Choose(mnuStampa));
    ASSERT_EQ(run.printer.pages.size(), 1U);
    const PrintedPage &page = run.printer.pages.front();
    ASSERT_EQ(page.size(), 21U);
    EXPECT_EQ(page[0].text, Line("Velluto - Velluto v 1.1               Tiny.pcg                 14/05/2005"));
    EXPECT_EQ(page[3].text, Line(" No  Program         No  Program         No  Program         No  Program"));
    // A row's last four bytes keep their zeros in the list; the next column's blank covers one of them.
    EXPECT_EQ(page[5].text, Line(" 001 Grand Piano \0\0\0 017                 033                 049"s));
    EXPECT_EQ(page[20].text, Line(" 016                 032                 048                 064"));
    EXPECT_TRUE(run.Exit());
}

} // namespace
} // namespace velluto::test
