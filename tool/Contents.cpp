#include "tool/Contents.h"

#include "app/FixedText.h"
#include "files/ItemRows.h"
#include "files/StyleRows.h"
#include "tool/Words.h"

#include <algorithm>
#include <utility>

namespace velluto::tool {

namespace {

constexpr std::string_view kSts = "STS";

// Where a row's name begins, behind the number and the blanks around it.
std::size_t NameAt(std::string_view kind)
{
    if (kind == NameOf(Kind::Program)) {
        return 5;
    }
    return kind == NameOf(Kind::Performance) ? 3 : 4;
}

void Add(std::vector<ItemRow> &rows, std::string_view kind, std::vector<std::string> texts, bool hasItems)
{
    int place = 0;
    for (std::string &text : texts) {
        const bool occupied = hasItems && RightTrimmed(text).size() >= NameAt(kind);
        rows.push_back({kind, ++place, occupied, std::move(text)});
    }
}

// The two views of a Style window, by its own rules: of exactly one entry it shows nothing.
void AddStyles(std::vector<ItemRow> &rows, ImageBlock image)
{
    const int n = CountItems(image);
    const int layout = ClassifyStyleLayout(image);
    const bool hasSts = n > 1 && layout != StyleLayout::StylesOnly;
    ItemTable table{};
    IndexItems(image, table);
    std::string buffer;
    PutRowNumbers(buffer);
    if (n > 1) {
        PutStylesAtLoad(buffer, image, table, hasSts ? n / 2 : n, layout == StyleLayout::Interleaved ? 2 : 1);
    }
    Add(rows, NameOf(Kind::Style), velluto::RowsOf(buffer), true);
    if (hasSts) {
        PutRowNumbers(buffer);
        PutSts(buffer, image, table);
        Add(rows, kSts, velluto::RowsOf(buffer), true);
    }
}

} // namespace

std::string ItemRow::Name() const
{
    const std::size_t at = std::min(NameAt(kind), bytes.size());
    return std::string(RightTrimmed(DrawnText(bytes.substr(at, Korf::kNameLength))));
}

int PlacesOf(ImageBlock image, Kind kind)
{
    if (kind == Kind::Program) {
        return ProgramPlaces(image);
    }
    return kind == Kind::Style ? kStyleRows : kPerformancePlaces;
}

std::vector<ItemRow> RowsOf(ImageBlock image, Kind kind)
{
    std::vector<ItemRow> rows;
    const bool hasItems = CountItems(image) > 0;
    if (kind == Kind::Program) {
        const int places = ProgramPlaces(image);
        Add(rows, NameOf(kind), hasItems ? ProgramRows(image, places) : EmptyProgramRows(places), hasItems);
    } else if (kind == Kind::Style) {
        AddStyles(rows, image);
    } else if (kind == Kind::Performance) {
        Add(rows, NameOf(kind), PerformanceRows(image), hasItems);
    }
    return rows;
}

} // namespace velluto::tool
