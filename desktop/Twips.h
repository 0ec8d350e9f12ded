// Between the program's twips (1/1440 inch) and the logical pixels that Qt draws with. Used by everything in desktop/.
#pragma once

#include "view/Geometry.h"

#include <QRect>
#include <QSize>

namespace velluto {

// Nearest logical pixel at the main screen's logical resolution.
[[nodiscard]] int ToPixels(int twips);
// ToPixels(ToTwips(n)) is n again.
[[nodiscard]] int ToTwips(int pixels);
// The smallest number of twips that is drawn as that many pixels or more: for measures that text has to fit into.
[[nodiscard]] int ToTwipsRoundedUp(double pixels);
// A control's rectangle, each edge rounded by itself, so that neighbours stay neighbours at any resolution.
[[nodiscard]] QRect ToPixels(const Place &place);
[[nodiscard]] QSize ToPixels(const Size &size);

} // namespace velluto
