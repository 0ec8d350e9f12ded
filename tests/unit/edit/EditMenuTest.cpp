// The Edit menu when it drops: natural size and roles.
#include "unit/edit/EditLink.h"

#include "unit/support/ListWindows.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using EditMenu = Linked<EditLink>;

TEST_F(EditMenu, CopyCutAndPasteAreOffWhereNothingIsSelected)
{
    link.frame.mnuCopia.enabled = link.frame.mnuTaglia.enabled = link.frame.mnuIncolla.enabled = true;
    ListWindow window(14, 3);
    link.Drop(window);
    EXPECT_FALSE(link.frame.mnuCopia.enabled);
    EXPECT_FALSE(link.frame.mnuTaglia.enabled);
    EXPECT_FALSE(link.frame.mnuIncolla.enabled);
    EXPECT_EQ(link.app.ViewKind, 14);
}

TEST_F(EditMenu, WithoutAChildNothingIsOffered)
{
    link.frame.mnuIngrandisci.enabled = true;
    mnuModifica_Click(link.files);
    EXPECT_FALSE(link.frame.mnuIngrandisci.enabled);
}

TEST_F(EditMenu, InTheChannelSetupNothingAtAllIsOffered)
{
    link.frame.mnuMIDIStp[5].checked = true;
    ListWindow window(29, 0);
    window.place = Place{0, 0, 1234, 567};
    link.Drop(window);
    EXPECT_EQ(link.Enabled(), Numbers{});
    EXPECT_EQ(link.Checked(), Numbers{});
    EXPECT_FALSE(link.frame.mnuIngrandisci.enabled);
}

TEST_F(EditMenu, Kind70LeavesTheRolesAsTheyWere)
{
    ListWindow bank(14, 9);
    link.Drop(bank);
    const Numbers before = link.Enabled();
    ASSERT_FALSE(before.empty());
    ListWindow window(70, 0);
    link.Drop(window);
    EXPECT_EQ(link.Enabled(), before);
    EXPECT_FALSE(link.frame.mnuIngrandisci.enabled);
}

TEST(NaturalSize, OfADocumentLiesInItsSlot)
{
    const struct {
        int kind;
        int slot;
    } rows[] = {{14, 3}, {14, 11}, {18, 11}, {19, 12}, {20, 20}, {21, 0}, {22, 28}, {23, 0}};
    for (const auto &row : rows) {
        EditLink link;
        auto &record = row.kind < 20   ? link.settings.PcgDocTable[static_cast<std::size_t>(row.slot)]
                       : row.kind < 22 ? link.settings.StyDocTable[static_cast<std::size_t>(row.slot)]
                                       : link.settings.PrfDocTable[static_cast<std::size_t>(row.slot)];
        record.MinWidth = 6000;
        record.MinHeight = 4000;
        ListWindow window(row.kind, row.slot);
        window.place = Place{75, 75, 6000, 4000};
        link.Drop(window);
        EXPECT_FALSE(link.frame.mnuIngrandisci.enabled) << row.kind; // an unresized window
        window.place = Place{75, 75, 6015, 4000};
        link.Drop(window);
        EXPECT_TRUE(link.frame.mnuIngrandisci.enabled) << row.kind;
        window.place = Place{75, 75, 6000, 4015};
        link.Drop(window);
        EXPECT_TRUE(link.frame.mnuIngrandisci.enabled) << row.kind;
    }
}

TEST(NaturalSize, OfAnyOtherWindowLiesInTheEntryOneBelowItsKind)
{
    for (const int kind : {2, 3, 4, 5, 6, 7, 8, 9, 12, 15, 16, 17, 24, 25, 26, 27, 28}) {
        EditLink link;
        link.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)).MinWidth = 6000;
        link.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)).MinHeight = 4000;
        ListWindow window(kind, 0);
        window.place = Place{75, 75, 6000, 4000};
        link.Drop(window);
        EXPECT_FALSE(link.frame.mnuIngrandisci.enabled) << kind;
        window.place = Place{75, 75, 6015, 4000};
        link.Drop(window);
        EXPECT_TRUE(link.frame.mnuIngrandisci.enabled) << kind;
    }
}

TEST(NaturalSize, OtherKindsHaveNone)
{
    for (const int kind : {0, 1, 10, 11, 13, 30, 255}) {
        EditLink link;
        ListWindow window(kind, 0);
        window.place = Place{75, 75, 6000, 4000};
        link.Drop(window);
        EXPECT_FALSE(link.frame.mnuIngrandisci.enabled) << kind;
    }
}

TEST(NaturalSize, ASlotThatNoTableHasOffersNone)
{
    for (const int kind : {14, 20, 22}) {
        EditLink link;
        ListWindow window(kind, 200);
        window.place = Place{75, 75, 6000, 4000};
        link.Drop(window);
        EXPECT_FALSE(link.frame.mnuIngrandisci.enabled) << kind;
    }
}

TEST(RoleEntries, TheWindowsRoleIsCheckedAndTheRolesOfChannelsAreOffered)
{
    EditLink link;
    link.settings.ChannelRole = {2, 14, 0, 0, 0, 0, 0, 0, 0, 5, 0, 0, 0, 0, 0, 0};
    link.settings.PcgDocTable[9].Role = 5;
    ListWindow window(14, 9);
    link.Drop(window);
    EXPECT_EQ(link.Checked(), (Numbers{5}));
    EXPECT_EQ(link.Enabled(), (Numbers{0, 2, 5, 14}));
}

TEST(RoleEntries, AllChannelsOffOffersNoneFrom1To14)
{
    EditLink link;
    link.settings.ChannelRole = {};
    ListWindow window(14, 9);
    link.Drop(window);
    EXPECT_EQ(link.Enabled(), (Numbers{0}));
}

TEST(RoleEntries, NoChannelOffDoesNotOfferOff)
{
    EditLink link;
    link.settings.ChannelRole.fill(3);
    ListWindow window(14, 9);
    link.Drop(window);
    EXPECT_EQ(link.Enabled(), (Numbers{3}));
}

TEST(RoleEntries, EveryWindowWithARoleShowsItsOwn)
{
    const struct {
        int kind;
        int slot;
    } rows[] = {{2, 0}, {7, 0}, {15, 1}, {16, 2}, {14, 9}, {14, 10}, {20, 9}, {20, 20}, {22, 9}, {22, 28}};
    for (const auto &row : rows) {
        EditLink link;
        const auto slot = static_cast<std::size_t>(row.slot);
        if (row.kind == 14) {
            link.settings.PcgDocTable[slot].Role = 7;
        } else if (row.kind == 20) {
            link.settings.StyDocTable[slot].Role = 7;
        } else if (row.kind == 22) {
            link.settings.PrfDocTable[slot].Role = 7;
        } else {
            link.settings.PlacementTable.at(static_cast<std::size_t>(row.kind - 1)).Role = 7;
        }
        ListWindow window(row.kind, row.slot);
        link.Drop(window);
        EXPECT_EQ(link.Checked(), (Numbers{7})) << row.kind << " " << row.slot;
        EXPECT_EQ(link.Enabled(), (Numbers{0, 2, 14}));
    }
}

TEST(RoleEntries, FilesAndToolsOfferNone)
{
    const struct {
        int kind;
        int slot;
    } rows[] = {{14, 1}, {14, 8},  {14, 11}, {14, 12}, {18, 9}, {19, 9}, {20, 0}, {20, 8}, {21, 9}, {22, 0},
                {22, 8}, {22, 29}, {23, 9},  {8, 0},   {9, 0},  {11, 0}, {12, 0}, {13, 0}, {17, 0}};
    for (const auto &row : rows) {
        EditLink link;
        ListWindow bank(14, 9);
        link.Drop(bank);
        ListWindow window(row.kind, row.slot);
        link.Drop(window);
        EXPECT_EQ(link.Checked(), Numbers{}) << row.kind << " " << row.slot;
        EXPECT_EQ(link.Enabled(), Numbers{}) << row.kind << " " << row.slot;
    }
}

TEST(RoleEntries, ARoleAbove14ChecksNone)
{
    EditLink link;
    link.settings.PcgDocTable[9].Role = 200;
    ListWindow window(14, 9);
    link.Drop(window);
    EXPECT_EQ(link.Checked(), Numbers{});
    EXPECT_EQ(link.Enabled(), (Numbers{0, 2, 14}));
}

TEST(RoleEntries, AnOverviewWithoutASelectedRowOffersNone)
{
    EditLink link;
    PerformanceOverview performances(24);
    link.Drop(performances);
    EXPECT_EQ(link.Enabled(), Numbers{});
    StyleOverview styles(28);
    link.Drop(styles);
    EXPECT_EQ(link.Enabled(), Numbers{});
}

TEST(RoleEntries, TheOverviewsShowTheRoleOfTheSelectedBank)
{
    EditLink link;
    link.settings.PrfDocTable[17].Role = 6;
    PerformanceOverview performances(24);
    performances.Pick(17, 4);
    link.Drop(performances);
    EXPECT_EQ(link.Checked(), (Numbers{6}));
    for (int kind = 25; kind <= 28; ++kind) {
        const auto slot = static_cast<std::size_t>(9 + (kind - 25) * 3 + 1);
        link.settings.StyDocTable[slot].Role = 11;
        StyleOverview styles(kind);
        styles.Pick(2, 15);
        link.Drop(styles);
        EXPECT_EQ(link.Checked(), (Numbers{11})) << kind;
        link.app.children.Unload(styles);
    }
}

TEST(RoleEntries, InThePerformanceOverviewARowOfOneCharacterDoesNotCount)
{
    EditLink link;
    link.settings.PrfDocTable[2].Role = 3;
    link.settings.PrfDocTable[5].Role = 6;
    PerformanceOverview window(24);
    window.List1[2].SetRow(0, "x   ");
    window.List1[2].SetRow(1, "ab");
    window.Pick(2, 0);
    window.Pick(5, 0);
    link.Drop(window);
    EXPECT_EQ(link.Checked(), (Numbers{6}));
    window.Pick(2, 1);
    link.Drop(window);
    EXPECT_EQ(link.Checked(), (Numbers{3}));
}

} // namespace
} // namespace velluto::test
