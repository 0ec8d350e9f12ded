#include "platform/rtmidi/ProductName.h"

#include <gtest/gtest.h>

#include <string>

namespace velluto::test {
namespace {

// The name as the record holds it: up to its first zero character, or all 32.
std::string Name(std::string_view portName)
{
    const MidiDeviceCaps caps = ProductName(portName);
    const std::string all(caps.name.begin(), caps.name.end());
    return all.substr(0, all.find('\0'));
}

TEST(ProductName, AShortNameIsKept)
{
    EXPECT_EQ(Name("PA80:PA80 MIDI 1 24:0"), "PA80:PA80 MIDI 1 24:0");
}

TEST(ProductName, ANameOf32BytesFillsTheRecordWithoutAZero)
{
    const std::string name(32, 'x');
    EXPECT_EQ(Name(name), name);
}

TEST(ProductName, ALongerNameIsCutAt32Bytes)
{
    EXPECT_EQ(Name("12345678901234567890123456789012tail"), "12345678901234567890123456789012");
}

TEST(ProductName, ACharacterIsNeverCutInTwo)
{
    const std::string before(31, 'x');
    EXPECT_EQ(Name(before + "\xC3\xA8"), before); // two bytes do not fit into the one that is left
    const std::string room(30, 'x');
    EXPECT_EQ(Name(room + "\xC3\xA8"), room + "\xC3\xA8");
    const std::string four(29, 'x');
    EXPECT_EQ(Name(four + "\xF0\x9F\x8E\xB9"), four);
}

TEST(ProductName, BytesThatAreNoUtf8BecomeQuestionMarks)
{
    EXPECT_EQ(Name("a\xE8z"), "a?z");
    EXPECT_EQ(Name("a\xC3"), "a?");
    EXPECT_EQ(Name("\xED\xA0\x80"), "???"); // half of a surrogate pair
    EXPECT_EQ(Name("\xC0\xAF"), "??");      // longer than it need be
    EXPECT_EQ(Name("tab\there"), "tab?here");
}

TEST(IsOwnPort, TellsTheProgramsClientsByNameAndNumber)
{
    EXPECT_TRUE(IsOwnPort("Velluto:out"));
    EXPECT_TRUE(IsOwnPort("Velluto-01:in"));
    EXPECT_FALSE(IsOwnPort("Velluto Piano:out"));
    EXPECT_FALSE(IsOwnPort("Velluto-:out"));
    EXPECT_FALSE(IsOwnPort("Velluto-1a:out"));
    EXPECT_FALSE(IsOwnPort("Velluto"));
    EXPECT_FALSE(IsOwnPort("PA80:Velluto"));
}

} // namespace
} // namespace velluto::test
