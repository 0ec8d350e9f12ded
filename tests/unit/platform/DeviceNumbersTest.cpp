// Which number a port gets as a device, and what is kept of that for the next run.
#include "platform/rtmidi/DeviceNumbers.h"
#include "platform/rtmidi/MachineMidi.h"

#include "FakePorts.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct DeviceNumbers : testing::Test {
    std::vector<ListedPort> Ports(const std::vector<std::string> &names)
    {
        std::vector<ListedPort> ports;
        for (const std::string &name : names) {
            ports.push_back({&system, name});
        }
        return ports;
    }
    // The names by number, after these ports were there; "" where nobody has the number.
    std::vector<std::string> Numbered(const std::vector<std::string> &names)
    {
        NumberPorts(devices, Ports(names), known);
        std::vector<std::string> numbered;
        for (const ListedPort &device : devices) {
            EXPECT_EQ(device.system == nullptr, device.name.empty());
            numbered.push_back(device.name);
        }
        return numbered;
    }
    std::vector<std::string> WithoutBridged(const std::vector<std::string> &names)
    {
        std::vector<ListedPort> ports = Ports(names);
        LeaveOutBridged(ports);
        std::vector<std::string> left;
        for (const ListedPort &port : ports) {
            left.push_back(port.name);
        }
        return left;
    }

    FakePorts system;
    std::vector<ListedPort> devices;
    std::vector<KnownDevice> known;
};

TEST_F(DeviceNumbers, WithNothingKnownTheOrderIsThatOfThePorts)
{
    EXPECT_THAT(Numbered({"a", "b"}), ElementsAre("a", "b"));
    EXPECT_THAT(Numbered({"c", "b"}), ElementsAre("a", "b", "c")); // in one run nothing moves
}

TEST_F(DeviceNumbers, AKnownPortGetsItsNumberAgain)
{
    known = {{1, false, "PA80:PA80 MIDI 1 24:0"}, {2, true, "b"}};
    EXPECT_THAT(Numbered({"a", "b", "PA80:PA80 MIDI 1 28:0"}), ElementsAre("a", "PA80:PA80 MIDI 1 28:0", "b"));
}

TEST_F(DeviceNumbers, OfTwoPortsOfOneNameEachGetsItsOwn)
{
    known = {{0, false, "USB:MIDI 28:0"}, {1, false, "USB:MIDI 24:0"}};
    EXPECT_THAT(Numbered({"USB:MIDI 24:0", "USB:MIDI 32:0"}), ElementsAre("USB:MIDI 32:0", "USB:MIDI 24:0"));
}

TEST_F(DeviceNumbers, TheNumberOfOneThatIsNotThereIsKeptForIt)
{
    known = {{0, false, "a"}, {1, true, "b"}, {2, false, "c"}};
    EXPECT_THAT(Numbered({"a", "new"}), ElementsAre("a", "", "", "new"));
    EXPECT_THAT(Numbered({"a", "new", "b", "newer"}), ElementsAre("a", "b", "", "new", "newer"));
}

TEST_F(DeviceNumbers, WhereNumbersRunOutTheChosenOnesIsKeptAboveAll)
{
    for (int number = 0; number < kNumbersKept; ++number) {
        known.push_back({number, number == 1, "gone " + std::to_string(number)});
    }
    EXPECT_THAT(Numbered({"1", "2", "3", "4", "5", "6", "7"}), ElementsAre("1", "", "2", "3", "4", "5", "6"));
}

TEST_F(DeviceNumbers, AListOfWindowsLeavesTheChosenNumberToNobody)
{
    known = {{0, false, "Microsoft GS Wavetable Synth"}, {1, true, "PA80"}};
    EXPECT_THAT(Numbered({"Velluto Synthesizer", "PA80:PA80 MIDI 1 24:0"}),
                ElementsAre("", "", "Velluto Synthesizer", "PA80:PA80 MIDI 1 24:0"));
    EXPECT_EQ(NumbersToKeep(NamesOf(devices), known, -1).at(1), known.at(1));
}

TEST_F(DeviceNumbers, APortThatComesBackUnderOtherNumbersOfAlsaIsTheSameDevice)
{
    EXPECT_THAT(Numbered({"a", "PA80:MIDI 24:0"}), ElementsAre("a", "PA80:MIDI 24:0"));
    EXPECT_THAT(Numbered({"a"}), ElementsAre("a", "PA80:MIDI 24:0"));
    EXPECT_THAT(Numbered({"a", "PA80:MIDI 28:0"}), ElementsAre("a", "PA80:MIDI 28:0"));
    EXPECT_THAT(Numbered({"a", "PA80:MIDI 28:0", "PA80:MIDI 32:0"}), ElementsAre("a", "PA80:MIDI 28:0", "PA80:MIDI 32:0"));
}

TEST_F(DeviceNumbers, TheMachinesThroughPortsComeLast)
{
    EXPECT_THAT(Numbered({"synth", "Midi Through:Midi Through Port-0 14:0", "PA80:MIDI 24:0"}),
                ElementsAre("synth", "PA80:MIDI 24:0", "Midi Through:Midi Through Port-0 14:0"));
}

TEST_F(DeviceNumbers, WhatPipeWireShowsASecondTimeIsLeftOut)
{
    EXPECT_THAT(WithoutBridged({"PA80:PA80 MIDI 1 24:0", "Midi-Bridge:PA80 2:(playback_0) PA80 MIDI 1",
                                "Midi-Bridge:PA80 MIDI 1 (playback)", "Midi-Bridge:Velluto:(playback_0) in", "pa80:midi_in"}),
                ElementsAre("PA80:PA80 MIDI 1 24:0", "pa80:midi_in"));
    EXPECT_THAT(WithoutBridged({"synth", "PA80:PA80 MIDI 2 24:1", "Midi-Bridge:PA80 2:(playback_0) PA80 MIDI 1"}).size(), 3U);
    EXPECT_THAT(WithoutBridged({"Midi-Bridge:PA80 2:(playback_0) PA80 MIDI 1"}).size(), 1U); // of which ALSA shows nothing
}

TEST_F(DeviceNumbers, ALastingNameIsWithoutTheNumbersOfAlsa)
{
    EXPECT_EQ(LastingName("PA80:PA80 MIDI 1 24:0"), "PA80:PA80 MIDI 1");
    for (const char *name : {"pa80:midi_in", "pa80:midi 1", "a 1:", "a :1", "1:2", "", "24"}) {
        EXPECT_EQ(LastingName(name), name);
    }
}

TEST_F(DeviceNumbers, TheNumbersOfAllDevicesAreKeptAndThoseOfTheAbsent)
{
    known = {{1, true, "b"}, {2, false, "c 24:0"}};
    Numbered({"a", "c 28:0"});
    const std::vector<KnownDevice> kept = {{0, false, "a"}, {1, true, "b"}, {2, false, "c 28:0"}};
    EXPECT_EQ(NumbersToKeep(NamesOf(devices), known, -1), kept);
    EXPECT_TRUE(NumbersToKeep(NamesOf(devices), known, 2).back().chosen);
    EXPECT_FALSE(NumbersToKeep(NamesOf(devices), known, 2).at(1).chosen);
    EXPECT_THAT(NumbersToKeep({}, {}, -1), IsEmpty());
}

TEST_F(DeviceNumbers, SevenAreKept)
{
    Numbered({"0", "1", "2", "3", "4", "5", "6", "7"});
    EXPECT_EQ(NumbersToKeep(NamesOf(devices), known, 7).size(), 7U);
}

TEST_F(DeviceNumbers, WhatIsKnownOfDevicesNumbersThemAndIsKeptAtTheEnd)
{
    auto ports = std::make_unique<FakePorts>();
    ports->outputs = {"New", "PA80:MIDI 28:0"};
    ports->inputs = {"Keys"};
    std::vector<std::unique_ptr<MidiPorts>> systems;
    systems.push_back(std::move(ports));
    auto midi = std::make_unique<MachineMidi>(std::move(systems), KnownDevices{{{2, false, "PA80:MIDI 24:0"}}, {{0, false, "Away"}}});
    EXPECT_EQ(midi->midiOutGetNumDevs(), 3);
    EXPECT_EQ(midi->midiInGetNumDevs(), 2);
    MidiDeviceCaps caps;
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiOutGetDevCapsA(1, caps), MidiCode::kError); // nobody has it
    EXPECT_EQ(midi->midiOutOpen(handle, 1), MidiCode::kError);
    EXPECT_EQ(midi->midiInGetDevCapsA(0, caps), MidiCode::kError);
    EXPECT_EQ(midi->midiInOpen(handle, 0, {}), MidiCode::kError);
    EXPECT_EQ(midi->midiOutOpen(handle, 2), MidiCode::kSuccess);
    KnownDevices kept;
    midi->keep = [&](const KnownDevices &all) { kept = all; };
    midi.reset();
    const KnownDevices wanted{{{0, false, "New"}, {2, true, "PA80:MIDI 28:0"}}, {{0, false, "Away"}, {1, false, "Keys"}}};
    EXPECT_EQ(kept, wanted);
}

// Devices that come and go while the program runs. Number 3 is of one that has been here before.
struct DevicesThatCome : testing::Test {
    DevicesThatCome()
    {
        auto alsa = std::make_unique<FakePorts>();
        auto jack = std::make_unique<FakePorts>();
        first = alsa.get();
        second = jack.get();
        std::vector<std::unique_ptr<MidiPorts>> systems;
        systems.push_back(std::move(alsa));
        systems.push_back(std::move(jack));
        midi = std::make_unique<MachineMidi>(std::move(systems), KnownDevices{{{3, true, "PA80:MIDI 24:0"}}, {}});
        first->outputs = {"a", "b"};
        midi->midiOutGetNumDevs();
        midi->midiInGetNumDevs();
    }
    // The names of the outputs by number, after a count; "" where nobody has the number.
    std::vector<std::string> Counted()
    {
        std::vector<std::string> names;
        const int count = midi->CountAgain()->outs;
        for (int number = 0; number < count; ++number) {
            MidiDeviceCaps caps;
            midi->midiOutGetDevCapsA(number, caps);
            names.emplace_back(caps.name.data());
        }
        return names;
    }

    FakePorts *first = nullptr;
    FakePorts *second = nullptr;
    std::unique_ptr<MachineMidi> midi;
};

TEST_F(DevicesThatCome, ANewOneGetsTheNextFreeNumberAndAKnownOneItsOwn)
{
    second->outputs = {"new"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "new"));
    first->outputs = {"PA80:MIDI 32:0", "a", "b"};
    second->outputs = {"new", "newer"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "new", "PA80:MIDI 32:0", "newer"));
    second->inputs = {"keys"};
    EXPECT_EQ(midi->CountAgain()->ins, 1);
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiOutOpen(handle, 4), MidiCode::kSuccess);
    EXPECT_EQ(midi->midiOutShortMsg(handle, ShortMessage(0x0004C0)), MidiCode::kSuccess);
    EXPECT_THAT(second->received["newer"], ElementsAre(Bytes{0xC0, 4}));
}

TEST_F(DevicesThatCome, ALaterCountIsOfAll)
{
    EXPECT_EQ(first->wholeLists, 0);
    midi->CountAgain();
    EXPECT_EQ(first->wholeLists, 1);
    EXPECT_EQ(second->wholeLists, 1);
}

TEST_F(DevicesThatCome, TheFirstCountIsOfAllWhereADeviceIsExpectedThatNobodyKnows)
{
    constexpr int kNone = 99;
    midi->Expect(kNone, kNone);
    midi->Expect(3, kNone);
    EXPECT_EQ(first->wholeLists + second->wholeLists, 0);
    midi->Expect(2, kNone);
    EXPECT_EQ(first->wholeLists + second->wholeLists, 2);
    midi->Expect(3, 0);
    EXPECT_EQ(first->wholeLists + second->wholeLists, 4);
}

TEST_F(DevicesThatCome, OneThatGoesLeavesItsNumberToNobodyElseAndReturnsToIt)
{
    first->outputs = {"b"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b"));
    first->outputs = {"b", "new"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "new"));
    first->outputs = {"new", "b", "a"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "new"));
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiOutOpen(handle, 0), MidiCode::kSuccess);
    EXPECT_EQ(first->connections["a"], 1);
}

TEST_F(DevicesThatCome, WithSevenThereTheNextIsCountedBehindThem)
{
    second->outputs = {"c", "d", "e", "f", "g"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "c", "", "d", "e", "f")); // the chosen one may still come
    first->outputs = {"a", "b", "PA80:MIDI 24:0"};
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "c", "PA80:MIDI 24:0", "d", "e", "f", "g"));
}

TEST_F(DevicesThatCome, ASystemThatIsNotAtHandIsLeftForTheNextCount)
{
    second->outputs = {"new"};
    second->isAtHand = false;
    EXPECT_THAT(Counted(), ElementsAre("a", "b"));
    second->isAtHand = true;
    EXPECT_THAT(Counted(), ElementsAre("a", "b", "new"));
}

TEST_F(DeviceNumbers, WhatHasNotChangedIsNotKeptAnew)
{
    auto ports = std::make_unique<FakePorts>();
    ports->outputs = {"PA80"};
    std::vector<std::unique_ptr<MidiPorts>> systems;
    systems.push_back(std::move(ports));
    auto midi = std::make_unique<MachineMidi>(std::move(systems), KnownDevices{{{0, true, "PA80"}}, {}});
    bool isKept = false;
    midi->keep = [&](const KnownDevices &) { isKept = true; };
    midi->midiOutGetNumDevs();
    MidiHandle handle = 0;
    EXPECT_EQ(midi->midiOutOpen(handle, 0), MidiCode::kSuccess);
    midi.reset();
    EXPECT_FALSE(isKept);
}

} // namespace
} // namespace velluto::test
