// A text field of a fixed number of bytes, blank-padded, as the settings file and the document records hold it.
#pragma once

#include "view/Tag.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace velluto {

[[nodiscard]] inline std::string_view RightTrimmed(std::string_view text)
{
    const auto last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view{} : text.substr(0, last + 1);
}

template <std::size_t N>
class FixedText {
public:
    FixedText() { bytes_.fill(' '); }

    // Takes what fits of the text and fills the rest with blanks.
    void Set(std::string_view text)
    {
        bytes_.fill(' ');
        std::copy_n(text.begin(), std::min(text.size(), N), bytes_.begin());
    }
    [[nodiscard]] static constexpr bool Fits(std::string_view text) { return text.size() <= N; }

    [[nodiscard]] std::string_view All() const { return {bytes_.data(), N}; }
    [[nodiscard]] std::string Trimmed() const { return std::string(RightTrimmed(All())); }
    // No text: all blanks, or a zero byte in the fifth place.
    [[nodiscard]] bool IsEmptyEntry() const { return RightTrimmed(All()).empty() || bytes_[4] == '\0'; }
    bool operator==(const FixedText &) const = default;

private:
    std::array<char, N> bytes_;
};

using PathText = FixedText<kPathLength>;

} // namespace velluto
