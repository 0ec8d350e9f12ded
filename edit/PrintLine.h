// The line that a listing is composed in: 84 characters, into which texts are laid by position.
#pragma once

#include <string>
#include <string_view>

namespace velluto {

class PrintLine {
public:
    static constexpr int kLength = 84;

    void Clear() { characters_.assign(kLength, U' '); }
    // The text and blanks behind it.
    void Set(std::u32string_view text);
    // Puts the text over what is there, from the 1-based position on; what falls before the first or past the last
    // position is cut off.
    void Lay(int position, std::u32string_view text);
    // Makes blanks of the zero characters from position first to position last.
    void BlankZeros(int first, int last);
    // All 84 characters.
    [[nodiscard]] std::string Utf8() const;

private:
    std::u32string characters_ = std::u32string(kLength, U' ');
};

} // namespace velluto
