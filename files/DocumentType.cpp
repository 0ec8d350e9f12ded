#include "files/DocumentType.h"

#include <algorithm>

namespace velluto {

void TakeSlot(DocumentType &type, int slot)
{
    type.work = type.table[static_cast<std::size_t>(slot)];
}

void StoreSlot(DocumentType &type, int slot)
{
    type.table[static_cast<std::size_t>(slot)] = type.work;
}

bool FindOpen(DocumentType &type, std::string_view path)
{
    for (int slot = kFirstFileSlot; slot <= kLastFileSlot; ++slot) {
        TakeSlot(type, slot);
        if (type.work.State == StoredState::Normal && type.work.Path.Trimmed() == path) {
            return true;
        }
    }
    return false;
}

int FindKnown(DocumentType &type, std::string_view path)
{
    for (int slot = kFirstFileSlot; slot <= kLastFileSlot; ++slot) {
        TakeSlot(type, slot);
        if (type.work.Path.Trimmed() == path) {
            return slot;
        }
    }
    return 0;
}

int FindFree(const DocumentType &type)
{
    const auto *const free = std::find(type.openFlags.begin() + kFirstFileSlot, type.openFlags.end(), false);
    return free == type.openFlags.end() ? 0 : static_cast<int>(free - type.openFlags.begin());
}

} // namespace velluto
