#include "platform/HandOver.h"

namespace velluto {

std::string BytesOf(const HandedFiles &files)
{
    std::string bytes = files.activation + '\0';
    for (const std::string &path : files.paths) {
        bytes += path + '\0';
    }
    return bytes;
}

std::optional<HandedFiles> HandedIn(const std::string &bytes)
{
    if (bytes.empty() || bytes.back() != '\0') {
        return std::nullopt;
    }
    std::vector<std::string> texts;
    for (std::size_t at = 0; at < bytes.size(); at += texts.back().size() + 1) {
        texts.emplace_back(bytes.c_str() + at);
    }
    return HandedFiles{texts.front(), {texts.begin() + 1, texts.end()}};
}

} // namespace velluto
