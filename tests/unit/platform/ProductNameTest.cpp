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

TEST(ProductName, ALongerNameKeepsItsEnd)
{
    EXPECT_EQ(Name("1234567890123456789012345678901 1"), "1234567890123...89012345678901 1");
}

TEST(ProductName, AClientsNameThatItsPortRepeatsGoesWhereTheNameIsTooLong)
{
    EXPECT_EQ(Name("USB Keyboard:USB Keyboard MIDI 1 24:0"), "USB Keyboard MIDI 1 24:0");
    EXPECT_EQ(Name("USB MIDI:USB MIDI MIDI 1 24:0"), "USB MIDI:USB MIDI MIDI 1 24:0"); // short enough
    EXPECT_EQ(Name("A Very Long Keyboard Name:A Very Long Keyboard Name MIDI 1 24:0"), "A Very Long K...Name MIDI 1 24:0");
}

TEST(ProductName, ACharacterIsNeverCutInTwo)
{
    const std::string room(30, 'x');
    EXPECT_EQ(Name(room + "\xC3\xA8"), room + "\xC3\xA8");
    const std::string head(12, 'x');
    const std::string tail(15, 'x');
    EXPECT_EQ(Name(head + "\xC3\xA8" + tail + "xxxxx"), head + "...x" + tail); // half of the two bytes would have had room
    EXPECT_EQ(Name(head + "xxxxxx\xF0\x9F\x8E\xB9" + tail), head + "x..." + tail);
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
