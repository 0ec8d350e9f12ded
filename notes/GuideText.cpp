#include "notes/GuideText.h"

#include "app/Characters.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr RuntimeError kDoesNotFit{5};

} // namespace

RuntimeError ReadGuide(FileStore &files, const std::string &path, std::string &bytes)
{
    SharedBytes read;
    const RuntimeError error = ReadWhole(files, path, {kGuideRoom, kDoesNotFit}, read);
    if (!error.Failed()) {
        bytes.assign(read.View().begin(), read.View().end());
    }
    return error;
}

std::string ShownGuide(std::string_view bytes)
{
    return Utf8Of(WithCrLf(CharactersOfText(bytes)));
}

int JumpTarget(std::u32string_view text, int caret)
{
    const std::size_t from = std::min(static_cast<std::size_t>(std::max(caret, 0)), text.size());
    std::size_t first = from;
    while (first > 0 && text[first - 1] != U'\n') {
        --first;
    }
    while (first < text.size() && text[first] == U' ') {
        ++first;
    }
    // The carriage return belongs to what is searched for, so that the end of a longer line is found and its middle is
    // not. A last line without one is found nowhere.
    const std::size_t end = text.find(U'\r', first);
    if (end == std::u32string_view::npos) {
        return 0;
    }
    const std::size_t hit = text.find(text.substr(first, end - first + 1), from + 1);
    if (hit == std::u32string_view::npos) {
        return 0;
    }
    // A hit on the second character of the text is told one too far, as it has always been.
    const int position = static_cast<int>(hit) + 1; // 1-based
    return position > 2 ? position - 1 : position;
}

} // namespace velluto
