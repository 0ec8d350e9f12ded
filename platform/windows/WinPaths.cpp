#include "platform/windows/WinPaths.h"

#include "platform/windows/Windows.h"

#include <algorithm>
#include <cstdint>

namespace velluto {

namespace {

// Shorter paths may go to every call as they are.
constexpr std::size_t kLong = 248;

constexpr char32_t kFirstPair = 0x10000; // characters from here on are two halves
constexpr char32_t kHighHalf = 0xD800;
constexpr char32_t kLowHalf = 0xDC00;
constexpr char32_t kBehindHalves = 0xE000;
constexpr char32_t kBehindAll = 0x110000;

constexpr std::uint8_t kMore = 0x80; // a byte that goes on with a character

bool IsMore(char byte)
{
    return (static_cast<std::uint8_t>(byte) & 0xC0U) == kMore;
}

// The character at the front of the text, which it then leaves; nothing where there is none.
std::optional<char32_t> TakeCharacter(std::string_view &text)
{
    const auto first = static_cast<std::uint8_t>(text.front());
    const std::size_t length = first < kMore ? 1 : first < 0xC0 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : first < 0xF8 ? 4 : 0;
    if (length == 0 || text.size() < length || !std::all_of(text.begin() + 1, text.begin() + static_cast<std::ptrdiff_t>(length), IsMore)) {
        return {};
    }
    constexpr std::uint32_t kBitsOfFirst[] = {0, 0x7F, 0x1F, 0x0F, 0x07};
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, kFirstPair};
    char32_t character = first & kBitsOfFirst[length];
    for (std::size_t i = 1; i < length; ++i) {
        character = character << 6U | (static_cast<std::uint8_t>(text[i]) & 0x3FU);
    }
    if (character < kSmallest[length] || character >= kBehindAll) {
        return {};
    }
    text.remove_prefix(length);
    return character;
}

void Append(std::string &utf8, char32_t character)
{
    const auto more = [&](unsigned shift) { utf8 += static_cast<char>(kMore | (character >> shift & 0x3FU)); };
    if (character < 0x80) {
        utf8 += static_cast<char>(character);
    } else if (character < 0x800) {
        utf8 += static_cast<char>(0xC0U | character >> 6U);
        more(0);
    } else if (character < kFirstPair) {
        utf8 += static_cast<char>(0xE0U | character >> 12U);
        more(6);
        more(0);
    } else {
        utf8 += static_cast<char>(0xF0U | character >> 18U);
        more(12);
        more(6);
        more(0);
    }
}

bool IsWhole(std::wstring_view path)
{
    return path.starts_with(L"\\\\") || (path.size() > 2 && path[1] == L':' && path[2] == L'\\');
}

// Without "." and "..", and from the root.
std::wstring FullPath(const std::wstring &path)
{
    std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0'); // with its zero
    full.resize(::GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

} // namespace

std::optional<std::wstring> WideOf(std::string_view utf8)
{
    std::wstring wide;
    wide.reserve(utf8.size());
    while (!utf8.empty()) {
        const std::optional<char32_t> character = TakeCharacter(utf8);
        if (!character) {
            return {};
        }
        if (*character < kFirstPair) {
            wide += static_cast<wchar_t>(*character);
        } else {
            wide += static_cast<wchar_t>(kHighHalf + ((*character - kFirstPair) >> 10U));
            wide += static_cast<wchar_t>(kLowHalf + ((*character - kFirstPair) & 0x3FFU));
        }
    }
    return wide;
}

std::string Utf8Of(std::wstring_view wide)
{
    std::string utf8;
    utf8.reserve(wide.size());
    for (std::size_t at = 0; at < wide.size(); ++at) {
        char32_t character = wide[at];
        const char32_t next = at + 1 < wide.size() ? wide[at + 1] : U'\0';
        if (character >= kHighHalf && character < kLowHalf && next >= kLowHalf && next < kBehindHalves) {
            character = kFirstPair + ((character - kHighHalf) << 10U) + (next - kLowHalf);
            ++at;
        }
        Append(utf8, character);
    }
    return utf8;
}

std::optional<std::wstring> SystemPath(std::string_view path)
{
    std::optional<std::wstring> wide = WideOf(path);
    if (!wide || wide->empty() || wide->find(L'\0') != std::wstring::npos) {
        return {};
    }
    std::ranges::replace(*wide, L'/', L'\\');
    if (wide->size() == 2 && wide->back() == L':') {
        *wide += L'\\';
    }
    if (wide->size() < kLong && IsWhole(*wide)) {
        return wide;
    }
    std::wstring full = FullPath(*wide);
    if (full.size() < kLong || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) {
        return full;
    }
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

} // namespace velluto
