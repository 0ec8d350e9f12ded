// What the editing steps read of an image in pieces: its count, its entries, its index. Entries are numbered from 1, and
// may be asked for past the directory's end: what lies there is read as one. Everything throws OutsideImage where the image
// ends too early.
#pragma once

#include "edit/ImagePieces.h"
#include "files/Korf.h"

namespace velluto {

[[nodiscard]] int CountItems(const ImagePieces &image);
// Leaves the table as it was where there are no items.
void IndexItems(const ImagePieces &image, ItemTable &table);

// 1-based position of an entry's first byte.
[[nodiscard]] std::int64_t EntryPosition(int entry);
[[nodiscard]] int SlotOf(const ImagePieces &image, int entry);
// The first of count entries with that slot byte, or the number behind the last one.
[[nodiscard]] int FindEntry(const ImagePieces &image, int count, int slot);
// The first of count entries with a slot byte above that, or 0.
[[nodiscard]] int FindEntryAbove(const ImagePieces &image, int count, int slot);
// 1-based position of the first byte behind a directory of so many entries: where the first body lies.
[[nodiscard]] std::int64_t FirstBody(int entries);

} // namespace velluto
