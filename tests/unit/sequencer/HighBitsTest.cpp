#include "platform/sequencer/HighBits.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <random>

namespace velluto {
namespace {

using Block = std::array<std::uint8_t, kBlock>;

std::uint64_t OneByOne(const Block &block)
{
    std::uint64_t bits = 0;
    for (std::size_t i = 0; i < block.size(); ++i) {
        bits |= std::uint64_t{block[i]} >> 7 << i;
    }
    return bits;
}

class HighBitsOfBlocks : public testing::Test {
protected:
    void SetUp() override
    {
        if constexpr (std::endian::native != std::endian::little) {
            GTEST_SKIP() << "nobody asks for them there";
        }
    }
};

TEST_F(HighBitsOfBlocks, AreThoseOfEachByteEitherWay)
{
    std::mt19937 random(64);
    for (int round = 0; round < 10000; ++round) {
        Block block{};
        std::ranges::generate(block, [&] { return static_cast<std::uint8_t>(random()); });
        ASSERT_EQ(HighBitsByWords(block.data()), OneByOne(block));
        ASSERT_EQ(HighBits(block.data()), OneByOne(block));
    }
}

TEST_F(HighBitsOfBlocks, TellEachPlaceOfOneHighByte)
{
    for (std::size_t place = 0; place < kBlock; ++place) {
        Block block{};
        block.fill(0x7F);
        block[place] = 0x80;
        EXPECT_EQ(HighBitsByWords(block.data()), std::uint64_t{1} << place);
        EXPECT_EQ(HighBits(block.data()), std::uint64_t{1} << place);
    }
}

} // namespace
} // namespace velluto
