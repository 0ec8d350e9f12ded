// The rows of Programs and Performances as text: number and name for each place. Item names are single bytes and go into the rows as
// they are. Used by the windows and the overview, which read the directory differently.
#pragma once

#include "files/Korf.h"

#include <string>
#include <vector>

namespace velluto {

// The number with leading zeros to so many digits; a longer number stays whole.
[[nodiscard]] std::string WithLeadingZeros(int number, int digits);

inline constexpr int kProgramPlaces = 64;       // of a small bank
inline constexpr int kProgramPlacesLarge = 128; // of a large one

// How many places the bank of a file has: 128 if any entry lies beyond the first 64, or else 64.
[[nodiscard]] int ProgramPlaces(ImageView image);
// Rows of a file without items, and of a new one.
[[nodiscard]] std::vector<std::string> EmptyProgramRows(int places);
// Rows of a file with items. The entries are expected in ascending order of slot: one that is out of order keeps all
// later ones from being shown.
[[nodiscard]] std::vector<std::string> ProgramRows(ImageView image, int places);

inline constexpr int kPerformancePlaces = 8;

// Rows of a new file.
[[nodiscard]] std::vector<std::string> NewPerformanceRows();
// Rows of a file. Without items their numbers have three digits and no blank before them, so that they count as
// occupied. With items the entries are expected in ascending order of slot: one that is out of order keeps all later
// ones from being shown, and behind the last entry the bytes of the first body are read as one.
[[nodiscard]] std::vector<std::string> PerformanceRows(ImageView image);
// Rows of the overview: entry by entry, not place by place, so that an item shows only where the number of its entry is
// that of its place.
[[nodiscard]] std::vector<std::string> PerformanceOverviewRows(ImageView image);

} // namespace velluto
