// Devices that come while the program runs: their entries, and what stays as it was.
#include "midi/DeviceMenus.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// As after a start with so many devices.
struct NewDevices : testing::Test {
    void Start(int outs, int ins)
    {
        link.devices.devicesCome = true;
        link.AddOuts(outs);
        link.AddIns(ins);
        link.Survey();
        FillDeviceMenus(link.midi);
    }
    template <class Entries>
    static Texts Visible(Entries &entries)
    {
        Texts captions;
        for (MenuEntry &entry : entries) {
            if (entry.visible) {
                captions.push_back(entry.caption.Get());
            }
        }
        return captions;
    }
    Texts Outs() { return Visible(link.app.frame.mnuDevMIDIOut); }
    Texts Ins() { return Visible(link.app.frame.mnuDevMIDIIn); }

    MidiLink link;
    frmMain &frame = link.app.frame;
};

TEST_F(NewDevices, OneThatComesIsInTheMenuWhenItOpensAndCanBeChosen)
{
    Start(1, 1);
    link.AddOuts(1);
    link.AddIns(1);
    EXPECT_EQ(Outs(), (Texts{"Out 0"}));
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs(), (Texts{"Out 0", "Out 1"}));
    EXPECT_EQ(Ins(), (Texts{"In 0", "In 1"}));
    mnuDevMIDIOut_Click(link.midi, 1);
    mnuDevMIDIIn_Click(link.midi, 1);
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_TRUE(link.midi.MidiInOpen);
    EXPECT_TRUE(frame.mnuDevMIDIOut[1].checked);
    EXPECT_TRUE(frame.mnuMIDIThru.enabled);
}

TEST_F(NewDevices, WhatIsThereStaysAsItIs)
{
    link.app.settings.MidiOutDev = 0;
    link.app.settings.MidiInDev = 0;
    Start(2, 1);
    link.devices.outs[0].name = "Another name";
    link.AddOuts(1);
    link.devices.calls.clear();
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs(), (Texts{"Out 0", "Out 1", "Out 2"}));
    EXPECT_TRUE(frame.mnuDevMIDIOut[0].checked);
    EXPECT_FALSE(frame.mnuDevMIDIOut[2].checked);
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_TRUE(link.devices.calls.empty()); // nothing is opened or closed
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST_F(NewDevices, TheSavedOneThatComesLateIsCheckedAndOpensByTwoClicks)
{
    link.app.settings.MidiOutDev = 1;
    Start(1, 1);
    link.AddOuts(1);
    ShowNewDevices(link.midi);
    EXPECT_TRUE(frame.mnuDevMIDIOut[1].checked);
    EXPECT_FALSE(link.midi.MidiOutOpen);
    mnuDevMIDIOut_Click(link.midi, 1);
    mnuDevMIDIOut_Click(link.midi, 1);
    EXPECT_TRUE(link.midi.MidiOutOpen);
}

TEST_F(NewDevices, AnEighthOutputAndAFifthInputAreNotShown)
{
    Start(7, 4);
    link.AddOuts(2);
    link.AddIns(1);
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs().size(), 7U);
    EXPECT_EQ(Ins().size(), 4U);
    EXPECT_EQ(link.midi.MidiOutCount, 7);
    EXPECT_EQ(link.midi.MidiInValid[4], 1); // Thru asks it
}

TEST_F(NewDevices, ANumberWithoutADeviceGetsOneLater)
{
    link.AddOuts(3);
    link.devices.outs[1].codes.caps = MidiCode::kError;
    Start(0, 1);
    EXPECT_EQ(Outs(), (Texts{"Out 0", "Out 2"}));
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs(), (Texts{"Out 0", "Out 2"}));
    link.devices.outs[1].codes.caps = MidiCode::kSuccess;
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs(), (Texts{"Out 0", "Out 1", "Out 2"}));
}

TEST_F(NewDevices, TheFirstOutputTurnsItsMenuOnAndInputsAreCountedFromThenOn)
{
    Start(0, 2);
    ShowNewDevices(link.midi);
    EXPECT_FALSE(frame.mnuMIDIOut.enabled);
    EXPECT_EQ(Ins(), (Texts{""}));
    EXPECT_EQ(link.midi.MidiInCount, 0);
    link.AddOuts(1);
    ShowNewDevices(link.midi);
    EXPECT_TRUE(frame.mnuMIDIOut.enabled);
    EXPECT_FALSE(frame.mnuMIDIThru.enabled);
    EXPECT_FALSE(link.midi.NoMidiOut);
    EXPECT_EQ(Outs(), (Texts{"Out 0"}));
    EXPECT_EQ(Ins(), (Texts{"In 0", "In 1"}));
}

TEST_F(NewDevices, AnInputThatComesWhereNoneWasIsShown)
{
    Start(1, 0);
    EXPECT_TRUE(link.midi.NoMidiIn);
    link.AddIns(1);
    ShowNewDevices(link.midi);
    EXPECT_FALSE(link.midi.NoMidiIn);
    EXPECT_EQ(Ins(), (Texts{"In 0"}));
}

TEST_F(NewDevices, WhatTheNextCloseTellsStaysAsItWas)
{
    link.app.settings.MidiOutDev = 0;
    Start(1, 1);
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    link.AddOuts(1);
    ShowNewDevices(link.midi);
    EXPECT_EQ(link.midi.MidiResult, 11);
}

TEST_F(NewDevices, WhereDevicesDoNotComeNothingChanges)
{
    Start(1, 1);
    link.devices.devicesCome = false;
    link.AddOuts(1);
    ShowNewDevices(link.midi);
    EXPECT_EQ(Outs(), (Texts{"Out 0"}));
    EXPECT_EQ(link.midi.MidiOutCount, 1);
}

} // namespace
} // namespace velluto::test
