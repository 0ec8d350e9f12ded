// Makes instrument files of Programs for the scenarios, byte by byte.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velluto::scenarios {

struct ProgramItem {
    int slot = 0;     // 0-based place in the bank
    std::string name; // at most 16 bytes; padded with blanks
};

// Each item's body is made-up bytes, one more of them than the item before has.
[[nodiscard]] std::vector<std::uint8_t> ProgramFile(const std::vector<ProgramItem> &items);

} // namespace velluto::scenarios
