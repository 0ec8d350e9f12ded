#include "edit/PrintLine.h"

#include "app/Characters.h"

#include <algorithm>
#include <cstdint>

namespace velluto {

void PrintLine::Set(std::u32string_view text)
{
    Clear();
    Lay(1, text);
}

void PrintLine::Lay(int position, std::u32string_view text)
{
    std::int64_t at = std::int64_t{position} - 1;
    for (const char32_t character : text) {
        if (at >= 0 && at < kLength) {
            characters_[static_cast<std::size_t>(at)] = character;
        }
        ++at;
    }
}

void PrintLine::BlankZeros(int first, int last)
{
    std::replace(characters_.begin() + first - 1, characters_.begin() + last, U'\0', U' ');
}

std::string PrintLine::Utf8() const
{
    return Utf8Of(characters_);
}

} // namespace velluto
