// Bytes and UTF-8 as characters.
#include "app/Characters.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

using namespace std::string_literals;

TEST(Characters, BytesBecomeTheirWindows1252Characters)
{
    EXPECT_EQ(CharactersOfBytes("aZ 9"), U"aZ 9");
    EXPECT_EQ(CharactersOfBytes("\x80\x9F\xA0\xE9\xFF"), U"€Ÿ\u00A0éÿ");
    EXPECT_EQ(CharactersOfBytes("a\0b"s), U"a\0b"s);
}

TEST(Characters, BytesWithoutACharacterBecomeTheControlCharacterOfTheirNumber)
{
    const std::u32string expected{0x81, 0x8D, 0x8F, 0x90, 0x9D};
    EXPECT_EQ(CharactersOfBytes("\x81\x8D\x8F\x90\x9D"), expected);
}

TEST(Characters, EveryByteIsTheByteOfItsOwnCharacter)
{
    for (int number = 0; number < 256; ++number) {
        const std::string byte(1, static_cast<char>(number));
        EXPECT_EQ(ByteOfCharacter(CharactersOfBytes(byte).front()), byte.front()) << number;
    }
}

TEST(Characters, ACharacterWithoutAByteHasNone)
{
    EXPECT_EQ(ByteOfCharacter(U'€'), '\x80');
    EXPECT_EQ(ByteOfCharacter(U'\u0080'), std::nullopt);
    EXPECT_EQ(ByteOfCharacter(U'\u0100'), std::nullopt);
    EXPECT_EQ(ByteOfCharacter(U'≤'), std::nullopt);
    EXPECT_EQ(ByteOfCharacter(U'𝄞'), std::nullopt);
}

TEST(Characters, Utf8OfEveryLengthIsOneCharacterEach)
{
    EXPECT_EQ(CharactersOfText("aé€𝄞"), U"aé€𝄞");
    EXPECT_EQ(CharactersOfText("\0"s), U"\0"s);
    EXPECT_EQ(CharactersOfText(""), U"");
}

TEST(Characters, ATextThatIsNoUtf8IsTakenByteByByte)
{
    EXPECT_EQ(CharactersOfText("\xE9"), U"é");
    EXPECT_EQ(CharactersOfText("caf\xE9!"), U"café!");
    EXPECT_EQ(CharactersOfText("\xC3\xA9\xFF"), U"Ã©ÿ");
}

TEST(Characters, OverlongFormsSurrogatesAndNumbersBeyondTheLastAreNoUtf8)
{
    EXPECT_EQ(CharactersOfText("\xC1\xA9").size(), 2U);
    EXPECT_EQ(CharactersOfText("\xE0\x80\xA9").size(), 3U);
    EXPECT_EQ(CharactersOfText("\xF0\x80\x80\xA9").size(), 4U);
    EXPECT_EQ(CharactersOfText("\xED\xA0\x80").size(), 3U);
    EXPECT_EQ(CharactersOfText("\xF4\x90\x80\x80").size(), 4U);
    EXPECT_EQ(CharactersOfText("\x80").size(), 1U);
    EXPECT_EQ(CharactersOfText("\xE2\x82"), U"â‚");
}

TEST(Characters, TheEdgesOfEachLengthComeBack)
{
    const std::u32string edges{0, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFF, 0x10000, 0x10FFFF};
    EXPECT_EQ(CharactersOfText(Utf8Of(edges)), edges);
    EXPECT_EQ(Utf8Of(edges).size(), 1U + 1 + 2 + 2 + 3 + 3 + 3 + 3 + 4 + 4);
    EXPECT_EQ(Utf8Of(U"é€𝄞"), "\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E");
}

} // namespace
} // namespace velluto::test
