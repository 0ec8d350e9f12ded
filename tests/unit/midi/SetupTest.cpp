// Channel roles, and the window that edits them.
#include "midi/Roles.h"
#include "midi/frmMIDISetup.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using Roles = std::array<std::uint8_t, 16>;

struct SetupLink : MidiLink {
    frmMIDISetup &Open()
    {
        mnuMIDISetup_Click(midi);
        return *midi.setup;
    }
    WindowPlacement &entry = app.settings.PlacementTable[28];
    Roles &roles = app.settings.ChannelRole;
};

TEST(Roles, TheLowestChannelWithTheRoleWins)
{
    Settings settings;
    settings.ChannelRole = {0, 2, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 14};
    EXPECT_EQ(ChannelForRole(settings, 2), 1);
    EXPECT_EQ(ChannelForRole(settings, 14), 15);
}

TEST(Roles, EachOfTheFourteenFindsItsChannel)
{
    Settings settings;
    settings.ChannelRole = {0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14};
    for (int role = 1; role <= 14; ++role) {
        EXPECT_EQ(ChannelForRole(settings, role), role + 1) << role;
    }
}

TEST(Roles, OffAndRolesThatNoChannelHasGiveNothing)
{
    Settings settings;
    settings.ChannelRole = {2, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_FALSE(ChannelForRole(settings, 0));
    EXPECT_FALSE(ChannelForRole(settings, 5));
}

TEST(Roles, ARoleAbove14MatchesNoChannel)
{
    Settings settings;
    settings.ChannelRole = {15, 255, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    EXPECT_FALSE(ChannelForRole(settings, 15));
    EXPECT_FALSE(ChannelForRole(settings, 255));
}

TEST(Setup, EachBoxHasTheFifteenRolesAndEachLabelItsChannel)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    const std::vector<std::string> names{"OFF",  "LOWR", "UP.1", "UP.2", "UP.3", "DRUM",   "PERC",  "BASS",
                                         "ACC1", "ACC2", "ACC3", "ACC4", "ACC5", "GLOBAL", "CONTRL"};
    for (int channel = 1; channel <= 16; ++channel) {
        EXPECT_EQ(form.Combo1[channel].rows, names);
        EXPECT_EQ(form.Combo1[channel].accessibleName, "MIDI Channel " + std::to_string(channel));
    }
    EXPECT_EQ(form.Label1Ch[1].caption.Get(), "Ch   1:");
    EXPECT_EQ(form.Label1Ch[9].caption.Get(), "Ch   9:");
    EXPECT_EQ(form.Label1Ch[10].caption.Get(), "Ch 10:");
    EXPECT_EQ(form.Label1Ch[16].caption.Get(), "Ch 16:");
    EXPECT_EQ(form.caption.Get(), "MIDI setup");
}

TEST(Setup, Channels1To8StandAtTheLeftAnd9To16AtTheRight)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    for (int channel = 1; channel <= 8; ++channel) {
        EXPECT_EQ(form.Combo1[channel].place.Get().left, form.Combo1[1].place.Get().left);
        EXPECT_EQ(form.Combo1[channel + 8].place.Get().left, form.Combo1[9].place.Get().left);
        EXPECT_EQ(form.Combo1[channel].place.Get().top, form.Combo1[channel + 8].place.Get().top);
    }
    EXPECT_GT(form.Label1Ch[9].place.Get().left, form.Combo1[1].place.Get().left + form.Combo1[1].place.Get().width);
    const Place last = form.Combo1[16].place;
    EXPECT_EQ(form.ScaleWidth(), last.left + last.width + 120);
    EXPECT_EQ(form.ScaleHeight(), last.top + last.height + 120);
}

TEST(Setup, NoRowLiesOverTheOneAboveIt)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    for (const int first : {1, 9}) {
        for (int channel = first + 1; channel < first + 8; ++channel) {
            const Place above = form.Combo1[channel - 1].place;
            EXPECT_GE(form.Combo1[channel].place.Get().top, above.top + above.height) << channel;
            EXPECT_GE(form.Label1Ch[channel].place.Get().top, above.top + above.height) << channel;
        }
    }
}

TEST(Setup, NeverLaidOutComesUpAtTheTopLeftAndKeepsItsNaturalWidth)
{
    SetupLink link;
    link.entry.Top = 500;
    link.entry.Left = 700;
    frmMIDISetup &form = link.Open();
    EXPECT_EQ(form.Top(), 0);
    EXPECT_EQ(form.Left(), 0);
    EXPECT_EQ(link.entry.Top, 0);
    EXPECT_EQ(link.entry.Left, 0);
    EXPECT_EQ(link.entry.MinWidth, form.Width());
    EXPECT_EQ(link.entry.State, 1);
}

TEST(Setup, LaidOutBeforeComesUpWhereItWas)
{
    SetupLink link;
    link.entry.Top = -300;
    link.entry.Left = 700;
    link.entry.MinWidth = 1;
    frmMIDISetup &form = link.Open();
    EXPECT_EQ(form.Top(), -300);
    EXPECT_EQ(form.Left(), 700);
    EXPECT_EQ(link.entry.MinWidth, 1);
}

TEST(Setup, KeepsTheChildContract)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    EXPECT_EQ(form.Tag.prefix, std::string(1, '\x1D') + std::string(19, '\0'));
    EXPECT_FALSE(link.app.frame.mnuMIDISetup.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 1);
    EXPECT_FALSE(link.app.children.RestoringLayout);
    EXPECT_TRUE(link.app.frame.mnuModifica.enabled);
    EXPECT_EQ(link.app.children.Active(), &form);
}

TEST(Setup, ShowsTheRoleOfEachChannel)
{
    SetupLink link;
    link.roles = {2, 14, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 0};
    frmMIDISetup &form = link.Open();
    for (int channel = 1; channel <= 16; ++channel) {
        EXPECT_EQ(form.Combo1[channel].ListIndex.Get(), link.roles[static_cast<std::size_t>(channel - 1)]);
    }
}

TEST(Setup, ARoleThatNoBoxCanHoldShowsTheNearest)
{
    SetupLink link;
    link.roles[0] = 15;
    link.roles[1] = 255;
    frmMIDISetup &form = link.Open();
    EXPECT_EQ(form.Combo1[1].ListIndex.Get(), 14);
    EXPECT_EQ(form.Combo1[2].ListIndex.Get(), 14);
}

TEST(Setup, AChoiceTakesEffectOnlyWhenTheWindowIsLeft)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    form.Combo1[5].ListIndex = 7;
    EXPECT_EQ(link.roles[4], 0);
    form.Form_Deactivate();
    EXPECT_EQ(link.roles[4], 7);
}

TEST(Setup, ABoxSetToOffSwitchesItsChannelOff)
{
    SetupLink link;
    link.roles[0] = 2;
    frmMIDISetup &form = link.Open();
    form.Combo1[1].ListIndex = 0;
    form.Form_Deactivate();
    EXPECT_EQ(link.roles[0], 0);
}

TEST(Setup, LosingTheFocusTakesTheChoicesOverWhileStateIs1)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    form.Combo1[5].ListIndex = 7;
    link.entry.State = 0;
    form.Form_LostFocus();
    EXPECT_EQ(link.roles[4], 0);
    link.entry.State = 1;
    link.app.children.FrameDeactivated();
    EXPECT_EQ(link.roles[4], 7);
}

TEST(Setup, ClosedWhileShownTheLastChoicesAreTakenOver)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    form.Combo1[16].ListIndex = 13;
    link.app.children.Move(form, 450, 600);
    link.app.children.Unload(form);
    link.app.children.Sweep();
    EXPECT_EQ(link.roles[15], 13);
    EXPECT_EQ(link.entry.Left, 450);
    EXPECT_EQ(link.entry.Top, 600);
    EXPECT_EQ(link.entry.State, 0);
    EXPECT_TRUE(link.app.frame.mnuMIDISetup.enabled);
    EXPECT_FALSE(link.app.frame.mnuModifica.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 0);
    EXPECT_EQ(link.midi.setup, nullptr);
}

TEST(Setup, OpensAfreshAfterAClose)
{
    SetupLink link;
    frmMIDISetup &first = link.Open();
    first.Combo1[3].ListIndex = 9;
    link.app.children.Unload(first);
    link.app.children.Sweep();
    frmMIDISetup &second = link.Open();
    EXPECT_EQ(second.Combo1[3].ListIndex.Get(), 9);
    EXPECT_EQ(link.app.children.ChildCount, 1);
}

TEST(Setup, TheRightButtonPopsUpTheEditMenu)
{
    SetupLink link;
    frmMIDISetup &form = link.Open();
    int drops = 0;
    link.app.frame.mnuModifica.Drop = [&drops] { ++drops; };
    form.Form_MouseDown(MouseButton::Right);
    Raise(form.Combo1[1].MouseDown, MouseButton::Right);
    Raise(form.Label1Ch[16].MouseDown, MouseButton::Right);
    form.Form_MouseDown(MouseButton::Left);
    EXPECT_EQ(link.face.popUps, (std::vector<MenuEntry *>(3, &link.app.frame.mnuModifica)));
    EXPECT_EQ(drops, 3);
}

} // namespace
} // namespace velluto::test
