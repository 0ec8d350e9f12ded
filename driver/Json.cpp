#include "driver/Json.h"

#include "app/Characters.h"

#include <cstdint>

namespace velluto::driver {

std::string Utf8FromWindows1252(std::string_view bytes)
{
    return Utf8Of(CharactersOfBytes(bytes));
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
    return Utf8Of(CharactersOfText(text));
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

std::span<const std::uint8_t> AsBytes(std::string_view text)
{
    return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()};
}

Json Good()
{
    return Json{{"ok", true}};
}

Json Good(std::string_view key, Json value)
{
    Json told = Good();
    told[std::string(key)] = std::move(value);
    return told;
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
