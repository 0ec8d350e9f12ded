#include "driver/Sha256.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velluto::driver {
namespace {

std::string DigestOf(const std::string &text)
{
    return Sha256(std::vector<std::uint8_t>(text.begin(), text.end()));
}

TEST(Sha256, OfNothing)
{
    EXPECT_EQ(DigestOf(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
}

TEST(Sha256, OfOneBlock)
{
    EXPECT_EQ(DigestOf("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST(Sha256, OfATextWhoseLengthNeedsABlockOfItsOwn)
{
    EXPECT_EQ(DigestOf("abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq"),
              "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1");
}

TEST(Sha256, OfTwoBlocks)
{
    EXPECT_EQ(DigestOf("abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrlmnopqrsmnopqrstnopqrstu"),
              "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1");
}

TEST(Sha256, OfAMillionCharacters)
{
    EXPECT_EQ(DigestOf(std::string(1000000, 'a')), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0");
}

} // namespace
} // namespace velluto::driver
