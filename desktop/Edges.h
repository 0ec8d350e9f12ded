// The lines that tell a control from what lies around it: its edge, a slider's track, handle and marks. Drawn in a colour of our
// own: the style's is darker than the window in every theme, and in a dark one nobody sees it. Used by the look.
#pragma once

#include <QPalette>
#include <QStyle>

class QPainter;
class QStyleOption;
class QStyleOptionSlider;

namespace velluto {

// Of an edge or a mark: at least 3 to 1 beside the window's colour and beside a field's, in both themes.
[[nodiscard]] QColor LineColour(const QPalette &palette, bool enabled = true);

// Of what is to be seen before all else: where the keyboard is, a mark of the player's.
[[nodiscard]] QColor MarkColour(const QPalette &palette);

// The keyboard is there, and was used last.
[[nodiscard]] bool ShowsFocus(const QStyleOption &option);

enum class EdgeShape { Square, Rounded, Round };
// The edge just inside a rectangle, one logical pixel wide.
void DrawEdge(QPainter &painter, const QRect &rect, const QColor &colour, EdgeShape shape);

// The whole slider; style says where its parts lie.
void DrawSlider(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget);

} // namespace velluto
