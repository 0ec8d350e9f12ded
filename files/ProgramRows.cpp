#include "files/ProgramRows.h"

#include "app/FixedText.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr std::size_t kUntouchedEnd = 4; // characters at the end of a row that keep their zeros

// A blank, the row number with three digits, a blank.
std::string RowHead(int number)
{
    const std::string digits = std::to_string(number);
    return " " + std::string(3 - std::min<std::size_t>(digits.size(), 3), '0') + digits + " ";
}

// Makes blanks of the zeros that pad a name, from the fourth character before the end of the row backwards up to the
// first other character. The last four keep theirs: in a list that does no harm.
void BlankPadding(std::string &row)
{
    for (std::size_t length = row.size(); length > kUntouchedEnd && row[length - kUntouchedEnd - 1] == '\0'; --length) {
        row[length - kUntouchedEnd - 1] = ' ';
    }
}

} // namespace

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
        rows.push_back(RowHead(number) + std::string(Korf::kNameLength, ' '));
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

} // namespace velluto
