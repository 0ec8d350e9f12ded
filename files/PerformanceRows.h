// The rows of Performances as text: number and name for each of the eight places. Item names are single bytes and go
// into the rows as they are. Used by the Performance window and its overview, which read the directory differently.
#pragma once

#include "files/Korf.h"

#include <string>
#include <vector>

namespace velluto {

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
