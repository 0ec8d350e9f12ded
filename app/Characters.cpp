#include "app/Characters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace velluto {

namespace {

constexpr std::uint8_t kFirstNotAscii = 0x80;
constexpr char32_t kBytes = 0x100;

// The characters of 0x80 to 0x9F; from 0xA0 on a byte is the number of its character.
constexpr std::array<char32_t, 32> kWindowsOnly = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                                   0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                                   0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// How UTF-8 writes the characters of one length.
struct Utf8Length {
    std::uint8_t mask;     // bits of the first byte that tell the length
    std::uint8_t lead;     // what they are
    std::size_t followers; // bytes of six bits each
    char32_t first;        // the first character that needs this length
};
constexpr std::array<Utf8Length, 4> kLengths{{{0x80, 0x00, 0, 0}, {0xE0, 0xC0, 1, 0x80}, {0xF0, 0xE0, 2, 0x800}, {0xF8, 0xF0, 3, 0x10000}}};
constexpr int kFollowerBits = 6;
constexpr std::uint8_t kFollowerMask = 0xC0;
constexpr std::uint8_t kFollower = 0x80;

bool IsCharacter(char32_t number)
{
    return number < 0xD800 || (number > 0xDFFF && number <= 0x10FFFF);
}

// The character at the beginning of the text, which loses its bytes; nothing where there is none.
std::optional<char32_t> TakeCharacter(std::string_view &text)
{
    const auto lead = static_cast<std::uint8_t>(text.front());
    for (const Utf8Length &form : kLengths) {
        if ((lead & form.mask) != form.lead || text.size() <= form.followers) {
            continue;
        }
        char32_t number = lead & static_cast<std::uint8_t>(~form.mask);
        for (std::size_t i = 1; i <= form.followers; ++i) {
            const auto byte = static_cast<std::uint8_t>(text[i]);
            if ((byte & kFollowerMask) != kFollower) {
                return std::nullopt;
            }
            number = (number << kFollowerBits) | (byte & static_cast<std::uint8_t>(~kFollowerMask));
        }
        text.remove_prefix(form.followers + 1);
        return number >= form.first && IsCharacter(number) ? std::optional(number) : std::nullopt;
    }
    return std::nullopt;
}

void Append(std::string &text, char32_t character)
{
    std::size_t length = 0;
    while (length + 1 < kLengths.size() && character >= kLengths.at(length + 1).first) {
        ++length;
    }
    const Utf8Length &form = kLengths.at(length);
    const auto bits = [&](std::size_t below) { return character >> (kFollowerBits * below); };
    text += static_cast<char>(form.lead | bits(form.followers));
    for (std::size_t below = form.followers; below-- > 0;) {
        text += static_cast<char>(kFollower | (bits(below) & static_cast<std::uint8_t>(~kFollowerMask)));
    }
}

} // namespace

std::u32string CharactersOfBytes(std::string_view bytes)
{
    std::u32string characters;
    characters.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        const auto inTable = static_cast<std::size_t>(byte - kFirstNotAscii);
        characters += byte >= kFirstNotAscii && inTable < kWindowsOnly.size() ? kWindowsOnly.at(inTable) : char32_t{byte};
    }
    return characters;
}

std::optional<char> ByteOfCharacter(char32_t character)
{
    const auto *const found = std::ranges::find(kWindowsOnly, character);
    if (found != kWindowsOnly.end()) {
        return static_cast<char>(kFirstNotAscii + (found - kWindowsOnly.begin()));
    }
    const bool ofTheTable = character >= kFirstNotAscii && character < kFirstNotAscii + kWindowsOnly.size();
    return character < kBytes && !ofTheTable ? std::optional(static_cast<char>(character)) : std::nullopt;
}

std::u32string CharactersOfText(std::string_view text)
{
    std::u32string characters;
    characters.reserve(text.size());
    for (std::string_view rest = text; !rest.empty();) {
        const std::optional<char32_t> character = TakeCharacter(rest);
        if (!character) {
            return CharactersOfBytes(text);
        }
        characters += *character;
    }
    return characters;
}

std::string Utf8Of(std::u32string_view characters)
{
    std::string text;
    text.reserve(characters.size());
    for (const char32_t character : characters) {
        Append(text, character);
    }
    return text;
}

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
