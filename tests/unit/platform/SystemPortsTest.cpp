#include "platform/rtmidi/SystemPorts.h"

#include "platform/MidiDevices.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <latch>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What was asked of a system on paper, and how it answers. Outlives the system.
struct Paper {
    std::vector<bool> answers; // of Connect, in turn; the last one from then on
    std::atomic<int> connects = 0;
    std::atomic<int> activations = 0;
    bool activates = true;
    std::atomic<int> lists = 0;
    std::vector<std::string> outputs = {"synth"};
    std::latch *heldUntil = nullptr;   // Connect waits for it
    std::latch *activeUntil = nullptr; // Activate waits for it
    std::atomic<int> sources = 0;      // that were made
    std::atomic<int> sourcesEnded = 0;
};

class PaperSource : public SourcePort {
public:
    explicit PaperSource(Paper &paper) : paper_(paper) { ++paper_.sources; }
    ~PaperSource() override { ++paper_.sourcesEnded; }
    PaperSource(const PaperSource &) = delete;
    PaperSource &operator=(const PaperSource &) = delete;
    void Send(std::span<const std::uint8_t> /*message*/, TimePoint /*due*/) override {}

private:
    Paper &paper_;
};

class PaperSystem : public MidiSystem {
public:
    explicit PaperSystem(Paper &paper) : paper_(paper) {}

    [[nodiscard]] bool Alive() const override { return alive_.load(); }
    bool Connect() override
    {
        const auto turn = static_cast<std::size_t>(paper_.connects++);
        if (paper_.heldUntil != nullptr) {
            paper_.heldUntil->wait();
        }
        alive_ = paper_.answers.at(std::min(turn, paper_.answers.size() - 1));
        return alive_;
    }
    bool Activate() override
    {
        ++paper_.activations;
        if (paper_.activeUntil != nullptr) {
            paper_.activeUntil->wait();
        }
        return paper_.activates;
    }
    std::vector<std::string> Names(PortKind kind) override
    {
        ++paper_.lists;
        return kind == PortKind::Output ? paper_.outputs : std::vector<std::string>{"keys"};
    }
    bool Has(PortKind kind, const std::string &name) override
    {
        return kind == PortKind::Output ? std::ranges::count(paper_.outputs, name) > 0 : name == "keys";
    }
    [[nodiscard]] bool TellsChanges() const override { return false; }
    int OpenOutput(const std::string & /*name*/, std::unique_ptr<SystemOutput> & /*end*/) override { return MidiCode::kError; }
    int OpenInput(const std::string & /*name*/, std::shared_ptr<MessageSink> /*sink*/, std::unique_ptr<SystemInput> & /*end*/) override
    {
        return MidiCode::kError;
    }
    std::unique_ptr<SourcePort> MakeSource() override { return std::make_unique<PaperSource>(paper_); }

private:
    Paper &paper_;
    std::atomic<bool> alive_ = false;
};

// On a busy machine a moment may be too short even for a system on paper.
void AwaitAtHand(SystemPorts &ports)
{
    while (!ports.AtHand()) {
    }
}

TEST(SystemPorts, ASystemIsLookedForWhenItsPortsAreAskedFor)
{
    Paper paper{.answers = {true}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    EXPECT_EQ(paper.connects, 0);
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_THAT(ports.Inputs(), ElementsAre("keys"));
    EXPECT_EQ(paper.connects, 1);
}

TEST(SystemPorts, ALookAheadHoldsNobodyUpAndIsTheOnlyOne)
{
    std::latch answered(1);
    Paper paper{.answers = {true}, .heldUntil = &answered};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead(); // comes back although the system has not answered
    answered.count_down();
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_THAT(ports.Inputs(), ElementsAre("keys"));
    EXPECT_EQ(paper.connects, 1);
}

TEST(SystemPorts, ALookAheadThatFoundNothingIsNotTheLastWord)
{
    Paper paper{.answers = {false, true}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead();
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_EQ(paper.connects, 2);
}

TEST(SystemPorts, ASystemThatDoesNotAnswerHasNoPortsUntilItDoes)
{
    std::latch answered(1);
    Paper paper{.answers = {true}, .heldUntil = &answered};
    SystemPorts ports(std::make_unique<PaperSystem>(paper), std::chrono::milliseconds(1));
    ports.LookAhead();
    EXPECT_THAT(ports.Outputs(), IsEmpty());
    EXPECT_THAT(ports.Inputs(), IsEmpty());
    EXPECT_EQ(ports.OpenSource(), nullptr);
    answered.count_down();
    AwaitAtHand(ports);
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_EQ(paper.connects, 1);
}

TEST(SystemPorts, KnownPortsThatAreAllThereAreTheFirstListsAndNoOtherIsMade)
{
    Paper paper{.answers = {true}, .outputs = {"synth", "new"}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead({{"synth"}, {"keys"}});
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_THAT(ports.Inputs(), ElementsAre("keys"));
    EXPECT_EQ(paper.lists, 0);
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth", "new")) << "the next list is whole";
}

TEST(SystemPorts, WhereAKnownPortIsMissingOrOneKindIsUnknownTheFirstListsAreWhole)
{
    const std::vector<PortNames> notEnough = {{{"synth", "gone"}, {"keys"}}, {{"synth"}, {"gone"}}, {{"synth"}, {}}, {{}, {"keys"}}, {}};
    for (const PortNames &known : notEnough) {
        Paper paper{.answers = {true}, .outputs = {"synth", "new"}};
        SystemPorts ports(std::make_unique<PaperSystem>(paper));
        ports.LookAhead(known);
        EXPECT_THAT(ports.Outputs(), ElementsAre("synth", "new"));
        EXPECT_THAT(ports.Inputs(), ElementsAre("keys"));
    }
}

TEST(SystemPorts, WhoAsksForAllGetsWholeListsInPlaceOfKnownPorts)
{
    Paper paper{.answers = {true}, .outputs = {"synth", "new"}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead({{"synth"}, {"keys"}});
    AwaitAtHand(ports);
    ports.ListAll();
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth", "new"));
}

TEST(SystemPorts, WhoAsksForAllBeforeTheLookHasEndedGetsThemToo)
{
    std::latch answered(1);
    Paper paper{.answers = {true}, .outputs = {"synth", "new"}, .heldUntil = &answered};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead({{"synth"}, {"keys"}});
    ports.ListAll();
    answered.count_down();
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth", "new"));
}

TEST(SystemPorts, WithoutTheSystemThereAreNoPorts)
{
    Paper paper{.answers = {false}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead();
    EXPECT_THAT(ports.Outputs(), IsEmpty());
    EXPECT_EQ(ports.OpenSource(), nullptr);
    EXPECT_EQ(paper.activations, 0);
}

TEST(SystemPorts, ALookAheadThatNobodyAsksAboutEndsWithThePorts)
{
    Paper paper{.answers = {true}};
    {
        SystemPorts ports(std::make_unique<PaperSystem>(paper));
        ports.LookAhead();
    }
    EXPECT_EQ(paper.connects, 1);
}

TEST(SystemPorts, ASystemThatIsThereIsAtHand)
{
    Paper paper{.answers = {true}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    AwaitAtHand(ports);
    EXPECT_TRUE(ports.AtHand());
    EXPECT_EQ(paper.connects, 1);
    EXPECT_EQ(paper.activations, 0);
}

TEST(SystemPorts, ASystemThatComesLaterIsAtHandFromThenOn)
{
    Paper paper{.answers = {false, false, true}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    EXPECT_THAT(ports.Outputs(), IsEmpty());
    EXPECT_FALSE(ports.AtHand());
    AwaitAtHand(ports);
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_EQ(paper.connects, 3);
}

TEST(SystemPorts, WhoAsksWhetherItIsAtHandIsNotKeptAndLooksOnceOnly)
{
    std::latch answered(1);
    Paper paper{.answers = {true}, .heldUntil = &answered};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    EXPECT_FALSE(ports.AtHand());
    EXPECT_FALSE(ports.AtHand());
    answered.count_down();
    EXPECT_THAT(ports.Outputs(), ElementsAre("synth"));
    EXPECT_TRUE(ports.AtHand());
    EXPECT_EQ(paper.connects, 1);
}

TEST(SystemPorts, OnlyWhoOpensSomethingActivatesTheSystem)
{
    Paper paper{.answers = {true}};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    ports.LookAhead();
    ports.Outputs();
    ports.Inputs();
    EXPECT_EQ(paper.activations, 0);
    EXPECT_NE(ports.OpenSource(), nullptr);
    EXPECT_EQ(paper.activations, 1);
}

TEST(SystemPorts, NothingIsOpenedOnASystemThatCannotBeActivated)
{
    Paper paper{.answers = {true}, .activates = false};
    SystemPorts ports(std::make_unique<PaperSystem>(paper));
    EXPECT_EQ(ports.OpenSource(), nullptr);
    std::unique_ptr<OutputPort> port;
    EXPECT_EQ(ports.OpenOutput("synth", port), MidiCode::kNoDevice);
    EXPECT_EQ(port, nullptr);
    std::unique_ptr<InputPort> input;
    EXPECT_EQ(ports.OpenInput("keys", nullptr, input), MidiCode::kNoDevice);
    EXPECT_EQ(input, nullptr);
}

TEST(SystemPorts, ASystemThatDoesNotAnswerOpensNothingUntilItDoesAndWhatItOpensLateIsClosed)
{
    std::latch answered(1);
    Paper paper{.answers = {true}, .activeUntil = &answered};
    SystemPorts ports(std::make_unique<PaperSystem>(paper), std::chrono::milliseconds(1));
    AwaitAtHand(ports);
    EXPECT_EQ(ports.OpenSource(), nullptr);
    std::unique_ptr<OutputPort> port;
    EXPECT_EQ(ports.OpenOutput("synth", port), MidiCode::kNoDevice);
    EXPECT_LE(paper.activations, 1) << "it is asked nothing while it owes an answer";
    answered.count_down();
    std::unique_ptr<SourcePort> source;
    while (!source) {
        source = ports.OpenSource();
    }
    EXPECT_EQ(paper.sourcesEnded, paper.sources - 1);
}

} // namespace
} // namespace velluto::test
