#include "player/CompilationRows.h"

#include "app/Catalogue.h"
#include "player/CompilationImage.h"
#include "player/ListRows.h"
#include "player/PlayerErrors.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velluto {

namespace {

// How far the image could be read into rows.
struct RowReading {
    bool complete = false; // each row stands for the file of its number
    RuntimeError error;
    std::string path; // of the file whose length could not be read
};

RuntimeError LengthOf(const frmMIDIPlayer &form, const std::string &path, std::uint64_t &length)
{
    return Resumed([&] { return form.app.ports.folders.FileLength(path, length); });
}

// Writes the rows from the given one on, one for each file, over what is there and beyond.
RowReading ReadRows(const frmMIDIPlayer &form, std::size_t from, std::vector<std::string> &rows)
{
    ImageWalk walk(form.state.image);
    ImageEntry entry;
    std::size_t at = from;
    for (; walk.Next(entry); ++at) {
        std::uint64_t length = 0;
        const std::string path = entry.Path();
        const RuntimeError error = LengthOf(form, path, length);
        if (error.Failed()) {
            return {false, error, path};
        }
        rows.resize(std::max(rows.size(), at + 1));
        rows[at] = FileRow(entry.name, length);
    }
    return {at == rows.size(), {}, {}};
}

void TellReading(frmMIDIPlayer &form, const RowReading &reading)
{
    HandlePlayerError(form, reading.error, PreparedText(form, reading.path, TextId::OpeningStep));
}

// By what the rows are sorted: their names without regard to case.
std::vector<std::string> KeysOf(const std::vector<std::string> &rows)
{
    std::vector<std::string> keys;
    std::ranges::transform(rows, std::back_inserter(keys), [](const std::string &row) { return UpperCase(BareName(row)); });
    return keys;
}

// The first row that sorts behind the key; the number of rows where none does. A file from elsewhere may hold them in any order.
std::size_t RowBehind(const std::vector<std::string> &keys, const std::string &key)
{
    const auto behind = std::ranges::find_if(keys, [&key](const std::string &other) { return other > key; });
    return static_cast<std::size_t>(behind - keys.begin());
}

} // namespace

void RebuildCompilationList(frmMIDIPlayer &form)
{
    std::vector<std::string> rows = form.ListMidiCorr.Rows();
    const RowReading reading = ReadRows(form, rows.size(), rows);
    form.ListMidiCorr.RewriteRows(std::move(rows));
    TellReading(form, reading);
}

std::string CompilationItemPath(const frmMIDIPlayer &form, int row)
{
    return PathInImage(form.state.image, row);
}

void AddFilesToCompilation(frmMIDIPlayer &form, int first, int last)
{
    std::string &image = form.state.image;
    const std::string &directory = form.app.settings.PlayerDir;
    std::vector<std::string> rows = form.ListMidiCorr.Rows();
    std::vector<std::string> keys = KeysOf(rows);
    RowReading reading;
    for (int k = first; k <= last; ++k) {
        const std::string &name = form.FileMidiSel.Row(k);
        const std::string key = UpperCase(name);
        const std::size_t behind = RowBehind(keys, key);
        int row = 0;
        if (rows.empty()) {
            image = ImageOfOne(directory, name);
        } else if (behind < rows.size()) {
            row = InsertBefore(image, BareName(rows[behind]), directory, name);
        } else {
            row = Append(image, directory, name);
        }
        // As long as rows and files agree, the new row is all that has to be read.
        std::uint64_t length = 0;
        const bool agree = reading.complete && static_cast<std::size_t>(row) == behind;
        if (agree && !LengthOf(form, JoinPath(directory, name), length).Failed()) {
            rows.insert(rows.begin() + row, FileRow(name, length));
            keys.insert(keys.begin() + row, key);
        } else {
            reading = ReadRows(form, 0, rows);
            keys = KeysOf(rows);
        }
    }
    form.ListMidiCorr.RewriteRows(std::move(rows));
    TellReading(form, reading);
}

} // namespace velluto
