#include "platform/rtmidi/MachineMidi.h"

#include "FakePorts.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct HeardMessage {
    std::uint32_t message;
    std::uint32_t parameter1;
    bool operator==(const HeardMessage &) const = default;
};

class MachineMidiTest : public testing::Test {
protected:
    MachineMidiTest()
    {
        auto first = std::make_unique<FakePorts>();
        auto second = std::make_unique<FakePorts>();
        synth_ = first.get();
        system_ = second.get();
        synth_->outputs = {"Built-in"};
        system_->outputs = {"PA80 out", "Other out"};
        system_->inputs = {"Keyboard", "Pads"};
        std::vector<std::unique_ptr<MidiPorts>> systems;
        systems.push_back(std::move(first));
        systems.push_back(std::move(second));
        midi_ = std::make_unique<MachineMidi>(std::move(systems));
        midi_->midiOutGetNumDevs();
        midi_->midiInGetNumDevs();
    }

    MidiHandle OpenOut(int number)
    {
        MidiHandle handle = 0;
        EXPECT_EQ(midi_->midiOutOpen(handle, number), 0);
        return handle;
    }

    MidiHandle OpenIn(int number)
    {
        MidiHandle handle = 0;
        const auto listen = [](MidiHandle, std::uint32_t message, void *self, std::uint32_t parameter1, std::uint32_t) {
            static_cast<MachineMidiTest *>(self)->heard_.push_back({message, parameter1});
        };
        EXPECT_EQ(midi_->midiInOpen(handle, number, {listen, this}), 0);
        return handle;
    }

    void Play(const std::string &input, const Bytes &message) { system_->sinks.at(input)->Deliver(message); }
    std::vector<Bytes> Pa80() { return system_->received["PA80 out"]; }

    FakePorts *synth_ = nullptr;
    FakePorts *system_ = nullptr;
    std::unique_ptr<MachineMidi> midi_;
    std::vector<HeardMessage> heard_;
};

TEST_F(MachineMidiTest, DevicesAreNumberedInTheOrderOfTheSystems)
{
    EXPECT_EQ(midi_->midiOutGetNumDevs(), 3);
    EXPECT_EQ(midi_->midiInGetNumDevs(), 2);
    MidiDeviceCaps caps;
    EXPECT_EQ(midi_->midiOutGetDevCapsA(0, caps), 0);
    EXPECT_STREQ(caps.name.data(), "Built-in");
    EXPECT_EQ(midi_->midiOutGetDevCapsA(1, caps), 0);
    EXPECT_STREQ(caps.name.data(), "PA80 out");
    EXPECT_EQ(midi_->midiInGetDevCapsA(1, caps), 0);
    EXPECT_STREQ(caps.name.data(), "Pads");
}

TEST_F(MachineMidiTest, AnUnknownNumberIsAnError)
{
    MidiDeviceCaps caps;
    MidiHandle handle = 0;
    for (const int number : {-1, 3, 99}) {
        EXPECT_EQ(midi_->midiOutGetDevCapsA(number, caps), MidiCode::kError);
        EXPECT_EQ(midi_->midiOutOpen(handle, number), MidiCode::kError);
        EXPECT_EQ(midi_->midiInOpen(handle, number, {}), MidiCode::kError);
    }
}

TEST_F(MachineMidiTest, ADeviceKeepsItsNumberWhenPortsComeAndGo)
{
    system_->outputs = {"New out", "Other out"}; // "PA80 out" has gone
    EXPECT_EQ(midi_->midiOutGetNumDevs(), 4);
    MidiDeviceCaps caps;
    midi_->midiOutGetDevCapsA(2, caps);
    EXPECT_STREQ(caps.name.data(), "Other out");
    midi_->midiOutGetDevCapsA(3, caps);
    EXPECT_STREQ(caps.name.data(), "New out");
    OpenOut(2);
    EXPECT_EQ(system_->connections["Other out"], 1);
}

TEST_F(MachineMidiTest, TheCodeOfARefusedOpeningIsHandedOn)
{
    MidiHandle handle = 7;
    system_->openCode = {{"PA80 out", MidiCode::kNoDevice}, {"Keyboard", MidiCode::kNoMemory}};
    EXPECT_EQ(midi_->midiOutOpen(handle, 1), MidiCode::kNoDevice);
    EXPECT_EQ(handle, 0U);
    EXPECT_EQ(midi_->midiInOpen(handle, 0, {}), MidiCode::kNoMemory);
}

TEST_F(MachineMidiTest, ADeviceThatIsOpenIsInUse)
{
    OpenOut(1);
    OpenIn(0);
    MidiHandle handle = 0;
    EXPECT_EQ(midi_->midiOutOpen(handle, 1), MidiCode::kAllocated);
    EXPECT_EQ(midi_->midiInOpen(handle, 0, {}), MidiCode::kAllocated);
}

TEST_F(MachineMidiTest, AShortMessageHasTheBytesThatItsStatusAsksFor)
{
    const MidiHandle out = OpenOut(1);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x7900B0)), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x4020B0)), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0000D5)), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0000FA)), 0);
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0xB0, 0x00, 0x79}, Bytes{0xB0, 0x20, 0x40}, Bytes{0xC0, 0x04}, Bytes{0xD5, 0}, Bytes{0xFA}));
}

TEST_F(MachineMidiTest, WhatIsNoShortMessageIsRefusedAndNeverLeaves)
{
    const MidiHandle out = OpenOut(1);
    for (const std::uint32_t message : {0x000000U, 0x7F3C40U, 0x0000F0U, 0x0000F7U, 0x8000B0U, 0x0080B0U, 0x0080C0U}) {
        EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(message)), MidiCode::kError) << std::hex << message;
    }
    EXPECT_THAT(Pa80(), IsEmpty());
}

TEST_F(MachineMidiTest, AHandleIsOfNoUseAfterTheClose)
{
    const MidiHandle out = OpenOut(1);
    const MidiHandle in = OpenIn(0);
    EXPECT_EQ(midi_->midiOutClose(out), 0);
    EXPECT_EQ(midi_->midiInClose(in), 0);
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), MidiCode::kError);
    EXPECT_EQ(midi_->midiOutClose(out), MidiCode::kSuccess); // what never opened can be left
    EXPECT_EQ(midi_->midiInClose(in), MidiCode::kSuccess);
    EXPECT_EQ(midi_->midiInStart(in), MidiCode::kError);
    EXPECT_EQ(midi_->midiInStop(in), MidiCode::kError);
    EXPECT_EQ(midi_->midiConnect(in, out), MidiCode::kError);
    EXPECT_EQ(midi_->midiDisconnect(in, out), MidiCode::kError);
    EXPECT_NE(OpenOut(1), out);
}

TEST_F(MachineMidiTest, ADeviceThatHasGoneGives68AndCanStillBeClosed)
{
    const MidiHandle out = OpenOut(1);
    system_->gone.insert("PA80 out");
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 68);
    EXPECT_EQ(midi_->midiOutClose(out), 0);
}

TEST_F(MachineMidiTest, ClosingEndsTheNotesThatTheProgramLeftSounding)
{
    const MidiHandle out = OpenOut(1);
    midi_->midiOutShortMsg(out, ShortMessage(0x643C90));
    midi_->midiOutShortMsg(out, ShortMessage(0x643E90));
    midi_->midiOutShortMsg(out, ShortMessage(0x403C80));
    midi_->midiOutShortMsg(out, ShortMessage(0x7F40B1));
    system_->received.clear();
    midi_->midiOutClose(out);
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x80, 0x3E, 0x40}, Bytes{0xB1, 0x40, 0x00}));
    EXPECT_EQ(system_->connections["PA80 out"], 0);
}

TEST_F(MachineMidiTest, ClosingSendsNothingWhereNothingSounds)
{
    const MidiHandle out = OpenOut(1);
    midi_->midiOutShortMsg(out, ShortMessage(0x643C90));
    midi_->midiOutShortMsg(out, ShortMessage(0x007BB0)); // all notes off
    system_->received.clear();
    midi_->midiOutClose(out);
    EXPECT_THAT(Pa80(), IsEmpty());
}

TEST_F(MachineMidiTest, TheEndOfTheProgramEndsItsNotes)
{
    struct Recorder : FakePorts {
        explicit Recorder(std::map<std::string, std::vector<Bytes>> &saved) : saved_(saved) {}
        ~Recorder() override { saved_ = received; }
        Recorder(const Recorder &) = delete;
        Recorder &operator=(const Recorder &) = delete;
        std::map<std::string, std::vector<Bytes>> &saved_;
    };
    std::map<std::string, std::vector<Bytes>> saved;
    auto ports = std::make_unique<Recorder>(saved);
    ports->outputs = {"PA80 out"};
    std::vector<std::unique_ptr<MidiPorts>> systems;
    systems.push_back(std::move(ports));
    auto midi = std::make_unique<MachineMidi>(std::move(systems));
    midi->midiOutGetNumDevs();
    MidiHandle out = 0;
    ASSERT_EQ(midi->midiOutOpen(out, 0), 0);
    midi->midiOutShortMsg(out, ShortMessage(0x643C90));
    midi.reset();
    EXPECT_THAT(saved["PA80 out"], ElementsAre(Bytes{0x90, 0x3C, 0x64}, Bytes{0x80, 0x3C, 0x40}));
}

TEST_F(MachineMidiTest, TheOpenOutputIsToldAndTheEndOfTheDevicesIsNot)
{
    std::vector<std::string> told;
    midi_->outputChanged = [&](const ListedPort &output) {
        EXPECT_EQ(output.system, output.name == "PA80 out" ? system_ : nullptr);
        told.push_back(output.name);
    };
    const MidiHandle out = OpenOut(1);
    EXPECT_THAT(told, ElementsAre("PA80 out"));
    midi_->midiOutClose(out);
    EXPECT_THAT(told, ElementsAre("PA80 out", ""));
    system_->openCode["Other out"] = MidiCode::kAllocated;
    MidiHandle handle = 0;
    midi_->midiOutOpen(handle, 2);
    EXPECT_EQ(told.size(), 2U);
    OpenOut(1);
    midi_.reset();
    EXPECT_EQ(told.size(), 3U);
}

TEST_F(MachineMidiTest, NotesOnADeviceThatWentAwayEndWhenItIsOpenedAgain)
{
    const MidiHandle out = OpenOut(1);
    midi_->midiOutShortMsg(out, ShortMessage(0x643C90));
    system_->gone.insert("PA80 out");
    midi_->midiOutClose(out);
    system_->gone.clear();
    system_->received.clear();
    midi_->midiOutClose(OpenOut(1));
    OpenOut(1);
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x80, 0x3C, 0x40}));
}

TEST_F(MachineMidiTest, TheCallbackHearsOpenDataAndClose)
{
    const MidiHandle in = OpenIn(0);
    midi_->midiInStart(in);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    Play("Keyboard", {0xC1, 0x05});
    midi_->midiInClose(in);
    EXPECT_THAT(heard_,
                ElementsAre(HeardMessage{0x3C1, 0}, HeardMessage{0x3C3, 0x643C90}, HeardMessage{0x3C3, 0x05C1}, HeardMessage{0x3C2, 0}));
}

TEST_F(MachineMidiTest, NothingIsDeliveredBeforeStartAndAfterStop)
{
    const MidiHandle in = OpenIn(0);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    midi_->midiInStart(in);
    midi_->midiInStop(in);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    EXPECT_THAT(heard_, ElementsAre(HeardMessage{0x3C1, 0}));
}

TEST_F(MachineMidiTest, TheCallbackHearsNoSystemExclusiveAndNoTiming)
{
    const MidiHandle in = OpenIn(0);
    midi_->midiInStart(in);
    for (const Bytes &message :
         {Bytes{0xF0, 0x42, 0xF7}, Bytes{0xF0, 0x42, 0x30, 0x7F, 0xF7}, Bytes{0xF8}, Bytes{0xFE}, Bytes{0xF1, 0x10}, Bytes{}}) {
        Play("Keyboard", message);
    }
    Play("Keyboard", {0xFA});
    EXPECT_THAT(heard_, ElementsAre(HeardMessage{0x3C1, 0}, HeardMessage{0x3C3, 0xFA}));
}

TEST_F(MachineMidiTest, ThruHandsEverythingToItsOwnConnection)
{
    const MidiHandle in = OpenIn(0);
    const MidiHandle out = OpenOut(1);
    EXPECT_EQ(midi_->midiConnect(in, out), 0);
    EXPECT_EQ(system_->connections["PA80 out"], 2);
    Play("Keyboard", {0x90, 0x30, 0x40}); // not started yet
    EXPECT_EQ(midi_->midiInStart(in), 0);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    Play("Keyboard", {0x80, 0x3C, 0x40});
    Play("Keyboard", {0xF0, 0x42, 0x30, 0xF7});
    Play("Keyboard", {0xF8});
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x90, 0x3C, 0x64}, Bytes{0x80, 0x3C, 0x40}, Bytes{0xF0, 0x42, 0x30, 0xF7}, Bytes{0xF8}));
}

TEST_F(MachineMidiTest, ThruEndsWithTheDisconnectAndLeavesNoNote)
{
    const MidiHandle in = OpenIn(0);
    const MidiHandle out = OpenOut(1);
    midi_->midiConnect(in, out);
    midi_->midiInStart(in);
    Play("Keyboard", {0x92, 0x3C, 0x64});
    system_->received.clear();
    EXPECT_EQ(midi_->midiDisconnect(in, out), 0);
    Play("Keyboard", {0x92, 0x40, 0x64});
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x82, 0x3C, 0x40}));
    EXPECT_EQ(system_->connections["PA80 out"], 1);
}

TEST_F(MachineMidiTest, ThruEndsWithTheCloseOfEitherDeviceAndLeavesNoNote)
{
    for (const bool closeInput : {true, false}) {
        const MidiHandle in = OpenIn(0);
        const MidiHandle out = OpenOut(1);
        midi_->midiConnect(in, out);
        midi_->midiInStart(in);
        Play("Keyboard", {0x92, 0x3C, 0x64});
        system_->received.clear();
        if (closeInput) {
            midi_->midiInClose(in);
            EXPECT_EQ(system_->connections["PA80 out"], 1);
            midi_->midiOutClose(out);
        } else {
            midi_->midiOutClose(out);
            Play("Keyboard", {0x92, 0x40, 0x64});
            EXPECT_EQ(system_->connections["PA80 out"], 0);
            midi_->midiInClose(in);
        }
        EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x82, 0x3C, 0x40})) << closeInput;
    }
}

TEST_F(MachineMidiTest, ANewOutputIsNotLinkedByItself)
{
    const MidiHandle in = OpenIn(0);
    const MidiHandle out = OpenOut(1);
    midi_->midiConnect(in, out);
    midi_->midiInStart(in);
    midi_->midiOutClose(out);
    OpenOut(1);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    EXPECT_THAT(Pa80(), IsEmpty());
}

TEST_F(MachineMidiTest, StopEndsTheNotesOfThru)
{
    const MidiHandle in = OpenIn(0);
    midi_->midiConnect(in, OpenOut(1));
    midi_->midiInStart(in);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    system_->received.clear();
    midi_->midiInStop(in);
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x80, 0x3C, 0x40}));
}

TEST_F(MachineMidiTest, AnInputThatGoesAwayLeavesNoNoteOfThru)
{
    const MidiHandle in = OpenIn(0);
    midi_->midiConnect(in, OpenOut(1));
    midi_->midiInStart(in);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    system_->received.clear();
    system_->sinks.at("Keyboard")->Gone();
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0x80, 0x3C, 0x40}));
}

TEST_F(MachineMidiTest, AnInputThatGoesAwayLeavesTheOutputAtWork)
{
    const MidiHandle in = OpenIn(0);
    const MidiHandle out = OpenOut(1);
    midi_->midiConnect(in, out);
    midi_->midiInStart(in);
    system_->sinks.at("Keyboard")->Gone();
    EXPECT_EQ(midi_->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0);
    EXPECT_THAT(Pa80(), ElementsAre(Bytes{0xC0, 4}));
}

TEST_F(MachineMidiTest, DisconnectingWhatWasNeverConnectedSucceeds)
{
    EXPECT_EQ(midi_->midiDisconnect(OpenIn(0), OpenOut(1)), 0);
}

TEST_F(MachineMidiTest, ARefusedConnectionIsNoLink)
{
    const MidiHandle in = OpenIn(0);
    const MidiHandle out = OpenOut(1);
    system_->openCode["PA80 out"] = MidiCode::kNoDevice;
    EXPECT_EQ(midi_->midiConnect(in, out), MidiCode::kNoDevice);
    midi_->midiInStart(in);
    Play("Keyboard", {0x90, 0x3C, 0x64});
    EXPECT_THAT(Pa80(), IsEmpty());
}

} // namespace
} // namespace velluto::test
