// Random files and random commands on them, done by the program and by the plain editor: after every step both hold the
// same bytes, rows, tables, clipboard and menu. A failure prints its seed and the shortest sequence that still fails.
//
//     VELLUTO_EDIT_SEEDS=1000:5000 unit_edit --gtest_filter=RandomEdits.SeedsOfTheEnvironment
#include "unit/edit/EditStage.h"
#include "unit/files/InstrumentFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <sstream>

namespace velluto::test {
namespace {

struct Failure {
    std::string difference;
    std::size_t step; // of the sequence, from 0
    std::vector<std::string> log;
};

std::optional<Failure> Play(const EditSequence &sequence)
{
    EditStage stage(sequence);
    for (std::size_t i = 0; i < sequence.steps.size(); ++i) {
        if (auto difference = stage.Do(sequence.steps[i])) {
            return Failure{*difference, i, stage.Log()};
        }
    }
    return std::nullopt;
}

// Takes out every step without which the sequence fails as well.
EditSequence Shrunk(EditSequence sequence, const Failure &failure)
{
    sequence.steps.resize(failure.step + 1);
    for (std::size_t i = sequence.steps.size() - 1; i-- > 0;) {
        EditSequence shorter = sequence;
        shorter.steps.erase(shorter.steps.begin() + static_cast<std::ptrdiff_t>(i));
        if (const auto still = Play(shorter)) {
            shorter.steps.resize(still->step + 1);
            sequence = shorter;
            i = std::min(i, sequence.steps.size() - 1);
        }
    }
    return sequence;
}

std::string Dump(const Bytes &bytes)
{
    constexpr std::size_t kMost = 1200;
    std::ostringstream out;
    for (std::size_t i = 0; i < std::min(bytes.size(), kMost); ++i) {
        constexpr const char *kDigits = "0123456789ABCDEF";
        out << (i % 24 == 12 ? "\n      " : i % 12 == 0 ? " " : "") << kDigits[bytes[i] / 16] << kDigits[bytes[i] % 16];
    }
    return out.str();
}

std::string Story(const EditSequence &sequence, const Failure &failure)
{
    std::ostringstream out;
    out << failure.difference << "\n";
    for (const std::string &line : failure.log) {
        out << "  " << line << "\n";
    }
    for (std::size_t i = 0; i < sequence.documents.size(); ++i) {
        const bool used = std::ranges::any_of(sequence.steps, [i](const EditStep &step) { return step.document == i; });
        if (used) {
            const RandomDocument &document = sequence.documents[i];
            out << "  document " << i << ": origin " << static_cast<int>(document.origin) << ", bank " << document.bank << ", "
                << document.file.size() << " bytes\n     " << Dump(document.file) << "\n";
        }
    }
    return out.str();
}

void Compare(unsigned first, unsigned count)
{
    for (unsigned seed = first; seed < first + count; ++seed) {
        const EditSequence sequence = RandomSequence(seed);
        if (const auto failure = Play(sequence)) {
            const EditSequence shrunk = Shrunk(sequence, *failure);
            const auto again = Play(shrunk);
            ADD_FAILURE() << "seed " << seed << ", step " << failure->step << ": " << failure->difference
                          << "\nshortest: " << (again ? Story(shrunk, *again) : "none");
            return;
        }
    }
}

constexpr unsigned kSeedsOfATest = 100;

// For a longer search by hand: where the seeds begin.
unsigned FirstSeed()
{
    const char *given = std::getenv("VELLUTO_EDIT_SEEDS"); // NOLINT(concurrency-mt-unsafe): nobody changes it
    return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : 0;
}

class RandomEdits : public testing::TestWithParam<unsigned> {};

TEST_P(RandomEdits, DoWhatThePlainEditorDoes)
{
    Compare(FirstSeed() + GetParam() * kSeedsOfATest, kSeedsOfATest);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Range(0U, 8U));

// What random files hardly hit: a single item whose body looks like a second entry of the same slot.
TEST(RandomEdits, APartnerThatOnlyTheDirectorySees)
{
    Bytes body(30, 'p');
    body[20] = 5;
    const std::vector<Item> grouped = {{"A", 0, {1}}, {"B", 2, {2}}, {"C", 4, {3}}, {"D", 0, {4}}, {"E", 2, {5}}, {"F", 4, {6}}};
    EditSequence sequence;
    sequence.documents = {{Origin::PerformanceFile, 0, InstrumentFile({{"P", 5, body}})}, {Origin::StyleFile, 0, InstrumentFile(grouped)}};
    sequence.steps = {{Action::Open, 0},
                      {Action::Open, 1},
                      {Action::Select, 0, Rows::Occupied, 0, 1},
                      {Action::Copy, 0},
                      {Action::Select, 1, Rows::Empty, 0, 200},
                      {Action::PastePastMenu, 1}};
    const auto failure = Play(sequence);
    EXPECT_FALSE(failure) << (failure ? Story(sequence, *failure) : "");
}

} // namespace
} // namespace velluto::test
