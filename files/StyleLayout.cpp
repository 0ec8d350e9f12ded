#include "files/StyleLayout.h"

namespace velluto {

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

} // namespace velluto
