// The rows of a Program window as text: number and name for each place of the bank. Item names are single bytes and go
// into the rows as they are.
#pragma once

#include "files/Korf.h"

#include <string>
#include <vector>

namespace velluto {

inline constexpr int kProgramPlaces = 64;       // of a small bank
inline constexpr int kProgramPlacesLarge = 128; // of a large one

// How many places the bank of a file has: 128 if any entry lies beyond the first 64, or else 64.
[[nodiscard]] int ProgramPlaces(ImageView image);
// Rows of a file without items, and of a new one.
[[nodiscard]] std::vector<std::string> EmptyProgramRows(int places);
// Rows of a file with items. The entries are expected in ascending order of slot: one that is out of order keeps all
// later ones from being shown.
[[nodiscard]] std::vector<std::string> ProgramRows(ImageView image, int places);

} // namespace velluto
