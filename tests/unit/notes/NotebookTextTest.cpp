// What the notebook takes of a text, and how that stands in its record.
#include "notes/NotebookText.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using namespace std::string_literals;

std::string Record(const std::string &text)
{
    return text + std::string(32000 - text.size(), ' ');
}

TEST(NotebookRecord, IsAByteForEachCharacterAndBlanksBehindThem)
{
    EXPECT_EQ(NotebookRecord(U"Caffè €\r\n"), Record("Caff\xE8 \x80\r\n"));
    EXPECT_EQ(NotebookRecord(U""), std::string(32000, ' '));
}

TEST(NotebookRecord, Of32000CharactersIsFullToTheLast)
{
    EXPECT_EQ(NotebookRecord(std::u32string(31999, U'a') + U"z"), std::string(31999, 'a') + "z");
}

TEST(NotebookShown, LosesThePaddingAndNothingElse)
{
    const ShownNotebook shown = ShowNotebook(Record("  two\r\n  blanks \xE8"));
    EXPECT_EQ(shown.text, "  two\r\n  blanks è");
    EXPECT_TRUE(shown.isWhole);
    EXPECT_EQ(ShowNotebook(std::string(32000, ' ')).text, "");
}

TEST(NotebookShown, ZeroBytesAtTheEndArePaddingToo)
{
    EXPECT_EQ(ShowNotebook("text" + std::string(31996, '\0')).text, "text");
    EXPECT_EQ(ShowNotebook(Record("a\0b"s)).text, "a\0b"s);
}

TEST(NotebookShown, OtherLineEndsAreMadeCrLf)
{
    EXPECT_EQ(ShowNotebook(Record("one\ntwo\rthree")).text, "one\r\ntwo\r\nthree");
}

TEST(NotebookShown, WhereItWouldNotFitWithItsLineEndsItIsShownAsItIs)
{
    std::string bare = std::string(31999, 'x') + "y";
    bare[100] = '\n';
    const ShownNotebook shown = ShowNotebook(bare);
    EXPECT_FALSE(shown.isWhole);
    EXPECT_EQ(shown.text, bare);
    // One character fewer leaves room for the carriage return.
    bare.back() = ' ';
    EXPECT_TRUE(ShowNotebook(bare).isWhole);
}

TEST(NotebookTaken, AWholeTextStaysWhole)
{
    const TakenText taken = TakeText(U"Dëad\r\n€\t", 4);
    EXPECT_EQ(taken.text, U"Dëad\r\n€\t");
    EXPECT_EQ(taken.caret, 4);
    EXPECT_TRUE(taken.IsWhole());
}

TEST(NotebookTaken, ACharacterThatHasNoByteIsLeftOutAndTheCaretComesBack)
{
    const TakenText taken = TakeText(U"a≤b€c♯d", 6);
    EXPECT_EQ(taken.text, U"ab€cd");
    EXPECT_EQ(taken.caret, 4);
    EXPECT_EQ(taken.refused, U'≤'); // the first of them
    EXPECT_FALSE(taken.full);
}

TEST(NotebookTaken, CharactersThatOnlyLookLikeBytesAreLeftOut)
{
    // U+0080 is a control character; the byte 0x80 is the euro.
    EXPECT_EQ(TakeText(U"\u0080", 1).text, U"");
    // The five bytes without a character carry the control character of their number.
    EXPECT_EQ(TakeText(U"\u0081", 1).text, U"\u0081");
    EXPECT_EQ(TakeText(U"\u0100", 1).text, U"");
}

TEST(NotebookTaken, TypedIntoAFullNotebookACharacterIsTakenAwayWhereItWasTyped)
{
    std::u32string typed(32001, U'a');
    typed[10] = U'X';
    const TakenText taken = TakeText(typed, 11);
    EXPECT_EQ(taken.text, std::u32string(32000, U'a'));
    EXPECT_EQ(taken.caret, 10);
    EXPECT_TRUE(taken.full);
    EXPECT_EQ(taken.refused, char32_t{0});
}

TEST(NotebookTaken, OfAPieceThatIsTooLongTheEndIsLeftOut)
{
    // 31998 characters, and 12345 pasted in before the last of them.
    const std::u32string typed = std::u32string(31997, U'a') + U"12345" + U"z";
    const TakenText taken = TakeText(typed, 32002);
    EXPECT_EQ(taken.text, std::u32string(31997, U'a') + U"12" + U"z");
    EXPECT_EQ(taken.caret, 31999);
    EXPECT_TRUE(taken.full);
}

TEST(NotebookTaken, ALineEndThatHalfFitsIsLeftOutWhole)
{
    const TakenText taken = TakeText(std::u32string(31999, U'a') + U"\r\n", 32001);
    EXPECT_EQ(taken.text, std::u32string(31999, U'a'));
    EXPECT_EQ(taken.caret, 31999);
    EXPECT_TRUE(taken.full);
}

TEST(NotebookTaken, ATextThatIsTooLongBehindItsCaretIsCutAtItsEnd)
{
    const TakenText taken = TakeText(std::u32string(32005, U'a'), 2);
    EXPECT_EQ(taken.text, std::u32string(32000, U'a'));
    EXPECT_EQ(taken.caret, 0);
    EXPECT_EQ(TakeText(std::u32string(32005, U'a'), -1).text.size(), 32000U);
    EXPECT_EQ(TakeText(std::u32string(32005, U'a'), 99999).caret, 32000);
}

} // namespace
} // namespace velluto::test
