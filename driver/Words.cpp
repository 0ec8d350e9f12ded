#include "driver/Words.h"

#include <charconv>
#include <optional>

namespace velluto::driver {

namespace {

constexpr std::string_view kBlanks = " \t\r";

bool IsBlank(char c)
{
    return kBlanks.find(c) != std::string_view::npos;
}

// The quoted word whose opening quote stands at `at`; leaves `at` behind the closing one.
std::string QuotedWord(std::string_view line, std::size_t &at)
{
    std::string word;
    for (++at; at < line.size(); ++at) {
        const bool escapes = line[at] == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\');
        if (escapes) {
            word += line[++at];
        } else if (line[at] == '"') {
            ++at;
            if (at < line.size() && !IsBlank(line[at])) {
                throw BadCommand("text behind a closing quote");
            }
            return word;
        } else {
            word += line[at];
        }
    }
    throw BadCommand("a quote is not closed");
}

std::optional<int> Number(std::string_view digits, int base)
{
    int number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
    if (error != std::errc{} || end != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return number;
}

} // namespace

Words SplitWords(std::string_view line)
{
    Words words;
    std::size_t at = 0;
    while (true) {
        at = line.find_first_not_of(kBlanks, at);
        if (at == std::string_view::npos) {
            return words;
        }
        if (line[at] == '"') {
            words.push_back(QuotedWord(line, at));
            continue;
        }
        const std::size_t end = std::min(line.find_first_of(kBlanks, at), line.size());
        words.emplace_back(line.substr(at, end - at));
        at = end;
    }
}

bool IsRemark(std::string_view line)
{
    const std::size_t first = line.find_first_not_of(kBlanks);
    return first == std::string_view::npos || line.front() == '#';
}

int ToNumber(std::string_view word, std::string_view what, int lowest, int highest)
{
    const std::optional<int> number = Number(word, 10);
    if (!number || *number < lowest || *number > highest) {
        throw BadCommand(std::string(what) + " is no number from " + std::to_string(lowest) + " to " + std::to_string(highest) + ": " +
                         std::string(word));
    }
    return *number;
}

int ToByte(std::string_view word)
{
    constexpr int kHighestByte = 255;
    const bool hexadecimal = word.starts_with("0x") || word.starts_with("0X");
    const std::optional<int> number = hexadecimal ? Number(word.substr(2), 16) : Number(word, 10);
    if (!number || *number < 0 || *number > kHighestByte) {
        throw BadCommand("not a byte: " + std::string(word));
    }
    return *number;
}

} // namespace velluto::driver
