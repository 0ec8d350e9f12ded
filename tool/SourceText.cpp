#include "tool/SourceText.h"

#include "app/Characters.h"

#include <algorithm>
#include <charconv>

namespace velluto::tool {

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r";
    const auto first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos ? std::string_view{} : text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

std::string_view WithoutMark(std::string_view text)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    return text.substr(text.starts_with(kMark) ? kMark.size() : 0);
}

std::vector<std::string_view> LinesOf(std::string_view text)
{
    std::vector<std::string_view> lines;
    text = WithoutMark(text);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        lines.push_back(line.substr(0, line.size() - (line.ends_with('\r') ? 1 : 0)));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::string TableName(std::string_view text)
{
    std::string name;
    for (const char32_t character : CharactersOfText(text)) {
        const bool isControl = character < U' ' || (character >= 0x7F && character < 0xA0);
        name += isControl ? ' ' : ByteOfCharacter(character).value_or('?');
    }
    return std::string(Trimmed(name));
}

bool FitsTable(std::string_view text)
{
    return std::ranges::all_of(CharactersOfText(text), [](char32_t character) { return ByteOfCharacter(character).has_value(); });
}

std::optional<int> NumberUpTo(std::string_view text, int most)
{
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size() && number >= 0 && number <= most;
    return isNumber ? std::optional(number) : std::nullopt;
}

} // namespace velluto::tool
