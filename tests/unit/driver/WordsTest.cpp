#include "driver/Words.h"

#include <gtest/gtest.h>

namespace velluto::driver {
namespace {

TEST(Words, AreSeparatedByBlanks)
{
    EXPECT_EQ(SplitWords("click frmPcgUN(3)  List1\t4 \r"), (Words{"click", "frmPcgUN(3)", "List1", "4"}));
    EXPECT_EQ(SplitWords("   "), Words{});
}

TEST(Words, MayHoldBlanksInQuotes)
{
    EXPECT_EQ(SplitWords(R"(device out "Korg PA80" open=4)"), (Words{"device", "out", "Korg PA80", "open=4"}));
}

TEST(Words, InQuotesEscapeQuoteAndBackslash)
{
    EXPECT_EQ(SplitWords(R"("a \"b\" c\\d")"), (Words{R"(a "b" c\d)"}));
    EXPECT_EQ(SplitWords(R"("C:\music\new.pcg")"), (Words{R"(C:\music\new.pcg)"}));
}

TEST(Words, MayBeEmptyInQuotes)
{
    EXPECT_EQ(SplitWords(R"(type frmMsgEx Text1 "")"), (Words{"type", "frmMsgEx", "Text1", ""}));
}

TEST(Words, OutsideQuotesKeepQuotesAndBackslashes)
{
    EXPECT_EQ(SplitWords(R"(a"b c\d)"), (Words{R"(a"b)", R"(c\d)"}));
}

TEST(Words, RefuseAnOpenQuoteAndTextBehindAClosedOne)
{
    EXPECT_THROW((void)SplitWords(R"(choose save "a b)"), BadCommand);
    EXPECT_THROW((void)SplitWords(R"("a"b)"), BadCommand);
    EXPECT_THROW((void)SplitWords(R"("a\")"), BadCommand);
}

TEST(Words, RemarksAreBlankLinesAndThoseThatBeginWithAHash)
{
    EXPECT_TRUE(IsRemark(""));
    EXPECT_TRUE(IsRemark(" \t\r"));
    EXPECT_TRUE(IsRemark("# start en"));
    EXPECT_FALSE(IsRemark("start en # now"));
}

TEST(Words, NumbersAreWholeAndInTheirRange)
{
    EXPECT_EQ(ToNumber("-5", "left", -10, 10), -5);
    for (const char *word : {"", "x", "5x", "1.5", "11", "-11", "99999999999999999999"}) {
        EXPECT_THROW((void)ToNumber(word, "left", -10, 10), BadCommand) << word;
    }
}

TEST(Words, BytesAreDecimalOrHexadecimal)
{
    EXPECT_EQ(ToByte("144"), 144);
    EXPECT_EQ(ToByte("0x90"), 144);
    EXPECT_EQ(ToByte("0Xff"), 255);
    for (const char *word : {"256", "-1", "0x100", "0x", "90h", ""}) {
        EXPECT_THROW((void)ToByte(word), BadCommand) << word;
    }
}

} // namespace
} // namespace velluto::driver
