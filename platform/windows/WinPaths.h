// Paths as Windows takes them, made from the program's UTF-8, and the words of Windows in UTF-8 again. Used by the adapters beside.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velluto {

// A name of Windows may hold half of a surrogate pair: it becomes the three bytes that its number has, and comes back as it was, so
// that every file can be named. Bytes that are no UTF-8 are no name at all.
[[nodiscard]] std::optional<std::wstring> WideOf(std::string_view utf8);
[[nodiscard]] std::string Utf8Of(std::wstring_view wide);

// What the calls of Windows open for a path: whatever its length, and with the root for a drive that stands alone ("C:"). Nothing
// for a text that is empty, that a zero would end early, or that is no UTF-8.
[[nodiscard]] std::optional<std::wstring> SystemPath(std::string_view path);

} // namespace velluto
