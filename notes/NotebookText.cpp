#include "notes/NotebookText.h"

#include "app/Characters.h"

#include <algorithm>
#include <vector>

namespace velluto {

namespace {

constexpr char kPadding = ' ';

// Blanks, and the zero bytes that other programs pad with.
std::string_view WithoutPadding(std::string_view record)
{
    constexpr std::string_view kEmpty(" \0", 2);
    const auto last = record.find_last_not_of(kEmpty);
    return record.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

} // namespace

RuntimeError ReadNotebook(FileStore &files, const std::string &path, NotebookFile &file)
{
    std::unique_ptr<RandomAccessFile> opened;
    if (const RuntimeError error = files.Open(path, opened); error.Failed()) {
        return error;
    }
    std::uint64_t length = 0;
    if (const RuntimeError error = opened->Length(length); error.Failed()) {
        return error;
    }
    std::vector<std::uint8_t> bytes(kNotebookLength);
    std::size_t got = 0;
    if (const RuntimeError error = opened->Read(0, bytes, got); error.Failed()) {
        return error;
    }
    file.record.assign(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(got));
    file.record.resize(kNotebookLength, kPadding);
    file.hasRest = length > kNotebookLength;
    return {};
}

RuntimeError WriteNotebook(FileStore &files, const std::string &path, const std::string &record)
{
    const std::unique_ptr<WritingUnderWay> underWay = files.BeginChanging(path);
    std::unique_ptr<RandomAccessFile> file;
    if (const RuntimeError error = files.Open(path, file); error.Failed()) {
        return error;
    }
    const std::vector<std::uint8_t> bytes(record.begin(), record.end());
    return file->Write(0, bytes);
}

ShownNotebook ShowNotebook(std::string_view record)
{
    const std::u32string characters = CharactersOfBytes(WithoutPadding(record));
    const std::u32string lines = WithCrLf(characters);
    const bool fits = lines.size() <= kNotebookLength;
    return {Utf8Of(fits ? lines : characters), fits};
}

TakenText TakeText(std::u32string_view typed, int caret)
{
    TakenText taken;
    const std::size_t typedTo = std::min(static_cast<std::size_t>(std::max(caret, 0)), typed.size());
    std::size_t end = 0;
    for (std::size_t at = 0; at < typed.size(); ++at) {
        if (ByteOfCharacter(typed[at])) {
            taken.text += typed[at];
        } else if (taken.refused == 0) {
            taken.refused = typed[at];
        }
        if (at < typedTo) {
            end = taken.text.size();
        }
    }
    if (taken.text.size() > kNotebookLength) {
        taken.full = true;
        const std::size_t tooMany = std::min(taken.text.size() - kNotebookLength, end);
        std::size_t from = end - tooMany;
        // Half a line end is none.
        if (from > 0 && taken.text[from - 1] == U'\r' && taken.text[from] == U'\n') {
            --from;
        }
        taken.text.erase(from, end - from);
        end = from;
        taken.text.resize(std::min(taken.text.size(), kNotebookLength));
    }
    taken.caret = static_cast<int>(end);
    return taken;
}

std::string NotebookRecord(std::u32string_view text)
{
    std::string record(kNotebookLength, kPadding);
    for (std::size_t at = 0; at < std::min(text.size(), record.size()); ++at) {
        record[at] = ByteOfCharacter(text[at]).value_or(kPadding);
    }
    return record;
}

} // namespace velluto
