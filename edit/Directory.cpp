#include "edit/Directory.h"

#include <algorithm>

namespace velluto {

int CountItems(const ImagePieces &image)
{
    constexpr int kHigh = Korf::kDirectoryLength + 1;
    return (image.At(kHigh) * 256 + image.At(kHigh + 1)) / Korf::kEntryLength;
}

void IndexItems(const ImagePieces &image, ItemTable &table)
{
    constexpr int kWord = Korf::kOuterLength + 1;
    const int end = image.At(kWord + 1) * 65536 + image.At(kWord + 2) * 256 + image.At(kWord + 3) + 1;
    IndexItems(
        CountItems(image), end, [&](std::int64_t position) { return image.At(position); }, table);
}

std::int64_t EntryPosition(int entry)
{
    return Korf::kHeadLength + 1 + std::int64_t{entry - 1} * Korf::kEntryLength;
}

int SlotOf(const ImagePieces &image, int entry)
{
    return image.At(EntryPosition(entry) + Korf::kEntrySlot);
}

int FindEntry(const ImagePieces &image, int count, int slot)
{
    int entry = 1;
    while (entry <= count && SlotOf(image, entry) != slot) {
        ++entry;
    }
    return entry;
}

int FindEntryAbove(const ImagePieces &image, int count, int slot)
{
    for (int entry = 1; entry <= count; ++entry) {
        if (SlotOf(image, entry) > slot) {
            return entry;
        }
    }
    return 0;
}

std::int64_t FirstBody(int entries)
{
    return EntryPosition(entries + 1);
}

} // namespace velluto
