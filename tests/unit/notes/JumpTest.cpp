// Where a double click in the guide leads. Carets count the characters before them.
#include "notes/GuideText.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// "One" at 0, "Two" at 5, an empty line at 10, "One" at 12, "text" at 17, an empty line at 23, "Two" at 25, "end" at 30.
constexpr std::u32string_view kGuide = U"One\r\nTwo\r\n\r\nOne\r\ntext\r\n\r\nTwo\r\nend\r\n";

TEST(GuideJump, ALineOfTheContentsLeadsToTheHeadingOfTheSameWords)
{
    EXPECT_EQ(JumpTarget(kGuide, 1), 12);
    EXPECT_EQ(JumpTarget(kGuide, 6), 25);
}

TEST(GuideJump, FromItsStartItsEndAndItsLineEnd)
{
    EXPECT_EQ(JumpTarget(kGuide, 5), 25);
    EXPECT_EQ(JumpTarget(kGuide, 8), 25); // before the carriage return
    EXPECT_EQ(JumpTarget(kGuide, 9), 25); // between it and the line feed
}

TEST(GuideJump, FromTheVeryFirstPositionOfTheText)
{
    EXPECT_EQ(JumpTarget(kGuide, 0), 12);
}

TEST(GuideJump, ALineThatOccursOnceLeadsToTheTop)
{
    EXPECT_EQ(JumpTarget(kGuide, 18), 0);
}

TEST(GuideJump, TheLastHeadingOfItsKindLeadsToTheTop)
{
    EXPECT_EQ(JumpTarget(kGuide, 13), 0);
    EXPECT_EQ(JumpTarget(kGuide, 26), 0);
}

TEST(GuideJump, AnEmptyLineLeadsToTheNextLineEnd)
{
    // The search is for a bare carriage return, and the next one is that of the line below.
    EXPECT_EQ(JumpTarget(kGuide, 10), 15);
}

TEST(GuideJump, FromOneEmptyLineToTheNextBelow)
{
    EXPECT_EQ(JumpTarget(U"a\r\n\r\n\r\nb\r\n", 3), 5);
}

TEST(GuideJump, BlanksAtTheStartOfALineDoNotCount)
{
    //                 0         7        15   19
    EXPECT_EQ(JumpTarget(U"x\r\n    One\r\n\r\nOne\r\n", 8), 14);
}

TEST(GuideJump, AnIndentedHeadingIsFoundBehindItsBlanks)
{
    EXPECT_EQ(JumpTarget(U"One\r\n\r\n   One\r\n", 1), 10);
}

TEST(GuideJump, ADoubleClickInTheIndentFindsTheWordsOfItsOwnLine)
{
    // The search begins one behind the caret, before the words.
    EXPECT_EQ(JumpTarget(U"x\r\n    One\r\n\r\nOne\r\n", 3), 7);
}

TEST(GuideJump, ALineIsFoundAsTheEndOfALongerOneAndNotAsItsMiddle)
{
    EXPECT_EQ(JumpTarget(U"One\r\nOne more\r\nno One\r\n", 1), 18);
}

TEST(GuideJump, CapitalsCount)
{
    EXPECT_EQ(JumpTarget(U"One\r\none\r\n", 1), 0);
}

TEST(GuideJump, AHitOnTheSecondCharacterIsToldOneTooFar)
{
    EXPECT_EQ(JumpTarget(U" \r\nx\r\n", 0), 2);
    EXPECT_EQ(JumpTarget(U"  \r\nx\r\n", 0), 2); // the third character, told as it is
}

TEST(GuideJump, ALastLineWithoutALineEndLeadsToTheTop)
{
    EXPECT_EQ(JumpTarget(U"end\r\n\r\nend", 8), 0);
    EXPECT_EQ(JumpTarget(U"end\r\n\r\nend", 0), 0); // and is no end of line itself
}

TEST(GuideJump, CaretsBeyondTheTextAndAnEmptyTextLeadToTheTop)
{
    EXPECT_EQ(JumpTarget(kGuide, static_cast<int>(kGuide.size())), 0);
    EXPECT_EQ(JumpTarget(kGuide, 5000), 0);
    EXPECT_EQ(JumpTarget(kGuide, -1), 12); // taken as the beginning
    EXPECT_EQ(JumpTarget(U"", 0), 0);
    EXPECT_EQ(JumpTarget(U"   ", 1), 0);
}

TEST(GuideShown, EveryLineEndIsCrLf)
{
    EXPECT_EQ(ShownGuide("a\r\nb\nc\rd"), "a\r\nb\r\nc\r\nd");
    EXPECT_EQ(ShownGuide("\r\r\n\n"), "\r\n\r\n\r\n");
}

TEST(GuideShown, BytesAreWindows1252OrUtf8)
{
    EXPECT_EQ(ShownGuide("perch\xE9 \x80"), "perché €");
    EXPECT_EQ(ShownGuide("perché"), "perché");
}

} // namespace
} // namespace velluto::test
