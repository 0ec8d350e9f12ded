// From a window's role to a MIDI channel.
#include "RecallLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// Roles 1 to 14 lie on channels 1 to 14, so that a role tells itself by its channel.
struct RolesLink : RecallLink {
    RolesLink() { settings.ChannelRole = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 0, 0}; }
    int Channel(int kind, int slot)
    {
        ListWindow window(kind, slot);
        return ResolveChannel(recall, window);
    }
};

TEST(Channel, FactoryWindowsReadTheEntryOneBelowTheirKind)
{
    for (const int kind : {2, 3, 4, 5, 6, 7, 15, 16}) {
        RolesLink link;
        for (WindowPlacement &entry : link.settings.PlacementTable) {
            entry.Role = 1;
        }
        link.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)).Role = 9;
        EXPECT_EQ(link.Channel(kind, 0), 8) << kind;
        EXPECT_EQ(link.files.WorkPlacement.Role, 9);
    }
}

TEST(Channel, ProgramBanksReadTheirSlot)
{
    RolesLink link;
    link.settings.PcgDocTable[9].Role = 5;
    link.settings.PcgDocTable[10].Role = 6;
    EXPECT_EQ(link.Channel(14, 9), 4);
    EXPECT_EQ(link.files.programs.work.Role, 5);
    EXPECT_EQ(link.Channel(14, 10), 5);
    EXPECT_EQ(link.files.programs.work.Role, 6);
}

TEST(Channel, StyleBanksReadTheirSlotFrom9To20)
{
    RolesLink link;
    for (int slot = 9; slot <= 20; ++slot) {
        link.settings.StyDocTable.at(static_cast<std::size_t>(slot)).Role = static_cast<std::uint8_t>(slot - 6);
        EXPECT_EQ(link.Channel(20, slot), slot - 7);
        EXPECT_EQ(link.files.styles.work.Role, slot - 6);
    }
}

TEST(Channel, PerformanceBanksReadTheirSlotFrom9To28)
{
    RolesLink link;
    for (int slot = 9; slot <= 28; ++slot) {
        link.settings.PrfDocTable.at(static_cast<std::size_t>(slot)).Role = static_cast<std::uint8_t>(slot / 2);
        EXPECT_EQ(link.Channel(22, slot), slot / 2 - 1);
        EXPECT_EQ(link.files.performances.work.Role, slot / 2);
    }
}

TEST(Channel, APerformanceFileIsReadAndYetStaysSilent)
{
    RolesLink link;
    for (int slot = 0; slot <= 8; ++slot) {
        link.settings.PrfDocTable.at(static_cast<std::size_t>(slot)).Role = 14;
        EXPECT_EQ(link.Channel(22, slot), 99) << slot;
        EXPECT_EQ(link.files.performances.work.Role, 14);
        EXPECT_EQ(link.recall.roleScratch, 14);
    }
    EXPECT_EQ(link.Channel(22, 29), 99);
    EXPECT_EQ(link.Channel(22, 255), 99);
}

TEST(Channel, ThePerformanceOverviewReadsTheEntryWithTheListsNumber)
{
    RolesLink link;
    for (DocRecord &record : link.settings.PrfDocTable) {
        record.Role = 1;
    }
    link.settings.PrfDocTable[20].Role = 7;
    PerformanceOverview window(24);
    window.Pick(20, 7);
    EXPECT_EQ(ResolveChannel(link.recall, window), 6);
    // The first list with a selected row decides.
    link.settings.PrfDocTable[3].Role = 8;
    window.Pick(3, 0);
    EXPECT_EQ(ResolveChannel(link.recall, window), 7);
}

TEST(Channel, TheStyleOverviewsReadTheSlotsOfTheirBanks)
{
    for (int kind = 25; kind <= 28; ++kind) {
        for (int list = 1; list <= 3; ++list) {
            RolesLink link;
            for (DocRecord &record : link.settings.StyDocTable) {
                record.Role = 1;
            }
            const int slot = list + (kind == 25 ? 8 : kind == 26 ? 11 : kind == 27 ? 14 : 17);
            link.settings.StyDocTable.at(static_cast<std::size_t>(slot)).Role = 12;
            StyleOverview window(kind);
            window.Pick(list, 15);
            EXPECT_EQ(ResolveChannel(link.recall, window), 11) << kind << " " << list;
        }
    }
}

TEST(Channel, AnOverviewWithoutASelectedRowHasNone)
{
    RolesLink link;
    PerformanceOverview performances(24);
    EXPECT_EQ(ResolveChannel(link.recall, performances), 99);
    StyleOverview styles(25);
    EXPECT_EQ(ResolveChannel(link.recall, styles), 99);
    ListWindow other(24, 0); // its List1 has no number
    EXPECT_EQ(ResolveChannel(link.recall, other), 99);
}

TEST(Channel, AnOverviewWithoutASelectedRowDoesNotTakeTheRoleOfTheLastLookup)
{
    RolesLink link;
    link.settings.PcgDocTable[9].Role = 5;
    EXPECT_EQ(link.Channel(14, 9), 4);
    PerformanceOverview performances(24);
    EXPECT_EQ(ResolveChannel(link.recall, performances), 99);
    for (int kind = 25; kind <= 28; ++kind) {
        StyleOverview styles(kind);
        EXPECT_EQ(ResolveChannel(link.recall, styles), 99) << kind;
    }
}

TEST(Channel, OnlyTheFirst8And16RowsOfAnOverviewAreLookedAt)
{
    RolesLink link;
    link.settings.PrfDocTable[1].Role = 1;
    link.settings.StyDocTable[9].Role = 1;
    PerformanceOverview performances(24);
    performances.List1[1].AddItem("ninth");
    performances.Pick(1, 8);
    EXPECT_EQ(ResolveChannel(link.recall, performances), 99);
    StyleOverview styles(25);
    styles.List1[1].AddItem("seventeenth");
    styles.Pick(1, 16);
    EXPECT_EQ(ResolveChannel(link.recall, styles), 99);
}

TEST(Channel, WindowsWithoutARoleTakeTheOneThatTheLastLookupRead)
{
    RolesLink link;
    EXPECT_EQ(link.Channel(23, 0), 99); // nothing read yet
    link.settings.PcgDocTable[9].Role = 5;
    link.Channel(14, 9);
    EXPECT_EQ(link.Channel(23, 0), 4);
    EXPECT_EQ(link.Channel(14, 3), 4);
    EXPECT_EQ(link.Channel(20, 8), 4);
    EXPECT_EQ(link.Channel(21, 0), 4);
    EXPECT_EQ(link.Channel(8, 0), 4);
}

TEST(Channel, KindAndSlotAreLeftInTheGlobals)
{
    RolesLink link;
    link.Channel(20, 17);
    EXPECT_EQ(link.app.ViewKind, 20);
    EXPECT_EQ(link.app.slot, 17);
}

TEST(Channel, OfTwoChannelsWithTheRoleTheLowerOneIsTaken)
{
    RecallLink link;
    link.settings.ChannelRole = {0, 2, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    link.settings.PcgDocTable[9].Role = 2;
    EXPECT_EQ(link.Select(14, 9, 4), RecallLink::Messages(1, 121, 64, 4));
    EXPECT_EQ(link.settings.LastChannel, 1);
}

TEST(Channel, OffSendsNothingAndLeavesLastChannelAlone)
{
    RecallLink link;
    link.settings.LastChannel = 7;
    link.settings.PlacementTable[2].Role = 0;
    EXPECT_EQ(link.Select(3, 0, 4), Sent{});
    EXPECT_EQ(link.settings.LastChannel, 7);
    EXPECT_FALSE(link.midi.MonitorEnabled);
}

TEST(Channel, ARoleThatNoChannelCarriesSendsNothing)
{
    RecallLink link;
    link.settings.LastChannel = 7;
    link.settings.PcgDocTable[9].Role = 5;
    EXPECT_EQ(link.Select(14, 9, 4), Sent{});
    EXPECT_EQ(link.settings.LastChannel, 7);
}

TEST(Channel, ARoleAbove14SendsNothingEvenIfAChannelHoldsTheSameByte)
{
    RecallLink link;
    link.settings.ChannelRole[3] = 200;
    link.settings.PcgDocTable[9].Role = 200;
    EXPECT_EQ(link.Select(14, 9, 4), Sent{});
}

} // namespace
} // namespace velluto::test
