#include "view/FolderControls.h"

namespace velluto {

void DriveList::SetDrives(std::vector<std::string> paths)
{
    rows = std::move(paths);
    ListIndex = -1;
    Changed(Aspect::Rows);
}

std::string DriveList::Drive() const
{
    const int row = ListIndex;
    return row >= 0 && row < static_cast<int>(rows.size()) ? rows[static_cast<std::size_t>(row)] : std::string();
}

void DriveList::Choose(int row)
{
    ListIndex = row;
    Raise(Change);
}

} // namespace velluto
