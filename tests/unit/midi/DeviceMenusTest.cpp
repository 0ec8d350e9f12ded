// The two device menus: their names and marks at load, and what a click on an entry does.
#include "midi/DeviceMenus.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

template <class Entries>
std::vector<int> CheckedOf(Entries &entries)
{
    std::vector<int> numbers;
    for (MenuEntry &entry : entries) {
        if (entry.checked) {
            numbers.push_back(entry.index());
        }
    }
    return numbers;
}

template <class Entries>
std::vector<int> VisibleOf(Entries &entries)
{
    std::vector<int> numbers;
    for (MenuEntry &entry : entries) {
        if (entry.visible) {
            numbers.push_back(entry.index());
        }
    }
    return numbers;
}
using Numbers = std::vector<int>;

// Two outputs and two inputs, none saved.
struct MenuLink : MidiLink {
    explicit MenuLink(int savedOut = 99, int savedIn = 99)
    {
        AddOuts(2);
        AddIns(2);
        app.settings.MidiOutDev = savedOut;
        app.settings.MidiInDev = savedIn;
        Survey();
        FillDeviceMenus(midi);
        app.frame.mnuMIDIThru.enabled = false;
        devices.calls.clear();
    }
    frmMain &frame = app.frame;
    Settings &settings = app.settings;
};

TEST(DeviceMenu, EachValidDeviceHasItsNameAndIsVisible)
{
    MidiLink link;
    link.AddOuts(3);
    link.AddIns(1);
    link.devices.outs[1].codes.caps = 2;
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_EQ(link.app.frame.mnuDevMIDIOut[0].caption.Get(), "Out 0");
    EXPECT_EQ(link.app.frame.mnuDevMIDIOut[2].caption.Get(), "Out 2");
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIOut), (Numbers{0, 2}));
    EXPECT_EQ(link.app.frame.mnuDevMIDIIn[0].caption.Get(), "In 0");
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIIn), (Numbers{0}));
}

TEST(DeviceMenu, WithoutDevicesEntry0IsVisibleAlone)
{
    MidiLink link;
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIOut), (Numbers{0}));
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIIn), (Numbers{0}));
    EXPECT_EQ(link.app.frame.mnuDevMIDIOut[0].caption.Get(), "");
    EXPECT_EQ(CheckedOf(link.app.frame.mnuDevMIDIOut), Numbers{});
}

TEST(DeviceMenu, OfNineOutputsNumbers7And8NeverAppear)
{
    MidiLink link;
    link.AddOuts(9);
    link.AddIns(1);
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIOut), (Numbers{0, 1, 2, 3, 4, 5, 6}));
}

TEST(DeviceMenu, TheFifthInputHasNoEntry)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(6);
    link.app.settings.MidiInDev = 4;
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_EQ(VisibleOf(link.app.frame.mnuDevMIDIIn), (Numbers{0, 1, 2, 3}));
    EXPECT_EQ(CheckedOf(link.app.frame.mnuDevMIDIIn), Numbers{});
    mnuDevMIDIIn_Click(link.midi, 4); // no such entry
    EXPECT_EQ(link.app.settings.MidiInDev, 4);
}

TEST(DeviceMenu, TheSavedEntryIsCheckedEvenIfTheDeviceDidNotOpen)
{
    MidiLink link;
    link.AddOuts(2);
    link.AddIns(2);
    link.devices.outs[1].codes.open = 4;
    link.app.settings.MidiOutDev = 1;
    link.app.settings.MidiInDev = 1;
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_FALSE(link.midi.MidiOutOpen);
    EXPECT_EQ(CheckedOf(link.app.frame.mnuDevMIDIOut), (Numbers{1}));
    EXPECT_EQ(CheckedOf(link.app.frame.mnuDevMIDIIn), (Numbers{1}));
}

TEST(DeviceMenu, ANameThatFillsTheFieldIsTakenWhole)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(1);
    link.devices.outs[0].name = "0123456789012345678901234567890123456789";
    link.Survey();
    FillDeviceMenus(link.midi);
    EXPECT_EQ(link.app.frame.mnuDevMIDIOut[0].caption.Get(), "01234567890123456789012345678901");
}

TEST(DeviceMenu, ACharacterCutAtTheFieldsEndIsLeftOut)
{
    const std::string digits = "0123456789012345678901234567890"; // one byte short of the field
    const std::pair<std::string, std::string> names[] = {
        {digits + "\xC3\xA8", digits},
        {digits.substr(1) + "\xC3\xA8", digits.substr(1) + "\xC3\xA8"}, // ends with the field
        {digits.substr(1) + "\xE0\xB8\x81", digits.substr(1)},
        {digits.substr(2) + "\xF0\x9F\x8E\xB9", digits.substr(2)}};
    for (const auto &[name, caption] : names) {
        MidiLink link;
        link.AddOuts(1);
        link.devices.outs[0].name = name;
        link.Survey();
        FillDeviceMenus(link.midi);
        EXPECT_EQ(link.app.frame.mnuDevMIDIOut[0].caption.Get(), caption);
    }
}

TEST(OutputMenu, AFirstChoiceOpensAndChecks)
{
    MenuLink link;
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutOpen 1"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), (Numbers{1}));
    EXPECT_EQ(link.settings.MidiOutDev, 1);
    EXPECT_TRUE(link.midi.MidiOutOpen);
}

TEST(OutputMenu, AClickOnTheCheckedEntrySwitchesOff)
{
    MenuLink link(0, 0);
    link.frame.mnuMIDIThru.enabled = true;
    mnuDevMIDIOut_Click(link.midi, 0);
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutClose 0"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), Numbers{});
    EXPECT_EQ(link.settings.MidiOutDev, 99);
    EXPECT_FALSE(link.midi.MidiOutOpen);
    EXPECT_FALSE(link.frame.mnuMIDIThru.enabled);
}

TEST(OutputMenu, AnotherEntryClosesTheOldDeviceFirst)
{
    MenuLink link(0, 99);
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutClose 0", "midiOutOpen 1"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), (Numbers{1}));
    EXPECT_EQ(link.settings.MidiOutDev, 1);
}

TEST(OutputMenu, TheOldDeviceIsClosedEvenIfItNeverOpened)
{
    MenuLink link;
    link.settings.MidiOutDev = 0;
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutClose -1", "midiOutOpen 1"}));
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(OutputMenu, AFailedOpenKeepsTheNewNumberWithoutACheckAndASecondClickTriesAgain)
{
    MenuLink link(0, 99);
    link.devices.outs[1].codes.open = 4;
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.settings.MidiOutDev, 1);
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), Numbers{});
    EXPECT_EQ(link.face.boxes.size(), 1U);
    link.devices.outs[1].codes.open = 0;
    link.devices.calls.clear();
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutOpen 1"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), (Numbers{1}));
}

TEST(OutputMenu, WithTheInputOpenThruIsEnabled)
{
    MenuLink link(99, 99);
    mnuDevMIDIIn_Click(link.midi, 0);
    ASSERT_TRUE(link.midi.MidiInOpen);
    link.frame.mnuMIDIThru.checked = true;
    mnuDevMIDIOut_Click(link.midi, 0);
    EXPECT_TRUE(link.frame.mnuMIDIThru.enabled);
    EXPECT_TRUE(link.frame.mnuMIDIThru.checked);
}

TEST(OutputMenu, WithTheInputClosedThruIsUncheckedAndDisabled)
{
    MenuLink link;
    link.frame.mnuMIDIThru.enabled = true;
    link.frame.mnuMIDIThru.checked = true;
    mnuDevMIDIOut_Click(link.midi, 0);
    EXPECT_FALSE(link.frame.mnuMIDIThru.enabled);
    EXPECT_FALSE(link.frame.mnuMIDIThru.checked);
}

TEST(OutputMenu, AReopenArmsAPathThatAFailedSendDisarmed)
{
    MenuLink link(0, 99);
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    link.devices.outs[0].codes.send = 0;
    mnuDevMIDIOut_Click(link.midi, 0);
    mnuDevMIDIOut_Click(link.midi, 0);
    EXPECT_TRUE(link.midi.SendArmed);
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIOut), (Numbers{0}));
}

TEST(OutputMenu, ASavedNumberWithoutAnEntryDoesNoHarm)
{
    MenuLink link;
    link.settings.MidiOutDev = 50;
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_EQ(link.settings.MidiOutDev, 1);
    mnuDevMIDIOut_Click(link.midi, 8);
    mnuDevMIDIOut_Click(link.midi, -1);
    EXPECT_EQ(link.settings.MidiOutDev, 1);
}

TEST(InputMenu, AChoiceOpensChecksAndWithTheOutputOpenEnablesThru)
{
    MenuLink link(0, 99);
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiInOpen 1"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIIn), (Numbers{1}));
    EXPECT_EQ(link.settings.MidiInDev, 1);
    EXPECT_TRUE(link.frame.mnuMIDIThru.enabled);
}

TEST(InputMenu, WithTheOutputClosedThruStaysAsItWas)
{
    MenuLink link;
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_FALSE(link.frame.mnuMIDIThru.enabled);
    link.frame.mnuMIDIThru.enabled = true;
    mnuDevMIDIIn_Click(link.midi, 0);
    EXPECT_TRUE(link.frame.mnuMIDIThru.enabled);
}

TEST(InputMenu, AClickOnTheCheckedEntrySwitchesOff)
{
    MenuLink link(0, 0);
    link.frame.mnuMIDIThru.enabled = true;
    mnuDevMIDIIn_Click(link.midi, 0);
    EXPECT_EQ(link.devices.calls, (Texts{"midiInClose 0"}));
    EXPECT_EQ(link.settings.MidiInDev, 99);
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIIn), Numbers{});
    EXPECT_FALSE(link.frame.mnuMIDIThru.enabled);
}

TEST(InputMenu, AnotherEntryClosesTheOldInputFirst)
{
    MenuLink link(0, 0);
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiInClose 0", "midiInOpen 1"}));
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIIn), (Numbers{1}));
}

TEST(InputMenu, WhereTheOldInputDoesNotCloseItsNumberStaysAndItsCheckIsGone)
{
    MenuLink link(0, 0);
    link.devices.ins[0].codes.close = 5;
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_EQ(link.devices.calls, (Texts{"midiInClose 0"}));
    EXPECT_EQ(link.settings.MidiInDev, 0);
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIIn), Numbers{});
    EXPECT_FALSE(link.midi.MidiInOpen);
}

TEST(InputMenu, AFailedOpenDisablesThru)
{
    MenuLink link(0, 99);
    link.devices.ins[1].codes.open = 4;
    link.frame.mnuMIDIThru.enabled = true;
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_EQ(link.settings.MidiInDev, 1);
    EXPECT_EQ(CheckedOf(link.frame.mnuDevMIDIIn), Numbers{});
    EXPECT_FALSE(link.frame.mnuMIDIThru.enabled);
}

TEST(OutputMenu, ChangingTheOutputWithThruOnDoesNotConnectAgain)
{
    MenuLink link(0, 0);
    mnuMIDIThru_Click(link.midi);
    ASSERT_TRUE(link.settings.ThruOn);
    link.devices.thru.clear();
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_TRUE(link.devices.thru.empty());
    EXPECT_TRUE(link.settings.ThruOn);
}

} // namespace
} // namespace velluto::test
