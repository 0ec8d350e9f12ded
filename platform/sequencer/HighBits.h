// The highest bits of many bytes at once: where in a track the status bytes are, and the times of more than one byte. Used by TrackReader.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace velluto {

inline constexpr std::ptrdiff_t kBlock = 64; // bytes

// The highest bit of each byte of a block; that of the first byte is bit 0. For processors whose first byte of a word is its lowest.
inline std::uint64_t HighBitsByWords(const std::uint8_t *block)
{
    constexpr int kWord = 8;
    constexpr std::uint64_t kHigh = 0x8080808080808080U;
    constexpr std::uint64_t kGather = 0x0002040810204081U; // brings bit 7 of byte i to bit 56 + i
    std::uint64_t bits = 0;
    for (int i = 0; i < kBlock; i += kWord) {
        std::uint64_t word = 0;
        std::memcpy(&word, block + i, sizeof(word));
        bits |= (word & kHigh) * kGather >> 56 << i;
    }
    return bits;
}

// The same in the fewest steps that the processor has for it.
inline std::uint64_t HighBits(const std::uint8_t *block)
{
#ifdef __SSE2__
    constexpr int kRow = 16;
    using Row = char __attribute__((vector_size(kRow)));
    std::uint64_t bits = 0;
    for (int i = 0; i < kBlock; i += kRow) {
        Row row{};
        std::memcpy(&row, block + i, sizeof(row));
        bits |= std::uint64_t{static_cast<std::uint16_t>(__builtin_ia32_pmovmskb128(row))} << i;
    }
    return bits;
#else
    return HighBitsByWords(block);
#endif
}

} // namespace velluto
