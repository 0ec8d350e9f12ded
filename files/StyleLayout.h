// How the directory of a Style file is arranged: where the STS of a Style stands. Asked by the Style window, by the
// editing commands and by the listings.
#pragma once

#include "files/Korf.h"

namespace velluto {

namespace StyleLayout {
inline constexpr int StylesOnly = 0;  // one entry for each Style
inline constexpr int Interleaved = 1; // each Style is followed by its STS
inline constexpr int Grouped = 2;     // all Styles, then all STS in the same order
} // namespace StyleLayout

// The arrangement, told by where the slot of the first entry comes again. An image without items has Styles only, and
// so has one that ends before the first entry's slot.
[[nodiscard]] int ClassifyStyleLayout(ImageView image);

} // namespace velluto
