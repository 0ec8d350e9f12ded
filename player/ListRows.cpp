#include "player/ListRows.h"

#include "app/FixedText.h"
#include "app/Paths.h"

#include <algorithm>

namespace velluto {

std::string FileRow(std::string_view name, std::uint64_t length)
{
    return std::string(name) + "   (" + std::to_string(length) + ")";
}

std::string BareName(std::string_view row)
{
    return std::string(RightTrimmed(row.substr(0, std::min(row.rfind('('), row.size()))));
}

std::string NamePart(std::string_view path)
{
    return std::string(path.substr(path.rfind(kPathSeparator) + 1));
}

int FirstSelected(const ListBox &list)
{
    for (int row = 0; row < list.ListCount(); ++row) {
        if (list.Selected(row)) {
            return row;
        }
    }
    return -1;
}

int CurrentOrFirstSelected(const ListBox &list)
{
    return list.Selected(list.ListIndex()) ? list.ListIndex() : FirstSelected(list);
}

int EndOfRun(const ListBox &list, int first)
{
    int last = first;
    while (list.Selected(last + 1)) {
        ++last;
    }
    return last;
}

void Choose(ListBox &list, int row)
{
    list.SetListIndex(row);
    list.Select(row, true);
}

void MoveSelection(ListBox &list, int row)
{
    list.Select(list.ListIndex(), false);
    Choose(list, row);
}

} // namespace velluto
