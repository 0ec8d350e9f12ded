// What the sample files hold: names and bodies of invented items, the same on every machine and in every run.
// make-samples puts them into containers.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace samples {

using Bytes = std::vector<std::uint8_t>;

struct Item {
    std::string name; // 16 bytes, padded
    std::uint8_t place = 0;
    std::array<std::uint8_t, 7> kept{}; // four bytes before the place and three behind it, which nobody reads
    Bytes body;
};

struct Sample {
    std::string_view file;
    std::vector<Item> items;
};

[[nodiscard]] std::vector<Sample> MakeSamples();

} // namespace samples
