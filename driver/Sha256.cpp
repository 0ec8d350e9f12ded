#include "driver/Sha256.h"

#include "driver/Json.h"

#include <algorithm>
#include <array>
#include <bit>

namespace velluto::driver {

namespace {

constexpr std::size_t kBlock = 64;
constexpr std::size_t kRounds = 64;
constexpr std::size_t kLengthField = 8; // the length in bits, at the end of the last block

using State = std::array<std::uint32_t, 8>;
using Block = std::array<std::uint8_t, kBlock>;

constexpr std::array<std::uint32_t, kRounds> kConstants = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5, 0xd807aa98, 0x12835b01, 0x243185be,
    0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174, 0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa,
    0x5cb0a9dc, 0x76f988da, 0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967, 0x27b70a85,
    0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85, 0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3,
    0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070, 0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f,
    0x682e6ff3, 0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

std::array<std::uint32_t, kRounds> Schedule(std::span<const std::uint8_t> block)
{
    std::array<std::uint32_t, kRounds> w{};
    for (std::size_t i = 0; i < kBlock; ++i) {
        w.at(i / 4) = (w.at(i / 4) << 8) | block[i];
    }
    for (std::size_t i = 16; i < kRounds; ++i) {
        const std::uint32_t a = w.at(i - 15);
        const std::uint32_t b = w.at(i - 2);
        const std::uint32_t s0 = std::rotr(a, 7) ^ std::rotr(a, 18) ^ (a >> 3);
        const std::uint32_t s1 = std::rotr(b, 17) ^ std::rotr(b, 19) ^ (b >> 10);
        w.at(i) = w.at(i - 16) + s0 + w.at(i - 7) + s1;
    }
    return w;
}

void Digest(State &state, std::span<const std::uint8_t> block)
{
    const auto w = Schedule(block);
    auto [a, b, c, d, e, f, g, h] = state;
    for (std::size_t i = 0; i < kRounds; ++i) {
        const std::uint32_t s1 = std::rotr(e, 6) ^ std::rotr(e, 11) ^ std::rotr(e, 25);
        const std::uint32_t t1 = h + s1 + ((e & f) ^ (~e & g)) + kConstants.at(i) + w.at(i);
        const std::uint32_t s0 = std::rotr(a, 2) ^ std::rotr(a, 13) ^ std::rotr(a, 22);
        const std::uint32_t t2 = s0 + ((a & b) ^ (a & c) ^ (b & c));
        h = g;
        g = f;
        f = e;
        e = d + t1;
        d = c;
        c = b;
        b = a;
        a = t1 + t2;
    }
    const State added = {a, b, c, d, e, f, g, h};
    for (std::size_t i = 0; i < state.size(); ++i) {
        state.at(i) += added.at(i);
    }
}

} // namespace

std::string Sha256(std::span<const std::uint8_t> bytes)
{
    State state = {0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a, 0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    const std::uint64_t bits = std::uint64_t{bytes.size()} * 8;
    while (bytes.size() >= kBlock) {
        Digest(state, bytes.first(kBlock));
        bytes = bytes.subspan(kBlock);
    }
    Block last{};
    std::ranges::copy(bytes, last.begin());
    last.at(bytes.size()) = 0x80;
    if (bytes.size() >= kBlock - kLengthField) {
        Digest(state, last);
        last.fill(0);
    }
    for (std::size_t i = 0; i < kLengthField; ++i) {
        last.at(kBlock - 1 - i) = static_cast<std::uint8_t>(bits >> (8 * i));
    }
    Digest(state, last);
    std::array<std::uint8_t, 32> digest{};
    for (std::size_t i = 0; i < digest.size(); ++i) {
        digest.at(i) = static_cast<std::uint8_t>(state.at(i / 4) >> (24 - 8 * (i % 4)));
    }
    return Hexadecimal(AsText(digest));
}

} // namespace velluto::driver
