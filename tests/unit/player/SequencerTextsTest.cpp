// The sentences for what the sequencer refuses, in both languages.
#include "player/SequencerTexts.h"

#include "app/Language.h"

#include <gmock/gmock.h>

#include <set>

namespace velluto::test {
namespace {

using Why = Refusal::Why;
using testing::EndsWith;
using testing::Not;

TEST(RefusalWords, NoReasonHasNoWords)
{
    EXPECT_EQ(Sentence({}, kItalianBase), "");
    EXPECT_EQ(Sentence({}, kEnglishBase), "");
    EXPECT_FALSE(Refusal{});
    EXPECT_TRUE(Refusal{Why::UnknownCommand});
}

TEST(RefusalWords, EachReasonHasASentenceOfItsOwnInBothLanguages)
{
    std::set<std::string> said;
    for (int number = 1; number <= static_cast<int>(Why::TooLong); ++number) {
        const Refusal refusal{static_cast<Why>(number), 3, 5};
        for (const int language : {kItalianBase, kEnglishBase}) {
            const std::string words = Sentence(refusal, language);
            EXPECT_THAT(words, EndsWith(".")) << number;
            EXPECT_THAT(words, Not(testing::HasSubstr("%"))) << number;
            EXPECT_TRUE(said.insert(words).second) << words;
        }
    }
}

TEST(RefusalWords, NumbersStandWhereTheyBelong)
{
    EXPECT_EQ(Sentence({Why::TrackMissing, 3, 5}, kEnglishBase), "The MIDI file is damaged: track 3 of 5 is missing.");
    EXPECT_EQ(Sentence({Why::TrackMissing, 3, 5}, kItalianBase), "Il file MIDI è danneggiato: manca la traccia 3 di 5.");
    EXPECT_EQ(Sentence({Why::CountOfTracks, 0, 65535}, kItalianBase), "Il file MIDI è danneggiato: un file di formato 0 con 65535 tracce.");
    EXPECT_EQ(Sentence({Why::TooLarge, 16}, kItalianBase), "Il file MIDI supera i 16 MB.");
}

} // namespace
} // namespace velluto::test
