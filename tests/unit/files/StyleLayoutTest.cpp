// How the arrangement of a Style file is told from its directory.
#include "files/StyleRows.h"
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

// The arrangement of a file whose entries have these slots.
int LayoutOf(const std::vector<int> &slots)
{
    std::vector<Item> items;
    for (const int slot : slots) {
        items.push_back({"Style", slot, {1}});
    }
    return ClassifyStyleLayout(InstrumentFile(items));
}

TEST(StyleLayout, NoRepeatMeansStylesOnly)
{
    EXPECT_EQ(LayoutOf({0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}), 0);
    EXPECT_EQ(LayoutOf({3, 0}), 0);
}

TEST(StyleLayout, NoItemsAndOneItemAreStylesOnly)
{
    EXPECT_EQ(LayoutOf({}), 0);
    EXPECT_EQ(LayoutOf({0}), 0);
    EXPECT_EQ(LayoutOf({7}), 0);
}

TEST(StyleLayout, TheFirstSlotInTheSecondEntryMeansInterleaved)
{
    EXPECT_EQ(LayoutOf({0, 0}), 1);
    EXPECT_EQ(LayoutOf({5, 5, 0, 1}), 1);
}

TEST(StyleLayout, TheFirstSlotInALaterEntryMeansGrouped)
{
    EXPECT_EQ(LayoutOf({0, 1, 0, 1}), 2);
    EXPECT_EQ(LayoutOf({4, 1, 2, 3, 4}), 2);
}

TEST(StyleLayout, OnlyTheFirstSlotIsLookedFor)
{
    EXPECT_EQ(LayoutOf({0, 1, 1, 2, 2}), 0);
    EXPECT_EQ(LayoutOf({0, 1, 1, 0}), 2);
}

TEST(StyleLayout, AnImageThatEndsBeforeASlotHasNoRepeatThere)
{
    const Bytes whole = InstrumentFile({{"One", 0, {1}}, {"One STS", 0, {1}}});
    const ImageBlock view(whole);
    EXPECT_EQ(ClassifyStyleLayout(view.first(36 + 24 + 21)), 1);
    EXPECT_EQ(ClassifyStyleLayout(view.first(36 + 24 + 20)), 0);
    EXPECT_EQ(ClassifyStyleLayout(view.first(36 + 20)), 0);
    EXPECT_EQ(ClassifyStyleLayout(view.first(36)), 0);
    EXPECT_EQ(ClassifyStyleLayout({}), 0);
}

} // namespace
} // namespace velluto::test
