#include "view/MenuEntry.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace velluto;

namespace {

struct MenuTest : testing::Test, Form {
    MenuTest() : Form("frmMain")
    {
        mnuFile.Drop = [this] { events.emplace_back("drop"); };
        mnuOpen.Click = [this] { events.emplace_back("open"); };
        mnuDeep.Click = [this] { events.emplace_back("deep"); };
        mnuDirect.Click = [this] { events.emplace_back("direct"); };
    }
    MenuEntry mnuFile{*this, "mnuFile", {2}};
    MenuEntry mnuOpen{mnuFile, "mnuOpen", {}};
    MenuEntry mnuSep10{mnuFile, "mnuSep10", {}};
    MenuEntry mnuMore{mnuFile, "mnuMore", {}};
    MenuEntry mnuDeep{mnuMore, "mnuDeep", {}};
    MenuEntry mnuDirect{*this, "mnuDirect", {}};
    std::vector<std::string> events;
};

using Events = std::vector<std::string>;

} // namespace

TEST_F(MenuTest, ChoosingAnEntryDropsItsTopLevelMenuFirst)
{
    EXPECT_TRUE(ChooseMenu(mnuOpen));
    EXPECT_TRUE(ChooseMenu(mnuDeep));
    EXPECT_EQ(events, (Events{"drop", "open", "drop", "deep"}));
}

TEST_F(MenuTest, TheStateThatTheDropComputesDecides)
{
    mnuOpen.enabled = true;
    mnuFile.Drop = [this] { mnuOpen.enabled = false; };
    EXPECT_FALSE(ChooseMenu(mnuOpen));
    mnuFile.Drop = [this] { mnuOpen.enabled = true; };
    EXPECT_TRUE(ChooseMenu(mnuOpen));
    EXPECT_EQ(events, Events{"open"});
}

TEST_F(MenuTest, ADisabledTopLevelMenuNeitherDropsNorLetsChoose)
{
    mnuFile.enabled = false;
    EXPECT_FALSE(ChooseMenu(mnuOpen));
    EXPECT_FALSE(DropMenu(mnuFile));
    EXPECT_TRUE(events.empty());
}

TEST_F(MenuTest, AnEntryBelowADisabledOrHiddenOneCannotBeChosen)
{
    mnuMore.enabled = false;
    EXPECT_FALSE(ChooseMenu(mnuDeep));
    mnuMore.enabled = true;
    mnuMore.visible = false;
    EXPECT_FALSE(ChooseMenu(mnuDeep));
    EXPECT_EQ(events, (Events{"drop", "drop"}));
}

TEST_F(MenuTest, AHiddenEntryCannotBeChosen)
{
    mnuOpen.visible = false;
    EXPECT_FALSE(ChooseMenu(mnuOpen));
    EXPECT_EQ(events, Events{"drop"});
}

TEST_F(MenuTest, ASeparatorCannotBeChosen)
{
    EXPECT_TRUE(mnuSep10.IsSeparator());
    EXPECT_FALSE(mnuOpen.IsSeparator());
    EXPECT_FALSE(ChooseMenu(mnuSep10));
}

TEST_F(MenuTest, ACommandInTheMenuBarItselfIsChosenWithoutADrop)
{
    EXPECT_TRUE(ChooseMenu(mnuDirect));
    EXPECT_EQ(events, Events{"direct"});
    mnuDirect.enabled = false;
    EXPECT_FALSE(ChooseMenu(mnuDirect));
}

TEST_F(MenuTest, EntriesKnowTheirTree)
{
    EXPECT_EQ(&mnuDeep.TopLevel(), &mnuFile);
    EXPECT_EQ(mnuDeep.parent(), &mnuMore);
    EXPECT_EQ(mnuFile.children(), (std::vector<MenuEntry *>{&mnuOpen, &mnuSep10, &mnuMore}));
}
