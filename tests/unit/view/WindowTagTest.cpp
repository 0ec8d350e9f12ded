#include "view/Tag.h"

#include <gtest/gtest.h>

#include <string>

using namespace velluto;

TEST(WindowTag, ADocumentsStateBeginsAsTwentyZerosAnd250Blanks)
{
    const std::string prefix = TagPrefix();
    EXPECT_EQ(prefix.size(), 270U);
    EXPECT_EQ(prefix.substr(0, 20), std::string(20, '\0'));
    EXPECT_EQ(prefix.substr(20), std::string(250, ' '));
}

TEST(WindowTag, AToolsStateIsItsKindAndNineteenZeros)
{
    const WindowTag tag = ToolTag(29);
    EXPECT_EQ(tag.prefix, std::string(1, '\x1D') + std::string(19, '\0'));
    EXPECT_EQ(tag.Kind(), 29);
    EXPECT_EQ(tag.Slot(), 0);
}

TEST(WindowTag, PositionsCountFromOne)
{
    WindowTag tag;
    tag.prefix = TagPrefix();
    tag.Set(1, 14);
    tag.Set(TagPosition::Slot, 9);
    tag.Set(TagPosition::Places, 128);
    EXPECT_EQ(tag.prefix[0], '\x0E');
    EXPECT_EQ(tag.prefix[14], '\x09');
    EXPECT_EQ(tag.At(TagPosition::Places), 128);
    EXPECT_EQ(tag.Kind(), 14);
    EXPECT_EQ(tag.Slot(), 9);
}

TEST(WindowTag, PositionsOutsideReadAsZeroAndAreNotWritten)
{
    WindowTag tag = ToolTag(9);
    tag.Set(21, 5);
    tag.Set(0, 5);
    tag.Set(-3, 5);
    EXPECT_EQ(tag.prefix.size(), 20U);
    EXPECT_EQ(tag.At(21), 0);
    EXPECT_EQ(tag.At(0), 0);
    EXPECT_EQ(tag.At(-1), 0);
    EXPECT_EQ(tag.Text(21, 13), "");
}

TEST(WindowTag, ThePathFillsPositions21To254)
{
    WindowTag tag;
    tag.prefix = TagPrefix();
    tag.SetPath("/music/a.pcg");
    EXPECT_EQ(tag.Path(), "/music/a.pcg");
    EXPECT_EQ(tag.Text(21, 12), "/music/a.pcg");
    EXPECT_EQ(tag.prefix.size(), 270U);

    tag.SetPath(std::string(234, 'x'));
    EXPECT_EQ(tag.Path().size(), 234U);
    EXPECT_EQ(tag.prefix.substr(254), std::string(16, ' '));
    tag.SetPath("/b");
    EXPECT_EQ(tag.Path(), "/b");
}

TEST(WindowTag, PutNeverGrowsThePrefix)
{
    WindowTag tag = ToolTag(2);
    tag.Put(19, "abcdef");
    EXPECT_EQ(tag.prefix.size(), 20U);
    EXPECT_EQ(tag.Text(19, 9), "ab");
}

TEST(WindowTag, ACopyOfAStateSharesTheImage)
{
    WindowTag tag;
    tag.prefix = TagPrefix();
    tag.image = FileImage(std::vector<std::uint8_t>(1000));
    const WindowTag copy = tag;
    EXPECT_EQ(copy.image.Runs().front().data(), tag.image.Runs().front().data());
}
