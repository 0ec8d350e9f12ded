#include "files/StyleRows.h"

#include "files/ItemRows.h"

#include <algorithm>
#include <utility>

namespace velluto {

namespace {

constexpr int kNameColumn = 5; // 1-based: a name stands behind a blank, two digits and a blank
constexpr int kSizeField = 7;  // what padding and number, with its sign place, fill together
constexpr int kKeptZeros = 4;  // characters at the beginning of a name that keep their zeros in a window's own rows

std::string RowNumber(int number)
{
    return " " + WithLeadingZeros(number, 2);
}

// The length of the 1-based item, 0 for one that the table has no room for.
std::int32_t ItemLength(const ItemTable &table, int item)
{
    return item >= 1 && item <= Korf::kMostItems ? table[static_cast<std::size_t>(Korf::kMostItems + item - 1)] : 0;
}

// The 16 characters of a name, with blanks for zeros behind the first `kept` characters.
std::string NameWithBlanks(std::string name, int kept)
{
    name.resize(Korf::kNameLength, ' ');
    std::replace(name.begin() + kept, name.end(), '\0', ' ');
    return name;
}

// Ends at the row's 26th character for up to six digits; a longer number grows to the right.
std::string PaddedSize(std::int32_t size)
{
    const std::string number = std::to_string(size);
    const int printed = static_cast<int>(number.size()) + (size >= 0 ? 1 : 0);
    return std::string(static_cast<std::size_t>(std::max(kSizeField - printed, 0)), ' ') + number;
}

int RowStart(int slot)
{
    return slot * kStyleRowLength + 1;
}

// Writes the 0-based entry into the row that `slot` names.
void PutItem(std::string &rowBuffer, int slot, ImageView image, int entry, const ItemTable &table)
{
    if (slot >= 0) {
        const std::string text = StyleText(EntryName(image, entry), ItemLength(table, entry + 1));
        PutInRowBuffer(rowBuffer, RowStart(slot) + kNameColumn - 1, text);
    }
}

// Calls put(entry, slot) for half as many entries as there are, leaving out one with the slot of the one before it.
template <class Put>
void WalkHalf(ImageView image, Put put)
{
    const int half = CountItems(image) / 2;
    int entry = 0;
    for (int i = 0; i < half; ++i) {
        put(entry, EntrySlot(image, entry));
        ++entry;
        if (EntrySlot(image, entry) == EntrySlot(image, entry - 1)) {
            ++entry;
        }
    }
}

} // namespace

int ClassifyStyleLayout(ImageView image)
{
    const int n = CountItems(image);
    const int s = EntrySlot(image, 0);
    if (s < 0) {
        return StyleLayout::StylesOnly;
    }
    int i = 1;
    while (i < n && EntrySlot(image, i) != s) {
        ++i;
    }
    if (i >= n) {
        return StyleLayout::StylesOnly;
    }
    return i == 1 ? StyleLayout::Interleaved : StyleLayout::Grouped;
}

std::vector<std::string> NewStyleRows()
{
    std::vector<std::string> rows;
    rows.reserve(kStyleRows);
    for (int number = 1; number <= kStyleRows; ++number) {
        rows.push_back(RowNumber(number) + " " + std::string(Korf::kNameLength, ' '));
    }
    return rows;
}

std::string StyleText(std::string name, std::int32_t size)
{
    return NameWithBlanks(std::move(name), kKeptZeros) + PaddedSize(size);
}

void PutRowNumbers(std::string &rowBuffer)
{
    rowBuffer.assign(kRowBufferLength, ' ');
    for (int slot = 0; slot < kStyleRows; ++slot) {
        PutInRowBuffer(rowBuffer, RowStart(slot), RowNumber(slot + 1));
    }
}

void PutInRowBuffer(std::string &rowBuffer, int position, std::string_view text)
{
    for (const char c : text) {
        if (position >= 1 && position <= static_cast<int>(rowBuffer.size())) {
            rowBuffer[static_cast<std::size_t>(position - 1)] = c;
        }
        ++position;
    }
}

std::vector<std::string> RowsOf(const std::string &rowBuffer)
{
    std::vector<std::string> rows;
    rows.reserve(kStyleRows);
    for (int slot = 0; slot < kStyleRows; ++slot) {
        rows.push_back(rowBuffer.substr(static_cast<std::size_t>(RowStart(slot) - 1), kStyleRowLength));
    }
    return rows;
}

void PutStylesAtLoad(std::string &rowBuffer, ImageView image, const ItemTable &table, int count, int step)
{
    for (int i = 0; i < count; ++i) {
        const int entry = i * step;
        PutItem(rowBuffer, EntrySlot(image, entry), image, entry, table);
    }
}

void PutStyles(std::string &rowBuffer, ImageView image, const ItemTable &table)
{
    WalkHalf(image, [&](int entry, int slot) { PutItem(rowBuffer, slot, image, entry, table); });
}

void PutSts(std::string &rowBuffer, ImageView image, const ItemTable &table)
{
    const int half = CountItems(image) / 2;
    int entry = 0;
    for (int i = 0; i < half; ++i) {
        const int slot = EntrySlot(image, entry);
        if (EntrySlot(image, entry + 1) == slot) { // the STS stands behind its Style
            ++entry;
            PutItem(rowBuffer, slot, image, entry, table);
        } else { // all STS stand behind all Styles
            PutItem(rowBuffer, slot, image, entry + half, table);
        }
        ++entry;
    }
}

void PutOverviewRows(std::string &rowBuffer, ImageView image, const ItemTable &table)
{
    rowBuffer.assign(kRowBufferLength, ' ');
    WalkHalf(image, [&](int entry, int slot) {
        if (slot >= 0) {
            const std::string name = NameWithBlanks(EntryName(image, entry), 0);
            const std::string row = RowNumber(slot + 1) + " " + name + PaddedSize(ItemLength(table, entry + 1));
            PutInRowBuffer(rowBuffer, RowStart(slot), row);
        }
    });
}

} // namespace velluto
