#include "tool/Words.h"

#include "app/Characters.h"
#include "app/Paths.h"

#include <algorithm>

namespace velluto::tool {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;
constexpr std::size_t kLongestCharacter = 4; // bytes of UTF-8

bool IsControl(char32_t character)
{
    return character < U' ' || (character >= 0x7F && character < 0xA0);
}

bool IsAscii(char c)
{
    return static_cast<unsigned char>(c) < 0x80;
}

// How many bytes the character at the beginning of the text has, 0 where there is none.
std::size_t CharacterLength(std::string_view text)
{
    for (std::size_t length = 1; length <= std::min(text.size(), kLongestCharacter); ++length) {
        const std::u32string characters = CharactersOfText(text.substr(0, length));
        if (characters.size() == 1 && Utf8Of(characters) == text.substr(0, length)) {
            return length;
        }
    }
    return 0;
}

char32_t Small(char32_t character)
{
    const bool isCapital = (character >= U'A' && character <= U'Z') || (character >= 0xC0 && character <= 0xDE && character != 0xD7);
    if (isCapital) {
        return character + (U'a' - U'A');
    }
    switch (character) {
    case 0x0160: // S with a caron
    case 0x0152: // OE
    case 0x017D: // Z with a caron
        return character + 1;
    case 0x0178: // Y with two dots
        return 0xFF;
    default:
        return character;
    }
}

} // namespace

std::string Speaker::Say(const TwoTexts &text, std::initializer_list<std::string> inserts) const
{
    std::string said;
    const std::string_view words = text.In(linguaBase);
    for (std::size_t at = 0; at < words.size(); ++at) {
        const std::size_t number =
            words[at] == '%' && at + 1 < words.size() ? static_cast<std::size_t>(words[at + 1] - '1') : inserts.size();
        if (number < inserts.size()) {
            said += *(inserts.begin() + number);
            ++at;
        } else {
            said += words[at];
        }
    }
    return said;
}

int LanguageOfLocale(std::string_view locale)
{
    return LowerCase(locale.substr(0, 2)) == "it" ? kItalianBase : kEnglishBase;
}

std::string ValidUtf8(std::string_view text)
{
    if (std::ranges::all_of(text, IsAscii)) {
        return std::string(text);
    }
    std::string valid;
    while (!text.empty()) {
        const std::size_t length = IsAscii(text.front()) ? 1 : CharacterLength(text);
        valid += length == 0 ? Utf8Of({&kNoCharacter, 1}) : std::string(text.substr(0, length));
        text.remove_prefix(std::max<std::size_t>(length, 1));
    }
    return valid;
}

std::string Printable(std::string_view path)
{
    std::string text(path);
    std::ranges::replace_if(
        text, [](char c) { return IsAscii(c) && IsControl(static_cast<unsigned char>(c)); }, '?');
    return text;
}

std::string DrawnText(std::string_view bytes)
{
    bytes = bytes.substr(0, bytes.find('\0'));
    if (std::ranges::all_of(bytes, [](char c) { return c >= ' ' && c <= '~'; })) {
        return std::string(bytes);
    }
    std::u32string drawn = CharactersOfBytes(bytes);
    std::ranges::replace_if(drawn, IsControl, kNoCharacter);
    return Utf8Of(drawn);
}

std::u32string Folded(std::u32string characters)
{
    std::ranges::transform(characters, characters.begin(), Small);
    return characters;
}

} // namespace velluto::tool
