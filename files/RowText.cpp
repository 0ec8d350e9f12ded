#include "files/RowText.h"

#include <algorithm>
#include <cstddef>

namespace velluto {

std::string WithLeadingZeros(int number, int digits)
{
    const std::string text = std::to_string(number);
    const auto wanted = static_cast<std::size_t>(digits);
    return std::string(wanted - std::min(text.size(), wanted), '0') + text;
}

void BlankPadding(std::string &row)
{
    constexpr std::size_t kUntouchedEnd = 4;
    for (std::size_t length = row.size(); length > kUntouchedEnd && row[length - kUntouchedEnd - 1] == '\0'; --length) {
        row[length - kUntouchedEnd - 1] = ' ';
    }
}

} // namespace velluto
