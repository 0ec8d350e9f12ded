// The program's fonts as Qt's, and the character cell that lists and text boxes are measured in.
#pragma once

#include "view/Geometry.h"

#include <QFont>

namespace velluto {

[[nodiscard]] QFont ToQFont(const Font &font);

// Row height and width of "A" in logical pixels. A row is one pixel higher than the letters' nominal size, closer than
// Qt's own line spacing: sixteen rows, a row of buttons and a title bar have to fit in a small window.
[[nodiscard]] int RowHeight(const QFont &font);
[[nodiscard]] int CellWidth(const QFont &font);
// From the top of a row to the line that letters stand on.
[[nodiscard]] int RowBaseline(const QFont &font);
// The same of a row of that height, in a font that reaches so far above and below its line.
[[nodiscard]] int BaselineIn(int height, int ascent, int descent);

} // namespace velluto
