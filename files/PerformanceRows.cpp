#include "files/PerformanceRows.h"

#include "files/RowText.h"

namespace velluto {

namespace {

std::string NoName()
{
    std::string blanks(Korf::kNameLength, ' ');
    return blanks;
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

std::vector<std::string> NewPerformanceRows()
{
    std::vector<std::string> rows;
    for (int number = 1; number <= kPerformancePlaces; ++number) {
        rows.push_back(" " + std::to_string(number) + " " + NoName());
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
            rows.push_back(WithLeadingZeros(place + 1, 3) + " " + NoName());
            continue;
        }
        std::string row = " " + std::to_string(place + 1) + " ";
        if (EntrySlot(image, entry) == place) {
            row += NameAt(image, entry);
            ++entry;
            BlankPadding(row);
        } else {
            row += NoName();
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<std::string> PerformanceOverviewRows(ImageView image)
{
    std::vector<std::string> rows;
    for (int place = 0; place < kPerformancePlaces; ++place) {
        std::string name = NoName();
        if (EntrySlot(image, place) == place) { // beyond the directory too
            name = NameAt(image, place);
            BlankTrailingZeros(name);
        }
        rows.push_back(std::to_string(place + 1) + " " + name);
    }
    return rows;
}

} // namespace velluto
