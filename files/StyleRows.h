// How the directory of a Style file is arranged, and the rows of Styles and of their STS as text: number, name and size for each of the
// sixteen places. Rows are composed
// out of order in RowBuffer, where an item's slot says which row it is. Used by the Style window and the overviews.
#pragma once

#include "files/Korf.h"

#include <string>
#include <string_view>
#include <vector>

namespace velluto {

namespace StyleLayout {
inline constexpr int StylesOnly = 0;  // one entry for each Style
inline constexpr int Interleaved = 1; // each Style is followed by its STS
inline constexpr int Grouped = 2;     // all Styles, then all STS in the same order
} // namespace StyleLayout

// The arrangement, told by where the slot of the first entry comes again. An image without items has Styles only, and
// so has one that ends before the first entry's slot.
[[nodiscard]] int ClassifyStyleLayout(ImageView image);

// The rows of a Style window or of one list of an overview while they are composed: 16 rows of 28 characters. An item's
// slot decides where its row stands; what would stand behind the sixteenth is lost.
inline constexpr int kStyleRowLength = 28;
inline constexpr int kStyleRows = 16;
inline constexpr int kRowBufferLength = kStyleRowLength * kStyleRows;

// Rows of a new file.
[[nodiscard]] std::vector<std::string> NewStyleRows();

// What stands behind the number: the name, with blanks for zeros behind its first four characters, and the size.
[[nodiscard]] std::string StyleText(std::string name, std::int32_t size);

// Clears RowBuffer and writes the numbers of the sixteen rows.
void PutRowNumbers(std::string &rowBuffer);
// Writes text at the 1-based position. What lies before or behind the buffer is lost.
void PutInRowBuffer(std::string &rowBuffer, int position, std::string_view text);
// The sixteen rows that RowBuffer holds.
[[nodiscard]] std::vector<std::string> RowsOf(const std::string &rowBuffer);

// The four ways to walk a directory. They read the entries as they stand; one that runs past the directory takes
// what lies there for an entry, and a piece beyond the image gives what there is. table is the ItemIndex of the image.

// A window's load: count entries from the first on, each followed by `step` - 1 that are left out.
void PutStylesAtLoad(std::string &rowBuffer, ImageView image, const ItemTable &table, int count, int step);
// Back from the STS: half as many as there are entries, leaving out an entry with the slot of the one before it.
void PutStyles(std::string &rowBuffer, ImageView image, const ItemTable &table);
// The STS: half as many as there are entries. Where one Style has none, the walk loses its step from there on.
void PutSts(std::string &rowBuffer, ImageView image, const ItemTable &table);
// A list of an overview: as PutStyles, but each row brings its number, and a place without an item is blank.
void PutOverviewRows(std::string &rowBuffer, ImageView image, const ItemTable &table);

} // namespace velluto
