// The role commands of the Edit menu: where each kind of window keeps its role.
#include "unit/edit/EditLink.h"

#include "unit/support/ListWindows.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using RoleCommand = Linked<EditLink>;

TEST_F(RoleCommand, StoresTheRoleOfEveryWindowThatHasOne)
{
    const auto choose = [this](int kind, int slot, int role) {
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

TEST_F(RoleCommand, StoresNothingElseOfTheRecord)
{
    link.settings.PcgDocTable[9].Path.Set("/music/one.pcg");
    link.settings.PcgDocTable[9].MinWidth = 6000;
    ListWindow window(14, 9);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 3);
    EXPECT_EQ(link.settings.PcgDocTable[9].Path.Trimmed(), "/music/one.pcg");
    EXPECT_EQ(link.settings.PcgDocTable[9].MinWidth, 6000);
    EXPECT_EQ(link.settings.PcgDocTable[9].Role, 3);
}

TEST_F(RoleCommand, FileSlotsStoreNone)
{
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

TEST_F(RoleCommand, ThePerformanceOverviewStoresInTheEntryWithTheBanksNumber)
{
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

TEST_F(RoleCommand, TheStyleOverviewsStoreInTheBanksSlot)
{
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

TEST_F(RoleCommand, AnOverviewWithoutASelectedRowStoresNothing)
{
    PerformanceOverview window(24);
    link.Drop(window);
    mnuMIDIStp_Click(link.files, 8);
    for (const DocRecord &record : link.settings.PrfDocTable) {
        EXPECT_NE(record.Role, 8);
    }
}

TEST_F(RoleCommand, TheCheckMarkMovesAndEntry0KeepsItsOwn)
{
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

TEST_F(RoleCommand, LeavesTheWindowsKindAndSlotInTheGlobals)
{
    ListWindow window(20, 17);
    link.Drop(window);
    link.app.ViewKind = 0;
    link.app.slot = 0;
    mnuMIDIStp_Click(link.files, 14);
    EXPECT_EQ(link.app.ViewKind, 20);
    EXPECT_EQ(link.app.slot, 17);
}

TEST_F(RoleCommand, ANumberThatIsNoRoleDoesNothing)
{
    ListWindow window(14, 9);
    link.Drop(window);
    const std::uint8_t before = link.settings.PcgDocTable[9].Role;
    mnuMIDIStp_Click(link.files, 15);
    mnuMIDIStp_Click(link.files, -1);
    EXPECT_EQ(link.settings.PcgDocTable[9].Role, before);
}

} // namespace
} // namespace velluto::test
