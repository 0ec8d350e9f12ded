// Between the program's paths, which are UTF-8 on every system, and those of the standard library: from plain characters it makes
// something else on Windows. Used by the driver, the tool and the tests.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace velluto {

inline std::filesystem::path PathOfUtf8(std::string_view utf8)
{
    return {std::u8string(utf8.begin(), utf8.end())};
}

inline std::string Utf8OfPath(const std::filesystem::path &path)
{
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

} // namespace velluto
