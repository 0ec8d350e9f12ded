// The Edit menu when it drops: natural size and roles; and the role command.
#include "edit/EditMenu.h"
#include "unit/support/ListWindows.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using Numbers = std::vector<int>;

struct EditLink : MidiLink {
    FilesState files{app};
    Settings &settings = app.settings;
    frmMain &frame = app.frame;

    EditLink() { settings.ChannelRole = {2, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}; }
    // Makes the window the active child and drops the menu.
    void Drop(Form &window)
    {
        if (!app.children.IsOpen(window)) {
            app.children.Show(window);
        }
        mnuModifica_Click(files);
    }
    Numbers Enabled()
    {
        Numbers roles;
        for (MenuEntry &entry : frame.mnuMIDIStp) {
            if (entry.enabled) {
                roles.push_back(entry.index());
            }
        }
        return roles;
    }
    Numbers Checked()
    {
        Numbers roles;
        for (MenuEntry &entry : frame.mnuMIDIStp) {
            if (entry.checked) {
                roles.push_back(entry.index());
            }
        }
        return roles;
    }
};

TEST(EditMenu, CopyCutAndPasteAreOffWhereNothingIsSelected)
{
    EditLink link;
    link.frame.mnuCopia.enabled = link.frame.mnuTaglia.enabled = link.frame.mnuIncolla.enabled = true;
    ListWindow window(14, 3);
    link.Drop(window);
    EXPECT_FALSE(link.frame.mnuCopia.enabled);
    EXPECT_FALSE(link.frame.mnuTaglia.enabled);
    EXPECT_FALSE(link.frame.mnuIncolla.enabled);
    EXPECT_EQ(link.app.ViewKind, 14);
}

TEST(EditMenu, WithoutAChildNothingIsOffered)
{
    EditLink link;
    link.frame.mnuIngrandisci.enabled = true;
    mnuModifica_Click(link.files);
    EXPECT_FALSE(link.frame.mnuIngrandisci.enabled);
}

TEST(EditMenu, InTheChannelSetupNothingAtAllIsOffered)
{
    EditLink link;
    link.frame.mnuMIDIStp[5].checked = true;
    ListWindow window(29, 0);
    window.place = Place{0, 0, 1234, 567};
    link.Drop(window);
    EXPECT_EQ(link.Enabled(), Numbers{});
    EXPECT_EQ(link.Checked(), Numbers{});
    EXPECT_FALSE(link.frame.mnuIngrandisci.enabled);
}

TEST(EditMenu, Kind70LeavesTheRolesAsTheyWere)
{
    EditLink link;
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

TEST(RoleCommand, StoresTheRoleOfEveryWindowThatHasOne)
{
    EditLink link;
    const auto choose = [&link](int kind, int slot, int role) {
        ListWindow window(kind, slot);
        link.Drop(window);
        mnuMIDIStp_Click(link.files, role);
        link.app.children.Unload(window);
    };
    for (const int kind : {2, 3, 4, 5, 6, 7, 15, 16}) {
        choose(kind, 0, 8);
        EXPECT_EQ(link.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)).Role, 8) << kind;
    }
    for (std::size_t slot = 9; slot <= 10; ++slot) {
        choose(14, static_cast<int>(slot), 8);
        EXPECT_EQ(link.settings.PcgDocTable[slot].Role, 8);
    }
    for (std::size_t slot = 9; slot <= 20; ++slot) {
        choose(20, static_cast<int>(slot), 8);
        EXPECT_EQ(link.settings.StyDocTable[slot].Role, 8);
    }
    for (std::size_t slot = 9; slot <= 28; ++slot) {
        choose(22, static_cast<int>(slot), 8);
        EXPECT_EQ(link.settings.PrfDocTable[slot].Role, 8);
    }
}

TEST(RoleCommand, StoresNothingElseOfTheRecord)
{
    EditLink link;
    link.settings.PcgDocTable[9].Path.Set("/music/one.pcg");
    link.settings.PcgDocTable[9].MinWidth = 6000;
    ListWindow window(14, 9);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 3);
    EXPECT_EQ(link.settings.PcgDocTable[9].Path.Trimmed(), "/music/one.pcg");
    EXPECT_EQ(link.settings.PcgDocTable[9].MinWidth, 6000);
    EXPECT_EQ(link.settings.PcgDocTable[9].Role, 3);
}

TEST(RoleCommand, FileSlotsStoreNone)
{
    EditLink link;
    const struct {
        int kind;
        int slot;
    } rows[] = {{14, 1}, {14, 8}, {14, 11}, {14, 12}, {20, 0}, {20, 8}, {21, 9}, {22, 0}, {22, 8}, {23, 9}, {9, 9}, {29, 9}};
    const Settings before = link.settings;
    for (const auto &row : rows) {
        ListWindow window(row.kind, row.slot);
        link.Drop(window);
        mnuMIDIStp_Click(link.files, 8);
        link.app.children.Unload(window);
    }
    for (std::size_t i = 0; i < before.PlacementTable.size(); ++i) {
        EXPECT_EQ(link.settings.PlacementTable[i].Role, before.PlacementTable[i].Role);
    }
    for (std::size_t i = 0; i < before.PcgDocTable.size(); ++i) {
        EXPECT_EQ(link.settings.PcgDocTable[i].Role, before.PcgDocTable[i].Role);
    }
    for (std::size_t i = 0; i < before.StyDocTable.size(); ++i) {
        EXPECT_EQ(link.settings.StyDocTable[i].Role, before.StyDocTable[i].Role);
    }
    for (std::size_t i = 0; i < before.PrfDocTable.size(); ++i) {
        EXPECT_EQ(link.settings.PrfDocTable[i].Role, before.PrfDocTable[i].Role);
    }
}

TEST(RoleCommand, ThePerformanceOverviewStoresInTheEntryWithTheBanksNumber)
{
    EditLink link;
    const std::uint8_t ofSlot = link.settings.PrfDocTable[13].Role;
    PerformanceOverview window(24);
    window.Pick(5, 7);
    window.Pick(6, 0);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 8);
    EXPECT_EQ(link.settings.PrfDocTable[5].Role, 8);
    EXPECT_EQ(link.settings.PrfDocTable[13].Role, ofSlot);
    EXPECT_NE(link.settings.PrfDocTable[6].Role, 8);
}

TEST(RoleCommand, TheStyleOverviewsStoreInTheBanksSlot)
{
    EditLink link;
    for (int kind = 25; kind <= 28; ++kind) {
        for (int list = 1; list <= 3; ++list) {
            StyleOverview window(kind);
            window.Pick(list, 0);
            link.Drop(window);
            mnuMIDIStp_Click(link.files, 8);
            const auto slot = static_cast<std::size_t>(list - 1 + (kind == 25 ? 9 : kind == 26 ? 12 : kind == 27 ? 15 : 18));
            EXPECT_EQ(link.settings.StyDocTable[slot].Role, 8) << kind << " " << list;
            link.settings.StyDocTable[slot].Role = 0;
            link.app.children.Unload(window);
        }
    }
}

TEST(RoleCommand, AnOverviewWithoutASelectedRowStoresNothing)
{
    EditLink link;
    PerformanceOverview window(24);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 8);
    for (const DocRecord &record : link.settings.PrfDocTable) {
        EXPECT_NE(record.Role, 8);
    }
}

TEST(RoleCommand, TheCheckMarkMovesAndEntry0KeepsItsOwn)
{
    EditLink link;
    link.settings.PcgDocTable[9].Role = 2;
    ListWindow window(14, 9);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 14);
    EXPECT_EQ(link.Checked(), (Numbers{14}));
    mnuMIDIStp_Click(link.files, 0);
    EXPECT_EQ(link.Checked(), (Numbers{0}));
    mnuMIDIStp_Click(link.files, 2);
    EXPECT_EQ(link.Checked(), (Numbers{0, 2}));
    link.Drop(window);
    EXPECT_EQ(link.Checked(), (Numbers{2}));
}

TEST(RoleCommand, LeavesTheWindowsKindAndSlotInTheGlobals)
{
    EditLink link;
    ListWindow window(20, 17);
    link.Drop(window);
    link.app.ViewKind = 0;
    link.app.slot = 0;
    mnuMIDIStp_Click(link.files, 14);
    EXPECT_EQ(link.app.ViewKind, 20);
    EXPECT_EQ(link.app.slot, 17);
}

TEST(RoleCommand, ANumberThatIsNoRoleDoesNothing)
{
    EditLink link;
    ListWindow window(14, 9);
    link.Drop(window);
    const std::uint8_t before = link.settings.PcgDocTable[9].Role;
    mnuMIDIStp_Click(link.files, 15);
    mnuMIDIStp_Click(link.files, -1);
    EXPECT_EQ(link.settings.PcgDocTable[9].Role, before);
}

} // namespace
} // namespace velluto::test
