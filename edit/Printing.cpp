#include "edit/Printing.h"

#include "app/Catalogue.h"
#include "app/Characters.h"
#include "app/Paths.h"
#include "edit/PrintLine.h"
#include "files/Files.h"
#include "files/ItemRows.h"
#include "files/Slots.h"
#include "files/StyleRows.h"

#include <algorithm>
#include <cstdint>

namespace velluto {

namespace {

// The page: places and distances in twentieths of a point, positions in characters.
constexpr std::string_view kFontName = "courier new";
constexpr int kFontSize = 11; // points
constexpr int kLeftEdge = 453;
constexpr int kFirstLine = 1134;
constexpr int kRowDistance = 113; // between two rows of a listing, on top of the line height
constexpr int kDatePosition = 64;

// Where the heading finds the file's path, with the blanks behind it.
constexpr int kPathField = 240;

constexpr int kProgramColumns = 4;
constexpr int kProgramColumnWidth = 20; // one less than a row: its last character yields to the next column

constexpr std::u32string_view kProgramHead = U" No  Program         No  Program         No  Program         No  Program";
constexpr std::u32string_view kStyleHead = U" No Style             Bytes";
constexpr std::u32string_view kStyleStsHead = U" No Style             Bytes          STS                 Bytes";
constexpr std::u32string_view kPerformanceHead = U" No Performance";

// Where the name and the size of a Style and of its STS stand.
struct ItemColumns {
    int name;
    int size;
};
constexpr ItemColumns kStyleColumns{5, 22};
constexpr ItemColumns kStsColumns{38, 57};
constexpr std::size_t kStyleRowHead = 4;
constexpr std::size_t kSizeWidth = 7;

// A document on the printer. Once the printer has failed, nothing more is asked of it.
class PrintJob {
public:
    explicit PrintJob(Printer &printer) : printer_(printer) {}

    void Begin()
    {
        Do([this] { return printer_.FontName(kFontName); });
        Do([this] { return printer_.FontSize(kFontSize); });
        Do([this] { return printer_.FontBold(true); });
    }
    void Place(int x, int y)
    {
        Do([&] { return printer_.CurrentX(x); });
        Do([&] { return printer_.CurrentY(y); });
    }
    void Print(const PrintLine &line)
    {
        Do([&] { return printer_.Print(line.Utf8()); });
    }
    void PrintAtLeftEdge(const PrintLine &line)
    {
        Do([this] { return printer_.CurrentX(kLeftEdge); });
        Print(line);
    }
    void PrintEmpty()
    {
        Do([this] { return printer_.Print({}); });
    }
    // The titles over the columns.
    void PrintHead(std::u32string_view text)
    {
        PrintLine line;
        line.Set(text);
        PrintAtLeftEdge(line);
        PrintEmpty();
    }
    // A row of a listing, which stands apart from the next.
    void PrintRow(const PrintLine &line)
    {
        PrintAtLeftEdge(line);
        Do([this] { return printer_.CurrentY(printer_.CurrentY() + kRowDistance); });
    }
    void EndDoc()
    {
        Do([this] { return printer_.EndDoc(); });
    }
    [[nodiscard]] RuntimeError Error() const { return error_; }

private:
    template <class Operation>
    void Do(Operation operation)
    {
        if (!error_.Failed()) {
            error_ = operation();
        }
    }

    Printer &printer_;
    RuntimeError error_;
};

// The rows of the active window's list. There are none in a window without one, and rows past the end are empty.
struct ListRows {
    const ListBox *list = nullptr;

    [[nodiscard]] std::u32string Row(int row) const { return list != nullptr ? CharactersOfBytes(list->Row(row)) : std::u32string(); }
};

ListRows RowsOf(const Form *window)
{
    return {window != nullptr ? dynamic_cast<const ListBox *>(ControlNamed(*window, "List1")) : nullptr};
}

// A number as it is converted plainly: a place for the sign in front.
std::string Plain(std::int64_t number)
{
    return (number < 0 ? "" : " ") + std::to_string(number);
}

// The part of a row that begins at the 1-based position.
std::u32string_view Part(std::u32string_view row, std::size_t position, std::size_t length)
{
    return position <= row.size() ? row.substr(position - 1, length) : std::u32string_view();
}

std::string DocumentName(const WindowTag &tag)
{
    // A new file's name has no folder before it, so its field's blanks have to be taken off here.
    const std::string path = tag.Text(TagPosition::Path, kPathField);
    const std::string name = FileNameOf(RightTrimmed(path));
    const int slot = tag.Slot();
    const bool userBank = (tag.Kind() == ViewKind::StyleFile && IsBankSlot(slot, kLastStyUserSlot)) ||
                          (tag.Kind() == ViewKind::PerformanceFile && IsBankSlot(slot, kLastPrfUserSlot));
    return userBank ? "User" + Plain(slot - kFirstBankSlot + 1) + ": " + name : name;
}

void PrintHeading(PrintJob &job, const WindowTag &tag, const std::string &date)
{
    const std::u32string head = CharactersOfText(kProgramName) + U" - " + CharactersOfText(kProgramTitle);
    const std::u32string name = CharactersOfText(DocumentName(tag));
    const auto h = static_cast<int>(head.size());
    PrintLine line;
    line.Set(head);
    line.Lay(h + (kDatePosition - h) / 2 - static_cast<int>(name.size()) / 2, name);
    line.Lay(kDatePosition, CharactersOfText(date));
    job.Place(kLeftEdge, kFirstLine);
    job.Print(line);
    job.PrintEmpty();
    job.PrintEmpty();
}

// Runs down the columns: the second begins with row places / 4.
void PrintPrograms(PrintJob &job, const ListRows &rows, int places)
{
    job.PrintHead(kProgramHead);
    for (int i = 0; i < places / kProgramColumns; ++i) {
        PrintLine line;
        for (int column = 0; column < kProgramColumns; ++column) {
            line.Lay(1 + kProgramColumnWidth * column, rows.Row(i + column * places / kProgramColumns));
        }
        job.PrintRow(line);
    }
}

// Name and size of the 0-based entry. An entry past the directory shows what the bytes and the table hold there.
void LayItem(PrintLine &line, const FilesState &files, int entry, ItemColumns columns)
{
    line.Lay(columns.name, CharactersOfBytes(EntryName(files.clipboard.ClipImage.View(), entry)));
    if (entry < Korf::kMostItems) {
        const std::string size = Plain(files.ItemIndex[Korf::kMostItems + static_cast<std::size_t>(entry)]);
        const std::size_t blanks = kSizeWidth - std::min(kSizeWidth, size.size());
        line.Lay(columns.size, CharactersOfText(std::string(blanks, ' ') + size));
    }
    line.BlankZeros(columns.name, columns.name + Korf::kNameLength - 1);
}

void PrintStylesWithSts(PrintJob &job, const ListRows &rows, const FilesState &files, int layout)
{
    const ImageView image = files.clipboard.ClipImage.View();
    const int m = CountItems(image);
    const bool interleaved = layout == StyleLayout::Interleaved;
    const int u = interleaved ? m : m / 2;
    const int toSts = interleaved ? 1 : m / 2;
    job.PrintHead(kStyleStsHead);
    for (int i = 0; i < kStyleRows; ++i) {
        PrintLine line;
        line.Set(Part(rows.Row(i), 1, kStyleRowHead));
        int j = 0;
        while (j < u && EntrySlot(image, j) != i) {
            ++j;
        }
        if (j < u) {
            LayItem(line, files, j, kStyleColumns);
            LayItem(line, files, j + toSts, kStsColumns);
        }
        job.PrintRow(line);
    }
}

void PrintStyles(PrintJob &job, const ListRows &rows, FilesState &files, const FileImage &image)
{
    if (job.Error().Failed()) {
        return;
    }
    ItemClipboard &clipboard = files.clipboard;
    clipboard.ClipImage = image;
    const int layout = ClassifyStyleLayout(image.View());
    IndexItems(image.View(), files.ItemIndex);
    clipboard.ClipValid = 0; // its image is that of the listing now
    if (layout != StyleLayout::StylesOnly) {
        PrintStylesWithSts(job, rows, files, layout);
        return;
    }
    job.PrintHead(kStyleHead);
    for (int i = 0; i < kStyleRows; ++i) {
        PrintLine line;
        line.Set(rows.Row(i));
        job.PrintRow(line);
    }
}

// The sixteen characters begin with the blank before the name, so a name of full length loses its last one.
void PrintPerformances(PrintJob &job, const ListRows &rows)
{
    constexpr std::size_t kNumber = 2;
    constexpr std::size_t kName = 3;
    job.PrintHead(kPerformanceHead);
    for (int i = 0; i < kPerformancePlaces; ++i) {
        const std::u32string row = rows.Row(i);
        PrintLine line;
        line.Set(std::u32string(Part(row, 1, kNumber)) + U' ' + std::u32string(Part(row, kName, Korf::kNameLength)));
        job.PrintRow(line);
    }
}

} // namespace

void mnuStampa_Click(FilesState &files)
{
    if (const Form *window = files.app.children.Active()) {
        PrintDocument(files, window->Tag);
    }
}

void PrintDocument(FilesState &files, const WindowTag &tag)
{
    Modulo1 &app = files.app;
    app.ViewKind = tag.Kind();
    app.slot = tag.Slot();
    PrintJob job(app.ports.printer);
    job.Begin();
    PrintHeading(job, tag, app.ports.clock.ShortDate());
    const ListRows rows = RowsOf(app.children.Active());
    const DocumentType *type = TypeOfKind(files, app.ViewKind); // of none: the heading alone
    if (type == &files.programs && app.ViewKind != ViewKind::NewProgram128) {
        PrintPrograms(job, rows, tag.At(TagPosition::Places));
    } else if (type == &files.styles) {
        PrintStyles(job, rows, files, tag.image);
    } else if (type == &files.performances) {
        PrintPerformances(job, rows);
    }
    job.EndDoc();
    const RuntimeError error = job.Error();
    if (error.Failed() && error.number != PrinterError::kCancelled) {
        app.messages.ShowMessage(MessageNo::GenericError, kProgramTitle, {});
    }
}

} // namespace velluto
