// The input device, its callback's ring, and Thru.
#include "midi/DeviceMenus.h"
#include "midi/MidiIn.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

std::vector<ThruEvent::Kind> KindsOf(const std::vector<ThruEvent> &events)
{
    std::vector<ThruEvent::Kind> kinds;
    for (const ThruEvent &event : events) {
        kinds.push_back(event.kind);
    }
    return kinds;
}
using Kinds = std::vector<ThruEvent::Kind>;

// Output 0 and input 0 open and valid, the Thru entry enabled and unchecked.
struct ThruLink : MidiLink {
    ThruLink()
    {
        AddOuts(1);
        AddIns(1);
        app.settings.MidiOutDev = 0;
        app.settings.MidiInDev = 0;
        Survey();
        FillDeviceMenus(midi);
    }
    MenuEntry &entry = app.frame.mnuMIDIThru;
};

using OpenIn = Linked<MidiLink>;

TEST_F(OpenIn, ADeviceInUseIsTold)
{
    link.AddIns(1);
    link.devices.ins[0].codes.open = 4;
    link.app.settings.MidiInDev = 0;
    EXPECT_EQ(OpenMidiIn(link.midi), 4);
    EXPECT_FALSE(link.midi.MidiInOpen);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Input MIDI Device already in use"}));
    EXPECT_EQ(link.face.boxes[0].title, "Velluto v 1.1");
}

TEST_F(OpenIn, ADeviceInUseIsToldInItalian)
{
    link.app.messages.LinguaBase = 0;
    link.AddIns(1);
    link.devices.ins[0].codes.open = 4;
    link.app.settings.MidiInDev = 0;
    OpenMidiIn(link.midi);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Dispositivo MIDI di ingresso già in uso"}));
}

TEST_F(OpenIn, AnyOtherFailureHasSite5)
{
    link.AddIns(1);
    link.devices.ins[0].codes.open = 68;
    link.app.settings.MidiInDev = 0;
    EXPECT_EQ(OpenMidiIn(link.midi), 68);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error opening MIDI input device (Cod Err: 568)"}));
}

using CloseIn = Linked<MidiLink>;

TEST_F(CloseIn, AFailureHasTheTextOfTheOpenAndSite7)
{
    link.app.messages.LinguaBase = 0;
    link.AddIns(1);
    link.app.settings.MidiInDev = 0;
    OpenMidiIn(link.midi);
    link.devices.ins[0].codes.close = 5;
    EXPECT_EQ(CloseMidiIn(link.midi), 5);
    EXPECT_FALSE(link.midi.MidiInOpen);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Errore apertura dispositivo MIDI di ingresso (Cod Err: 705)"}));
}

TEST_F(CloseIn, AGoodCloseIsNotToldWhateverTheKeptResult)
{
    link.AddIns(1);
    link.app.settings.MidiInDev = 0;
    OpenMidiIn(link.midi);
    link.midi.MidiResult = 11;
    EXPECT_EQ(CloseMidiIn(link.midi), 0);
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Ring, EachCallbackStoresItsCodeAndParameters)
{
    MidiInputRing ring;
    MidiInProc(200, 0x3C3, &ring, 0x643C90, 17);
    EXPECT_EQ(ring.message[0], 0x3C3U);
    EXPECT_EQ(ring.parameter1[0], 0x643C90U);
    EXPECT_EQ(ring.parameter2[0], 17U);
    EXPECT_EQ(ring.index, 1U);
}

TEST(Ring, MoreThan1025CallbacksWrapToTheStartAndOverwrite)
{
    MidiInputRing ring;
    for (std::uint32_t n = 0; n < 1025; ++n) {
        MidiInProc(200, n, &ring, n, n);
    }
    EXPECT_EQ(ring.index, 0U);
    EXPECT_EQ(ring.message[1024], 1024U);
    MidiInProc(200, 5000, &ring, 5001, 5002);
    EXPECT_EQ(ring.message[0], 5000U);
    EXPECT_EQ(ring.parameter1[0], 5001U);
    EXPECT_EQ(ring.parameter2[0], 5002U);
    EXPECT_EQ(ring.index, 1U);
}

TEST(Ring, TheOpenDeviceWritesIntoTheLinksOwnRing)
{
    MidiLink link;
    link.AddIns(1);
    link.app.settings.MidiInDev = 0;
    OpenMidiIn(link.midi);
    ASSERT_TRUE(link.devices.Receive(0, {0x90, 60, 100}));
    EXPECT_EQ(link.midi.inputRing.parameter1[0], 0x643C90U);
    EXPECT_EQ(link.midi.inputRing.index, 1U);
}

TEST(Thru, OnConnectsAndStartsOffDisconnectsAndStops)
{
    ThruLink link;
    mnuMIDIThru_Click(link.midi);
    EXPECT_TRUE(link.entry.checked);
    EXPECT_TRUE(link.app.settings.ThruOn);
    EXPECT_EQ(KindsOf(link.devices.thru), (Kinds{ThruEvent::Kind::Connect, ThruEvent::Kind::Start}));
    link.devices.thru.clear();
    mnuMIDIThru_Click(link.midi);
    EXPECT_FALSE(link.entry.checked);
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_EQ(KindsOf(link.devices.thru), (Kinds{ThruEvent::Kind::Disconnect, ThruEvent::Kind::Stop}));
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Thru, WhatIsPlayedReachesTheOutputWithoutTheProgram)
{
    ThruLink link;
    mnuMIDIThru_Click(link.midi);
    link.devices.thru.clear();
    link.devices.Receive(0, {0x90, 60, 100});
    ASSERT_EQ(KindsOf(link.devices.thru), (Kinds{ThruEvent::Kind::Message}));
    EXPECT_TRUE(link.devices.sent.empty());
}

TEST(Thru, AConnectThatFailsChecksTheEntryAndLeavesThruOnFalse)
{
    ThruLink link;
    link.devices.ins[0].codes.connect = 67;
    mnuMIDIThru_Click(link.midi);
    EXPECT_TRUE(link.entry.checked);
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_EQ(KindsOf(link.devices.thru), (Kinds{ThruEvent::Kind::Connect})); // no start
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Thru, AStartThatFailsChecksTheEntryAndLeavesThruOnFalse)
{
    ThruLink link;
    link.devices.ins[0].codes.start = 5;
    mnuMIDIThru_Click(link.midi);
    EXPECT_TRUE(link.entry.checked);
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Thru, ADisconnectOrStopThatFailsUnchecksTheEntryAndLeavesThruOnTrue)
{
    for (const bool disconnectFails : {true, false}) {
        ThruLink link;
        mnuMIDIThru_Click(link.midi);
        (disconnectFails ? link.devices.ins[0].codes.disconnect : link.devices.ins[0].codes.stop) = 5;
        link.devices.thru.clear();
        mnuMIDIThru_Click(link.midi);
        EXPECT_FALSE(link.entry.checked);
        EXPECT_TRUE(link.app.settings.ThruOn);
        EXPECT_EQ(link.devices.thru.size(), disconnectFails ? 1U : 2U);
    }
}

TEST(Thru, WhereTheInputOfTheOutputsNumberIsNotValidItDoesNothingAndReportsSuccess)
{
    MidiLink link;
    link.AddOuts(2);
    link.AddIns(1);
    link.app.settings.MidiOutDev = 1; // there is no input 1
    link.app.settings.MidiInDev = 0;
    link.Survey();
    EXPECT_EQ(ThruConnect(link.midi), 0);
    EXPECT_EQ(ThruDisconnect(link.midi), 0);
    EXPECT_TRUE(link.devices.thru.empty());
    mnuMIDIThru_Click(link.midi);
    EXPECT_TRUE(link.app.settings.ThruOn);
    EXPECT_EQ(KindsOf(link.devices.thru), (Kinds{ThruEvent::Kind::Start}));
}

TEST(Thru, WithoutAnOutputItDoesNothingAndReportsSuccess)
{
    for (const int number : {99, 8, -1, 255}) {
        ThruLink link;
        link.app.settings.MidiOutDev = number;
        EXPECT_EQ(ThruConnect(link.midi), 0);
        EXPECT_EQ(ThruDisconnect(link.midi), 0);
        EXPECT_TRUE(link.devices.thru.empty());
    }
}

} // namespace
} // namespace velluto::test
