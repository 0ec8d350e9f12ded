// Clicks in the windows that show several banks side by side.
#include "RecallLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

struct OverviewLink : RecallLink {
    OverviewLink()
    {
        settings.ChannelRole = {14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
        for (DocRecord &record : settings.StyDocTable) {
            record.Role = 14;
        }
        for (DocRecord &record : settings.PrfDocTable) {
            record.Role = 14;
        }
    }
};

template <class Window>
std::vector<int> ListsWithSelection(Window &window)
{
    std::vector<int> numbers;
    for (ListBox &list : window.List1) {
        for (int row = 0; row < list.ListCount(); ++row) {
            if (list.Selected(row)) {
                numbers.push_back(list.index());
            }
        }
    }
    return numbers;
}

using Overview = Linked<OverviewLink>;

TEST_F(Overview, PerformanceBanksAreMsb1AndTheListLess1)
{
    for (int list = 1; list <= 20; ++list) {
        PerformanceOverview window(24);
        window.Pick(list, 6);
        link.devices.sent.clear();
        SelectFromOverview(link.recall, window, list);
        EXPECT_EQ(link.devices.sent, RecallLink::Messages(0, 1, static_cast<std::uint32_t>(list - 1), 6));
        EXPECT_EQ(link.files.performances.current, list);
    }
}

TEST_F(Overview, StyleBanksHaveTheLsbOfTheirSingleWindows)
{
    for (int kind = 25; kind <= 28; ++kind) {
        for (int list = 1; list <= 3; ++list) {
            StyleOverview window(kind);
            window.Pick(list, 11);
            link.devices.sent.clear();
            SelectFromOverview(link.recall, window, list);
            const auto lsb = static_cast<std::uint32_t>(17 + (kind - 25) * 3 + list - 1);
            EXPECT_EQ(link.devices.sent, RecallLink::Messages(0, 0, lsb, 11)) << kind << " " << list;
            EXPECT_EQ(link.files.styles.current, list);
        }
    }
}

TEST_F(Overview, PerformanceUser20IsTheSameFromBothWindowsWithRolesOfTheirOwn)
{
    link.settings.ChannelRole = {14, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    link.settings.PrfDocTable[20].Role = 5;
    PerformanceOverview window(24);
    window.Pick(20, 0);
    SelectFromOverview(link.recall, window, 20);
    EXPECT_EQ(link.devices.sent, RecallLink::Messages(1, 1, 19, 0));
    EXPECT_EQ(link.Select(22, 28, 0), RecallLink::Messages(0, 1, 19, 0));
}

TEST_F(Overview, AClickLeavesOneSelectionInTheWindow)
{
    PerformanceOverview window(24);
    window.Pick(2, 1);
    window.Pick(2, 3);
    window.Pick(19, 0);
    window.Pick(7, 5);
    SelectFromOverview(link.recall, window, 7);
    EXPECT_EQ(ListsWithSelection(window), (std::vector<int>{7}));
    EXPECT_EQ(link.devices.sent, RecallLink::Messages(0, 1, 6, 5));
    EXPECT_FALSE(link.recall.clearingOtherLists);
}

TEST_F(Overview, AClickWithinAnotherIsIgnored)
{
    StyleOverview window(25);
    window.Pick(1, 0);
    window.Pick(2, 0);
    link.recall.clearingOtherLists = true;
    SelectFromOverview(link.recall, window, 1);
    EXPECT_EQ(link.devices.sent, Sent{});
    EXPECT_EQ(ListsWithSelection(window), (std::vector<int>{1, 2}));
}

TEST_F(Overview, ARowEqualToTheWindowsNumberIsIgnored)
{
    StyleOverview styles(25);
    styles.List1[1].SetRow(0, "3");
    styles.Pick(1, 0);
    SelectFromOverview(link.recall, styles, 1);
    EXPECT_EQ(link.devices.sent, Sent{});
    PerformanceOverview performances(24);
    performances.List1[1].SetRow(0, "1");
    performances.Pick(1, 0);
    SelectFromOverview(link.recall, performances, 1);
    EXPECT_EQ(link.devices.sent, Sent{});
    performances.List1[1].SetRow(0, "3");
    SelectFromOverview(link.recall, performances, 1);
    EXPECT_EQ(link.devices.sent, RecallLink::Messages(0, 1, 0, 0));
}

TEST_F(Overview, AnEmptyFirstPlaceRecallsLikeAnyOtherAndClearsTheOtherLists)
{
    PerformanceOverview performances(24);
    performances.Pick(2, 7);
    performances.List1[1].SetRow(0, "1 " + std::string(16, ' '));
    performances.Pick(1, 0);
    SelectFromOverview(link.recall, performances, 1);
    EXPECT_EQ(link.devices.sent, RecallLink::Messages(0, 1, 0, 0));
    EXPECT_FALSE(performances.List1[2].Selected(7));
}

TEST_F(Overview, OfTheTwoOnlyThePerformancesArmTheMonitorWithoutAChannel)
{
    link.settings.ChannelRole = {};
    link.settings.LastChannel = 7;
    StyleOverview styles(26);
    styles.Pick(1, 0);
    SelectFromOverview(link.recall, styles, 1);
    EXPECT_FALSE(link.midi.MonitorEnabled);
    PerformanceOverview performances(24);
    performances.Pick(1, 0);
    SelectFromOverview(link.recall, performances, 1);
    EXPECT_TRUE(link.midi.MonitorEnabled);
    EXPECT_EQ(link.devices.sent, Sent{});
    EXPECT_EQ(link.settings.LastChannel, 7);
    EXPECT_EQ(link.files.performances.current, 0);
}

TEST_F(Overview, WithAChannelTheStylesArmTheMonitorToo)
{
    StyleOverview styles(25);
    styles.Pick(3, 0);
    SelectFromOverview(link.recall, styles, 3);
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

TEST_F(Overview, AListThatTheWindowDoesNotHaveDoesNothing)
{
    StyleOverview window(25);
    SelectFromOverview(link.recall, window, 4);
    SelectFromOverview(link.recall, window, 0);
    EXPECT_EQ(link.devices.sent, Sent{});
}

} // namespace
} // namespace velluto::test
