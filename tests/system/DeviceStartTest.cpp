// Which devices the program has at its start, of which servers and ports.
#include "DevicesTest.h"

namespace velluto::test {
namespace {

using testing::Contains;
using testing::Not;

TEST_F(DevicesTest, AServerThatComesAfterTheStartIsFoundByALaterCountThatKeepsNobodyWaiting)
{
    midi_ = MakeMachineMusic(files_, {}).midi;
    const std::vector<std::string> outs = Outs();
    server_.Start();
    StartInstrument();
    EXPECT_TRUE(Eventually([&]() {
        const auto begin = std::chrono::steady_clock::now();
        const auto awake = Awake();
        const auto counts = midi_->CountAgain();
        EXPECT_LT(std::chrono::steady_clock::now() - begin - (Awake() - awake), std::chrono::milliseconds(500));
        return counts->outs > static_cast<int>(outs.size());
    }));
    EXPECT_THAT(Names(midi_->CountAgain()->outs, &MidiDevices::midiOutGetDevCapsA), Contains("pa80:midi_in"));
}

TEST_F(DevicesTest, KnownPortsThatAreAllThereAreTheFirstCountAndALaterOneHasTheRest)
{
    StartAll();
    Process late({JACK_INSTRUMENT, "late"});
    ASSERT_TRUE(late.WaitUntilReady());
    midi_.reset();
    const KnownDevices known{{{0, true, "pa80:midi_in"}}, {{0, false, "keys:midi_out"}}};
    midi_ = MakeMachineMusic(files_, {}, {}, LookForMidiSystems(known)).midi;
    const std::vector<std::string> first = Outs();
    EXPECT_THAT(first, Contains("pa80:midi_in"));
    EXPECT_THAT(first, Not(Contains("late:midi_in")));
    EXPECT_THAT(Outs(), Contains("late:midi_in"));
    EXPECT_THAT(Ins(), Contains("keys:midi_out"));
}

TEST_F(DevicesTest, WhereAKnownPortIsMissingTheFirstCountHasAll)
{
    StartAll();
    for (const char *notThere : {"gone:midi_in", "keys:midi_out"}) { // the second is an input
        midi_.reset();
        const KnownDevices known{{{0, true, notThere}}, {{0, false, "keys:midi_out"}}};
        midi_ = MakeMachineMusic(files_, {}, {}, LookForMidiSystems(known)).midi;
        EXPECT_THAT(Outs(), Contains("pa80:midi_in")) << notThere;
    }
}

TEST_F(DevicesTest, AServerThatDoesNotAnswerHoldsTheStartForAMomentAndIsThereWhenItDoes)
{
    server_.Start();
    StartInstrument();
    server_.Stop();
    midi_ = MakeMachineMusic(files_, {}).midi;
    EXPECT_THAT(Outs(), Not(Contains("pa80:midi_in")));
    server_.Continue();
    EXPECT_TRUE(Eventually([this] { return NumberOf(Outs(), "pa80:midi_in") >= 0; }));
}

TEST_F(DevicesTest, WhoComesSecondToTheSystemsFindsNone)
{
    server_.Start();
    StartInstrument();
    const auto systems = LookForMidiSystems();
    const MachineMusic first = MakeMachineMusic(files_, {}, {}, systems);
    const MachineMusic second = MakeMachineMusic(files_, {}, {}, systems);
    EXPECT_GT(first.midi->midiOutGetNumDevs(), 0);
    EXPECT_EQ(second.midi->midiOutGetNumDevs(), 0);
}

} // namespace
} // namespace velluto::test
