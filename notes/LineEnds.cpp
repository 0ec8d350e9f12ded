#include "notes/LineEnds.h"

namespace velluto {

std::u32string WithCrLf(std::u32string_view text)
{
    std::u32string result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != U'\r' && text[at] != U'\n') {
            result += text[at];
            continue;
        }
        if (text[at] == U'\r' && at + 1 < text.size() && text[at + 1] == U'\n') {
            ++at;
        }
        result += U"\r\n";
    }
    return result;
}

} // namespace velluto
