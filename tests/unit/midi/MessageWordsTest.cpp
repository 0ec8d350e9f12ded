// What the monitor's bytes say in words.
#include "midi/MessageWords.h"

#include "app/Language.h"

#include <gtest/gtest.h>

#include <vector>

namespace velluto::test {
namespace {

std::string Words(const std::vector<std::uint8_t> &bytes, int linguaBase = kEnglishBase)
{
    return MessagesInWords(bytes, linguaBase);
}

TEST(MessageWords, NotesHaveTheirNamesAndVelocities)
{
    EXPECT_EQ(Words({0x90, 60, 100}), "channel 1: note on C4 (60), velocity 100");
    EXPECT_EQ(Words({0x8F, 37, 64}), "channel 16: note off C#2 (37), velocity 64");
    EXPECT_EQ(Words({0x90, 60, 100}, kItalianBase), "canale 1: inizio nota C4 (60), velocity 100");
}

TEST(MessageWords, ASelectionReadsAsItsThreeMessages)
{
    EXPECT_EQ(Words({0xB0, 0, 121, 0xB0, 32, 64, 0xC0, 4}), "channel 1: bank (MSB) 121, bank (LSB) 64, program 4");
}

TEST(MessageWords, ControllersAreNamedOrNumbered)
{
    EXPECT_EQ(Words({0xB1, 7, 100}), "channel 2: volume 100");
    EXPECT_EQ(Words({0xB1, 99, 1}), "channel 2: controller 99 1");
    EXPECT_EQ(Words({0xB0, 123}), "channel 1: all notes off");
    EXPECT_EQ(Words({0xE0, 127, 0}), "channel 1: pitch bend -64");
}

TEST(MessageWords, WhatIsNoWholeMessageIsLeftOut)
{
    EXPECT_EQ(Words({}), "");
    EXPECT_EQ(Words({0x90, 60}), "");
    EXPECT_EQ(Words({1, 2, 0xF8, 0xC3, 5, 0x90}), "channel 4: program 5");
}

} // namespace
} // namespace velluto::test
