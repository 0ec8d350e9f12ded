#include "edit/PasteJob.h"

#include <algorithm>

namespace velluto {

namespace {

int LastOccupied(const ItemWindow &window)
{
    int r = window.rules.rows;
    while (r > 0 && !window.IsOccupied(r - 1)) {
        --r;
    }
    return r;
}

int FirstFree(const ItemWindow &window)
{
    int row = 0;
    while (row < window.rules.rows && !(window.IsEmpty(row) && window.IsSelected(row))) {
        ++row;
    }
    return row;
}

int FreeFrom(const ItemWindow &window, int dest)
{
    int row = dest;
    while (row < window.rules.rows && !window.IsOccupied(row)) {
        ++row;
    }
    return row - dest;
}

} // namespace

PasteJob::PasteJob(FilesState &state, const ItemWindow &target)
    : files(state), window(target), last(LastOccupied(target)), dest(FirstFree(target)),
      take(std::min(FreeFrom(target, dest), state.clipboard.ClipCount)), first(state.clipboard.ClipFirstRow), stop(first + take - 1)
{
}

} // namespace velluto
