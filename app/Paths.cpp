#include "app/Paths.h"

#include "app/FixedText.h"

#include <algorithm>

namespace velluto {

namespace {

// Position of the last separator, or npos.
std::size_t LastSeparator(std::string_view path)
{
    const auto found = std::find_if(path.rbegin(), path.rend(), IsPathSeparator);
    return found == path.rend() ? std::string_view::npos : static_cast<std::size_t>(path.rend() - found) - 1;
}

char Upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

} // namespace

bool IsPathSeparator(char c)
{
    return c == '\\' || c == kPathSeparator;
}

std::string FileNameOf(std::string_view path)
{
    const auto at = LastSeparator(path);
    return std::string(at == std::string_view::npos ? path : RightTrimmed(path.substr(at + 1)));
}

std::string FolderOf(std::string_view path)
{
    const auto at = LastSeparator(path);
    return std::string(at == std::string_view::npos ? std::string_view{} : path.substr(0, at));
}

std::string ExtensionOf(std::string_view path)
{
    const auto dot = path.rfind('.');
    return LowerCase(dot == std::string_view::npos ? path : path.substr(dot + 1));
}

std::string JoinPath(std::string_view folder, std::string_view name)
{
    std::string path(folder);
    if (path.empty() || !IsPathSeparator(path.back())) {
        path += kPathSeparator;
    }
    return path.append(name);
}

std::string UpperCase(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), Upper);
    return result;
}

std::string LowerCase(std::string_view text)
{
    std::string result(text);
    std::ranges::transform(result, result.begin(), Lower);
    return result;
}

} // namespace velluto
