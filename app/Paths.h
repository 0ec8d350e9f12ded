// File names, folders and extensions of paths. A path may be the platform's own or, from old settings files, one in
// drive form; so '\' separates everywhere, and '/' does too outside Windows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velluto {

#ifdef _WIN32
inline constexpr char kPathSeparator = '\\';
#else
inline constexpr char kPathSeparator = '/';
#endif

[[nodiscard]] bool IsPathSeparator(char c);
// What follows the last separator, trailing blanks removed; a path without one comes back whole.
[[nodiscard]] std::string FileNameOf(std::string_view path);
// What stands before the last separator, without it; a path without one gives an empty text.
[[nodiscard]] std::string FolderOf(std::string_view path);
// What follows the last ".", in lower case; without a dot the whole path in lower case.
[[nodiscard]] std::string ExtensionOf(std::string_view path);
// folder + separator + name; the root folder gets no second separator.
[[nodiscard]] std::string JoinPath(std::string_view folder, std::string_view name);
// The folders from the root down to this one, each with its path. A share of Windows' is a root and ends with a separator:
// "\\server\share\".
[[nodiscard]] std::vector<std::string> WayTo(std::string_view path, char separator = kPathSeparator);
// ASCII letters only, byte by byte.
[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);

} // namespace velluto
