#include "files/ProgramRows.h"

#include "app/FixedText.h"
#include "files/RowText.h"

namespace velluto {

namespace {

// A blank, the row number with three digits, a blank.
std::string RowHead(int number)
{
    return " " + WithLeadingZeros(number, 3) + " ";
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
