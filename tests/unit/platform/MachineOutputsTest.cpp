// The sequencer's way to the chosen device, with ports on paper: what goes where, and what is left sounding.
#include "platform/rtmidi/MachineOutputs.h"

#include "FakePorts.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Bytes kNoteOn = {0x90, 60, 100};
const Bytes kNoteOff = {0x80, 60, 64};
const Bytes kProgram = {0xC0, 5};

struct MachineOutputsTest : testing::Test {
    MachineOutputsTest()
    {
        auto made = std::make_unique<FakePorts>();
        synthesizers = made.get();
        synthesizers->outputs = {"Built-in"};
        system.outputs = {"PA80", "Other"};
        outputs = std::make_unique<MachineOutputs>(std::move(made), std::vector<SystemPorts *>());
    }

    void Choose(const ListedPort &device) const
    {
        outputs->Choose(device);
        outputs->Move();
    }
    void Send(const Bytes &message) const { outputs->Send(message, {}); }
    std::vector<Bytes> Synthesizer() const { return synthesizers->received["Built-in"]; }

    FakePorts system;
    FakePorts *synthesizers = nullptr;
    std::unique_ptr<MachineOutputs> outputs;
    const ListedPort pa80{&system, "PA80"};
    const ListedPort other{&system, "Other"};
};

TEST_F(MachineOutputsTest, WithoutADeviceTheSynthesizerPlays)
{
    EXPECT_TRUE(outputs->Wake());
    EXPECT_FALSE(outputs->Wake());
    Send(kNoteOn);
    EXPECT_THAT(Synthesizer(), ElementsAre(kNoteOn));
    outputs->Rest();
    EXPECT_EQ(synthesizers->connections["Built-in"], 0);
    EXPECT_TRUE(outputs->Wake());
}

TEST_F(MachineOutputsTest, TheChosenDevicePlaysAloneAndIsNewOnce)
{
    Choose(pa80);
    EXPECT_EQ(system.connections["PA80"], 0); // not before a play
    EXPECT_TRUE(outputs->Wake());
    Send(kNoteOn);
    outputs->Rest();
    EXPECT_FALSE(outputs->Wake());
    EXPECT_EQ(system.connections["PA80"], 1);
    EXPECT_THAT(system.received["PA80"], ElementsAre(kNoteOn));
    EXPECT_THAT(Synthesizer(), IsEmpty());
    EXPECT_EQ(synthesizers->connections["Built-in"], 0);
}

TEST_F(MachineOutputsTest, TheDeviceIsToldWhenAMessageIsDue)
{
    const PlayerOutputs::TimePoint due(std::chrono::seconds(7));
    Choose(pa80);
    outputs->Wake();
    outputs->Send(kNoteOn, due);
    EXPECT_THAT(system.dues["PA80"], ElementsAre(due));
}

TEST_F(MachineOutputsTest, AnotherChoiceLeavesNoNoteOnTheFirst)
{
    Choose(pa80);
    outputs->Wake();
    Send(kNoteOn);
    Choose(other);
    EXPECT_THAT(system.received["PA80"], ElementsAre(kNoteOn, kNoteOff));
    EXPECT_EQ(system.connections["PA80"], 0);
    EXPECT_TRUE(outputs->Wake());
    Send(kProgram);
    EXPECT_THAT(system.received["Other"], ElementsAre(kProgram));
    Choose({});
    EXPECT_TRUE(outputs->Wake());
    Send(kProgram);
    EXPECT_THAT(Synthesizer(), ElementsAre(kProgram));
    Choose(pa80);
    EXPECT_TRUE(outputs->Wake());
    EXPECT_EQ(synthesizers->connections["Built-in"], 0);
}

TEST_F(MachineOutputsTest, TheSameChoiceChangesNothing)
{
    Choose(pa80);
    outputs->Wake();
    Send(kNoteOn);
    Choose(pa80);
    EXPECT_FALSE(outputs->Wake());
    EXPECT_THAT(system.received["PA80"], ElementsAre(kNoteOn));
}

TEST_F(MachineOutputsTest, TheEndLeavesNoNote)
{
    Choose(pa80);
    outputs->Wake();
    Send(kNoteOn);
    outputs.reset();
    EXPECT_THAT(system.received["PA80"], ElementsAre(kNoteOn, kNoteOff));
}

TEST_F(MachineOutputsTest, ADeviceThatCannotBeHadLeavesThePlayToTheSynthesizer)
{
    system.openCode["PA80"] = MidiCode::kAllocated;
    Choose(pa80);
    EXPECT_TRUE(outputs->Wake());
    Send(kNoteOn);
    EXPECT_THAT(Synthesizer(), ElementsAre(kNoteOn));
    system.openCode["PA80"] = MidiCode::kSuccess;
    EXPECT_TRUE(outputs->Wake());
    Send(kProgram);
    EXPECT_THAT(system.received["PA80"], ElementsAre(kProgram));
}

TEST_F(MachineOutputsTest, ADeviceThatGoesTakesThePlayWithItAndTheNextGoesToTheSynthesizer)
{
    Choose(pa80);
    outputs->Wake();
    system.gone = {"PA80"};
    Send(kNoteOn);
    EXPECT_THAT(Synthesizer(), IsEmpty());
    system.openCode["PA80"] = MidiCode::kNoDevice;
    EXPECT_TRUE(outputs->Wake());
    Send(kNoteOn);
    EXPECT_THAT(Synthesizer(), ElementsAre(kNoteOn));
}

TEST_F(MachineOutputsTest, NotesOnADeviceThatWentEndWhenItIsBack)
{
    Choose(pa80);
    outputs->Wake();
    Send(kNoteOn);
    system.gone = {"PA80"};
    system.openCode["PA80"] = MidiCode::kNoDevice;
    outputs->Wake();
    system.gone.clear();
    system.openCode.clear();
    system.received.clear();
    EXPECT_TRUE(outputs->Wake());
    EXPECT_THAT(system.received["PA80"], ElementsAre(kNoteOff));
}

} // namespace
} // namespace velluto::test
