#include "files/ItemRows.h"

#include "app/FixedText.h"

#include <algorithm>

namespace velluto {

namespace {

const std::string kNoName(Korf::kNameLength, ' ');

// Makes blanks of the zeros that pad a name at the end of a row, from the fourth character before the end backwards up
// to the first other character. The last four keep theirs: in a list that does no harm.
void BlankPadding(std::string &row)
{
    constexpr std::size_t kUntouchedEnd = 4;
    for (std::size_t length = row.size(); length > kUntouchedEnd && row[length - kUntouchedEnd - 1] == '\0'; --length) {
        row[length - kUntouchedEnd - 1] = ' ';
    }
}

// A blank, the row number with three digits, a blank.
std::string RowHead(int number)
{
    return " " + WithLeadingZeros(number, 3) + " ";
}

std::string NameAt(ImageView image, int entry)
{
    std::string name = EntryName(image, entry);
    name.resize(Korf::kNameLength, ' ');
    return name;
}

// Makes blanks of the zeros at the end of a name, up to the first other character.
void BlankTrailingZeros(std::string &name)
{
    for (std::size_t length = name.size(); length > 0 && name[length - 1] == '\0'; --length) {
        name[length - 1] = ' ';
    }
}

} // namespace

std::string WithLeadingZeros(int number, int digits)
{
    const std::string text = std::to_string(number);
    const auto wanted = static_cast<std::size_t>(digits);
    return std::string(wanted - std::min(text.size(), wanted), '0') + text;
}

int ProgramPlaces(ImageView image)
{
    const int n = CountItems(image);
    for (int entry = 0; entry < n; ++entry) {
        if (EntrySlot(image, entry) >= kProgramPlaces) {
            return kProgramPlacesLarge;
        }
    }
    return kProgramPlaces;
}

std::vector<std::string> EmptyProgramRows(int places)
{
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(places));
    for (int number = 1; number <= places; ++number) {
        rows.push_back(RowHead(number) + kNoName);
    }
    return rows;
}

std::vector<std::string> ProgramRows(ImageView image, int places)
{
    std::vector<std::string> rows;
    rows.reserve(static_cast<std::size_t>(places));
    const int n = CountItems(image);
    int entry = 0;
    for (int place = 0; place < places; ++place) {
        std::string row = RowHead(place + 1);
        if (entry < n && EntrySlot(image, entry) == place) {
            row += RightTrimmed(EntryName(image, entry));
            ++entry;
        }
        BlankPadding(row);
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::string> NewPerformanceRows()
{
    std::vector<std::string> rows;
    for (int number = 1; number <= kPerformancePlaces; ++number) {
        rows.push_back(" " + std::to_string(number) + " " + kNoName);
    }
    return rows;
}

std::vector<std::string> PerformanceRows(ImageView image)
{
    std::vector<std::string> rows;
    const bool hasItems = CountItems(image) > 0;
    int entry = 0; // runs on past the directory on purpose
    for (int place = 0; place < kPerformancePlaces; ++place) {
        if (!hasItems) {
            rows.push_back(WithLeadingZeros(place + 1, 3) + " " + kNoName);
            continue;
        }
        std::string row = " " + std::to_string(place + 1) + " ";
        if (EntrySlot(image, entry) == place) {
            row += NameAt(image, entry);
            ++entry;
            BlankPadding(row);
        } else {
            row += kNoName;
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::string> PerformanceOverviewRows(ImageView image)
{
    std::vector<std::string> rows;
    for (int place = 0; place < kPerformancePlaces; ++place) {
        std::string name = kNoName;
        if (EntrySlot(image, place) == place) { // beyond the directory too
            name = NameAt(image, place);
            BlankTrailingZeros(name);
        }
        rows.push_back(std::to_string(place + 1) + " " + name);
    }
    return rows;
}

} // namespace velluto
