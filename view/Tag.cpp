#include "view/Tag.h"

#include <algorithm>

namespace velluto {

int WindowTag::At(int position) const
{
    const auto at = static_cast<std::size_t>(position - 1);
    return position >= 1 && at < prefix.size() ? static_cast<unsigned char>(prefix[at]) : 0;
}

void WindowTag::Set(int position, int value)
{
    const auto at = static_cast<std::size_t>(position - 1);
    if (position >= 1 && at < prefix.size()) {
        prefix[at] = static_cast<char>(value);
    }
}

std::string WindowTag::Text(int position, int count) const
{
    const auto at = static_cast<std::size_t>(position - 1);
    return position >= 1 && at < prefix.size() ? prefix.substr(at, static_cast<std::size_t>(std::max(count, 0))) : std::string();
}

void WindowTag::Put(int position, std::string_view text)
{
    const auto at = static_cast<std::size_t>(position - 1);
    if (position >= 1 && at < prefix.size()) {
        std::copy_n(text.begin(), std::min(text.size(), prefix.size() - at), prefix.begin() + static_cast<std::ptrdiff_t>(at));
    }
}

std::string WindowTag::Path() const
{
    std::string path = Text(TagPosition::Path, kPathLength);
    path.erase(path.find_last_not_of(' ') + 1);
    return path;
}

void WindowTag::SetPath(std::string_view path)
{
    std::string field(path.substr(0, kPathLength));
    field.resize(kPathLength, ' ');
    Put(TagPosition::Path, field);
}

std::string TagPrefix()
{
    return std::string(20, '\0') + std::string(kTagPrefixLength - 20, ' ');
}

WindowTag ToolTag(int kind)
{
    WindowTag tag;
    tag.prefix.assign(20, '\0');
    tag.Set(TagPosition::Kind, kind);
    return tag;
}

} // namespace velluto
