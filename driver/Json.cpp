#include "driver/Json.h"

#include <array>
#include <cstdint>

namespace velluto::driver {

namespace {

constexpr std::uint8_t kFirstNotAscii = 0x80;
constexpr std::uint8_t kFirstLatin1 = 0xA0; // from here on a byte is the number of its character

// The characters of 0x80 to 0x9F.
constexpr std::array<char32_t, 32> kWindowsOnly = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
                                                   0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
                                                   0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

// character is below 0x10000.
void AppendUtf8(std::string &text, char32_t character)
{
    constexpr char32_t kOneByteEnd = 0x80;
    constexpr char32_t kTwoBytesEnd = 0x800;
    if (character < kOneByteEnd) {
        text += static_cast<char>(character);
    } else if (character < kTwoBytesEnd) {
        text += static_cast<char>(0xC0 | (character >> 6));
        text += static_cast<char>(0x80 | (character & 0x3F));
    } else {
        text += static_cast<char>(0xE0 | (character >> 12));
        text += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
        text += static_cast<char>(0x80 | (character & 0x3F));
    }
}

} // namespace

std::string Utf8FromWindows1252(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        const bool windowsOnly = byte >= kFirstNotAscii && byte < kFirstLatin1;
        AppendUtf8(text, windowsOnly ? kWindowsOnly.at(byte - kFirstNotAscii) : char32_t{byte});
    }
    return text;
}

bool IsUtf8(std::string_view text)
{
    try {
        (void)Json(text).dump();
        return true;
    } catch (const Json::type_error &) {
        return false;
    }
}

std::string ProgramText(std::string_view text)
{
    return IsUtf8(text) ? std::string(text) : Utf8FromWindows1252(text);
}

std::string Hexadecimal(std::string_view bytes)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<std::uint8_t>(c);
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0x0F];
    }
    return text;
}

std::string_view AsText(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char *>(bytes.data()), bytes.size()};
}

Json Good()
{
    return Json{{"ok", true}};
}

Json Bad(std::string_view error)
{
    return Json{{"ok", false}, {"error", ProgramText(error)}};
}

std::string OneLine(const Json &answer)
{
    constexpr int kNoIndent = -1;
    return answer.dump(kNoIndent, ' ', false, Json::error_handler_t::replace);
}

} // namespace velluto::driver
