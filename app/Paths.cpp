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

// Bytes of the server and the share that a path of Windows' begins with; 0 where it begins with none.
std::size_t ShareLength(std::string_view path)
{
    constexpr std::string_view kFront = R"(\\)";
    const std::size_t behindServer = path.starts_with(kFront) ? path.find('\\', kFront.size()) : std::string_view::npos;
    if (behindServer == std::string_view::npos || behindServer + 1 == path.size()) {
        return 0;
    }
    return std::min(path.find('\\', behindServer + 1), path.size());
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

std::vector<std::string> WayTo(std::string_view path, char separator)
{
    std::vector<std::string> way;
    std::size_t at = separator == '\\' ? ShareLength(path) : 0;
    if (at > 0) {
        way.push_back(std::string(path.substr(0, at)) + separator);
        at = std::min(at + 1, path.size());
    }
    for (at = path.find(separator, at); at != std::string_view::npos; at = path.find(separator, at + 1)) {
        way.emplace_back(path.substr(0, std::max<std::size_t>(at, 1)));
    }
    if (way.empty() || !way.back().starts_with(path)) {
        way.emplace_back(path);
    }
    return way;
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
