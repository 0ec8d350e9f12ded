#include "app/Catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>

using namespace velluto;

namespace {

// The ids from 1 to 155 that have no text.
const std::set<int> kGaps{6,  10, 31, 32, 33, 34,  35,  36,  38,  39,  40,  41,  42,  43,  55,  56,  57,  58,  59,
                          60, 61, 80, 89, 97, 102, 107, 120, 121, 124, 132, 133, 134, 135, 136, 137, 139, 140, 142};

} // namespace

TEST(Catalogue, TheEnglishTextIsTwoHundredAboveTheItalianOne)
{
    EXPECT_EQ(LoadResString(15), "File assente");
    EXPECT_EQ(LoadResString(215), "File not found");
    EXPECT_EQ(LoadResString(7), "&Esci");
    EXPECT_EQ(LoadResString(207), "E&xit");
    EXPECT_EQ(LoadResString(155), "Dispositivo MCI non pronto");
    EXPECT_EQ(LoadResString(355), "MCI device not ready");
}

TEST(Catalogue, TextsAreUtf8)
{
    EXPECT_EQ(LoadResString(18), "Dispositivo MIDI di Uscita gi\xC3\xA0 in uso");
    EXPECT_EQ(LoadResString(66), "Il cambio avr\xC3\xA0 effetto alla prossima esecuzione del programma");
}

TEST(Catalogue, BlanksAtTheEndsStay)
{
    EXPECT_EQ(LoadResString(17), "Apertura di");
    EXPECT_EQ(LoadResString(217), "Opening ");
    EXPECT_EQ(LoadResString(111), "Apertura di ");
    EXPECT_EQ(LoadResString(119), " ");
    EXPECT_EQ(LoadResString(319), " ");
}

TEST(Catalogue, HoldsEveryIdButTheGapsInBothLanguages)
{
    for (int id = 1; id <= 155; ++id) {
        if (kGaps.contains(id)) {
            EXPECT_THROW((void)LoadResString(id), std::out_of_range) << id;
            EXPECT_THROW((void)LoadResString(id + 200), std::out_of_range) << id;
        } else {
            EXPECT_FALSE(LoadResString(id).empty()) << id;
            EXPECT_FALSE(LoadResString(id + 200).empty()) << id;
        }
    }
}

TEST(Catalogue, IdsOutsideTheTwoRangesHaveNoText)
{
    for (const int id : {-1, 0, 156, 199, 200, 356, 1000}) {
        EXPECT_THROW((void)LoadResString(id), std::out_of_range) << id;
    }
}

TEST(Catalogue, OnlySevenTextsHoldThePlaceholderAndEachOnce)
{
    const std::set<int> withPlaceholder{1, 14, 79, 96, 99, 100, 101};
    for (int id = 1; id <= 155; ++id) {
        if (kGaps.contains(id)) {
            continue;
        }
        for (const int language : {0, 200}) {
            const std::string_view text = LoadResString(id + language);
            EXPECT_EQ(std::ranges::count(text, '_'), withPlaceholder.contains(id) ? 1 : 0) << id + language;
        }
    }
}
