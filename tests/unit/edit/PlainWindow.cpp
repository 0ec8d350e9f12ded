// The plain editor's windows: what a document is when it comes up, its STS button, and how it goes.
#include "unit/edit/PlainEditor.h"

namespace velluto::test {

namespace {

constexpr std::size_t kRowLength = 28;

PlainDocument Opened(int kind, const PlainOpened &file)
{
    PlainDocument document;
    document.prefix = std::string(20, '\0') + std::string(250, ' ');
    document.prefix.replace(20, file.path.size(), file.path);
    document.image = file.image;
    document.Set(1, kind);
    document.Set(2, file.recentKind);
    document.Set(15, file.slot);
    document.Set(16, file.role);
    document.Set(17, 1);
    return document;
}

PlainDocument New(int kind, int slot, const std::string &path)
{
    PlainDocument document;
    document.prefix = std::string(20, '\0') + std::string(250, ' ');
    document.prefix.replace(20, path.size(), path);
    document.Set(1, kind);
    document.Set(15, slot);
    document.Set(18, 1);
    return document;
}

std::string Digits(int number, std::size_t digits)
{
    const std::string text = std::to_string(number);
    return std::string(digits - text.size(), '0') + text;
}

void SetRows(PlainDocument &document, const std::vector<std::string> &rows)
{
    document.rows = rows;
    document.selected.assign(rows.size(), false);
}

std::vector<std::string> EmptyRows(int count, std::size_t digits)
{
    std::vector<std::string> rows;
    for (int number = 1; number <= count; ++number) {
        rows.push_back(" " + Digits(number, digits) + " " + std::string(16, ' '));
    }
    return rows;
}

// What there is of an entry's name.
std::string Name(const std::string &image, int entry)
{
    const auto offset = static_cast<std::size_t>(36 + (entry - 1) * 24);
    return offset < image.size() ? image.substr(offset, 16) : "";
}

// From the fourth character before the end backwards, zeros become blanks up to the first other character.
void BlankEnd(std::string &row)
{
    auto at = static_cast<std::ptrdiff_t>(row.size()) - 5;
    while (at >= 0 && row[static_cast<std::size_t>(at)] == '\0') {
        row[static_cast<std::size_t>(at)] = ' ';
        at = at - 1;
    }
}

std::string StyleHeads()
{
    std::string buffer(16 * kRowLength, ' ');
    for (int number = 1; number <= 16; ++number) {
        buffer.replace(static_cast<std::size_t>(number - 1) * kRowLength, 3, " " + Digits(number, 2));
    }
    return buffer;
}

// Name and size of the entry into the row of the slot; what would stand behind the last row is lost.
void PutStyle(std::string &buffer, int slot, const std::string &image, int entry, const PlainTable &index)
{
    if (slot < 0) {
        return;
    }
    std::string text = Name(image, entry);
    text.resize(16, ' ');
    for (std::size_t i = 4; i < 16; ++i) {
        if (text[i] == '\0') {
            text[i] = ' ';
        }
    }
    text += PlainSize(entry <= 128 ? index.lengths[static_cast<std::size_t>(entry - 1)] : 0);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::size_t at = static_cast<std::size_t>(slot) * kRowLength + 4 + i;
        if (at < buffer.size()) {
            buffer[at] = text[i];
        }
    }
}

void SetStyleRows(PlainDocument &document, const std::string &buffer)
{
    std::vector<std::string> rows;
    for (std::size_t row = 0; row < 16; ++row) {
        rows.push_back(buffer.substr(row * kRowLength, kRowLength));
    }
    SetRows(document, rows);
}

} // namespace

PlainDocument PlainNewProgram(int places)
{
    PlainDocument document = New(14, places == 64 ? 11 : 12, "SenzaNome.pcg");
    document.Set(3, places);
    SetRows(document, EmptyRows(places, 3));
    return document;
}

PlainDocument PlainNewStyle(PlainGlobals &globals)
{
    PlainDocument document = New(21, 0, "SenzaNome.sty");
    document.Set(10, 1);
    SetRows(document, EmptyRows(16, 2));
    globals.BuildImage = PlainEmptyImage();
    document.image = globals.BuildImage;
    return document;
}

PlainDocument PlainNewPerformance()
{
    PlainDocument document = New(23, 0, "Senza titolo.prf");
    SetRows(document, EmptyRows(8, 1));
    return document;
}

PlainDocument PlainProgram(const PlainOpened &file)
{
    PlainDocument document = Opened(14, file);
    const int n = PlainShownCount(file.image);
    int places = 64;
    for (int entry = 1; entry <= n; ++entry) {
        if (PlainSlot(file.image, entry) >= 64) {
            places = 128;
        }
    }
    document.Set(3, places);
    std::vector<std::string> rows = EmptyRows(places, 3);
    if (n > 0) {
        int k = 1;
        for (int i = 0; i < places; ++i) {
            std::string row = " " + Digits(i + 1, 3) + " ";
            if (k <= n && PlainSlot(file.image, k) == i) {
                row += PlainTrimmed(Name(file.image, k));
                k = k + 1;
            }
            BlankEnd(row);
            rows[static_cast<std::size_t>(i)] = row;
        }
    }
    SetRows(document, rows);
    return document;
}

PlainDocument PlainStyle(PlainGlobals &globals, const PlainOpened &file)
{
    PlainDocument document = Opened(20, file);
    document.Set(10, 1);
    document.Set(8, 1);
    PlainShownIndex(file.image, globals.ItemIndex);
    const int n = PlainShownCount(file.image);
    std::string buffer = StyleHeads();
    if (n > 1) { // a file of one entry shows nothing
        const int a = PlainLayout(file.image);
        const int m = a == 0 ? n : n / 2;
        if (a == 0) {
            document.Set(8, 0);
            document.stsEnabled = false;
        }
        int entry = 1;
        for (int i = 1; i <= m; ++i) {
            PutStyle(buffer, PlainSlot(file.image, entry), file.image, entry, globals.ItemIndex);
            entry = entry + (a == 1 ? 2 : 1);
        }
    }
    SetStyleRows(document, buffer);
    return document;
}

PlainDocument PlainPerformance(const PlainOpened &file)
{
    PlainDocument document = Opened(22, file);
    std::vector<std::string> rows;
    int entry = 1; // runs on past the directory
    for (int i = 0; i < 8; ++i) {
        if (PlainShownCount(file.image) == 0) {
            rows.push_back(Digits(i + 1, 3) + " " + std::string(16, ' '));
            continue;
        }
        std::string row = " " + Digits(i + 1, 1) + " ";
        if (PlainSlot(file.image, entry) == i) {
            row += Name(file.image, entry);
            entry = entry + 1;
            BlankEnd(row);
        } else {
            row += std::string(16, ' ');
        }
        rows.push_back(row);
    }
    SetRows(document, rows);
    return document;
}

void PlainStsClick(PlainGlobals &globals, PlainDocument &document)
{
    const std::string &image = document.image;
    PlainShownIndex(image, globals.ItemIndex);
    const int half = PlainShownCount(image) / 2;
    std::string buffer = StyleHeads();
    const bool toStyles = document.stsCaption != "STS";
    int entry = 1;
    for (int i = 1; i <= half; ++i) {
        const int slot = PlainSlot(image, entry);
        if (toStyles) {
            PutStyle(buffer, slot, image, entry, globals.ItemIndex);
            entry = entry + 1;
            if (PlainSlot(image, entry) == PlainSlot(image, entry - 1)) {
                entry = entry + 1;
            }
        } else {
            const bool pair = PlainSlot(image, entry + 1) == slot;
            entry = pair ? entry + 1 : entry;
            PutStyle(buffer, slot, image, pair ? entry : entry + half, globals.ItemIndex);
            entry = entry + 1;
        }
    }
    document.stsCaption = toStyles ? "STS" : "Style";
    document.Set(10, toStyles ? 1 : 0);
    SetStyleRows(document, buffer);
}

void PlainUnload(PlainGlobals &globals, const PlainDocument &document)
{
    const PlainClipboard &clip = globals.clipboard;
    const bool program = document.At(1) == 14; // empties the copy from any window of its slot number
    if (clip.ClipSlot == document.At(15) && (program || clip.ClipKind == document.At(1))) {
        globals.clipboard.ClipValid = 0;
    }
}

} // namespace velluto::test
