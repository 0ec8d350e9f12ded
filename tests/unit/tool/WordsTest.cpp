// The tool's texts: languages, inserts, and names with any bytes in them.
#include "tool/Words.h"

#include <gtest/gtest.h>

namespace velluto::tool {
namespace {

TEST(ToolWords, ALocaleThatBeginsWithItIsItalian)
{
    EXPECT_EQ(LanguageOfLocale("it_IT.UTF-8"), kItalianBase);
    EXPECT_EQ(LanguageOfLocale("IT"), kItalianBase);
    EXPECT_EQ(LanguageOfLocale("i"), kEnglishBase);
    EXPECT_EQ(LanguageOfLocale("C"), kEnglishBase);
    EXPECT_EQ(LanguageOfLocale(""), kEnglishBase);
}

TEST(ToolWords, InsertsGoWhereTheTextSays)
{
    const TwoTexts text{"%2 prima di %1%", "%1 before %2, 100% of %3"};
    EXPECT_EQ(Speaker{kItalianBase}.Say(text, {"a", "b"}), "b prima di a%");
    EXPECT_EQ(Speaker{kEnglishBase}.Say(text, {"%2", "b"}), "%2 before b, 100% of %3");
}

TEST(ToolWords, BytesThatAreNoUtf8AreReplacedOneByOne)
{
    EXPECT_EQ(ValidUtf8("plain"), "plain");
    EXPECT_EQ(ValidUtf8("caff\xC3\xA8 \xF0\x9F\x8E\xB9"), "caff\xC3\xA8 \xF0\x9F\x8E\xB9");
    EXPECT_EQ(ValidUtf8("caff\xE8 x"), "caff\xEF\xBF\xBD x");
    EXPECT_EQ(ValidUtf8("\xC3"), "\xEF\xBF\xBD");
    EXPECT_EQ(ValidUtf8("\xED\xA0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD") << "half of a pair";
    EXPECT_EQ(ValidUtf8("\xC0\x80"), "\xEF\xBF\xBD\xEF\xBF\xBD") << "longer than it needs to be";
}

TEST(ToolWords, APathIsPrintedWithoutControlCharacters)
{
    EXPECT_EQ(Printable("a\nb\x1B[2J\x7F"), "a?b?[2J?");
    EXPECT_EQ(Printable("caff\xE8"), "caff\xE8");
}

TEST(ToolWords, ANameIsDrawnUpToItsFirstZero)
{
    EXPECT_EQ(DrawnText("Caf\xE9 \x80"), "Caf\xC3\xA9 \xE2\x82\xAC");
    EXPECT_EQ(DrawnText(std::string_view("ab\0cd", 5)), "ab");
    EXPECT_EQ(DrawnText("a\x1B\x81"), "a\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(ToolWords, CapitalsWithAccentsFoldToo)
{
    EXPECT_EQ(Folded(U"AZaz\u00C0\u00DE\u0160\u0152\u017D\u0178\u00D7[\u00DF"), U"azaz\u00E0\u00FE\u0161\u0153\u017E\u00FF\u00D7[\u00DF");
}

} // namespace
} // namespace velluto::tool
