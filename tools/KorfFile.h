// The instrument's container as the makers write it. It shares no code with the program on purpose, so that what the
// makers write checks the program's reading and not only itself.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace makers {

using Bytes = std::vector<std::uint8_t>;

struct Item {
    std::string name; // 16 bytes, padded
    std::uint8_t place = 0;
    std::array<std::uint8_t, 7> kept{}; // four bytes before the place and three behind it, which nobody reads
    Bytes body;
};

void AppendText(Bytes &bytes, std::string_view text);
[[nodiscard]] Bytes MakeKorfFile(const std::vector<Item> &items);

} // namespace makers
