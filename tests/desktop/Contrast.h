// How far what is drawn stands out from what lies around it, by the pixels: 1 to 21, as is usual on the web. Used by the tests
// that look at every window.
#pragma once

#include <QImage>
#include <QWidget>

#include <string>

namespace velluto::test {

inline constexpr double kTextContrast = 4.5; // text is at least so far from its background
inline constexpr double kLineContrast = 3;   // and so are lines that mean something

[[nodiscard]] double ContrastOf(QRgb one, QRgb other);
// Of the pixel that stands out most from the rectangle's commonest colour.
[[nodiscard]] double TextContrast(const QImage &image, const QRect &rect);
// Of the faintest side of a box's edge beside what lies around the box. A side at the edge of what holds the box needs none.
[[nodiscard]] double EdgeContrast(const QImage &image, const QRect &box, const QRect &holder);
// Texts and lines of all enabled controls on the window, the window's own title among them, that are too faint: each with its
// name and its contrast.
[[nodiscard]] std::string FaintParts(QWidget &window);

} // namespace velluto::test
