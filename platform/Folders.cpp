#include "platform/Folders.h"

#include <algorithm>
#include <cstddef>

namespace velluto {

namespace {

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(char one, char other)
{
    return Upper(one) == Upper(other);
}

} // namespace

bool MatchesPattern(std::string_view name, std::string_view pattern)
{
    std::size_t at = 0;
    std::size_t star = std::string_view::npos; // the latest "*" in the pattern
    std::size_t retry = 0;                     // what of the name it has not swallowed yet
    std::size_t in = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == '*') {
            star = in++;
            retry = at;
        } else if (in < pattern.size() && SameLetter(pattern[in], name[at])) {
            ++in;
            ++at;
        } else if (star != std::string_view::npos) {
            in = star + 1;
            at = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', in) == std::string_view::npos;
}

bool ComesBefore(std::string_view name, std::string_view other)
{
    const auto differ = std::ranges::mismatch(name, other, SameLetter);
    if (differ.in1 == name.end() && differ.in2 == other.end()) {
        return name < other;
    }
    if (differ.in1 == name.end() || differ.in2 == other.end()) {
        return differ.in1 == name.end();
    }
    return static_cast<unsigned char>(Upper(*differ.in1)) < static_cast<unsigned char>(Upper(*differ.in2));
}

} // namespace velluto
