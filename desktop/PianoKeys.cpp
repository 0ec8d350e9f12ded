#include "desktop/PianoKeys.h"

#include "desktop/Twips.h"

#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace velluto {

namespace {

constexpr QRgb kGap = qRgb(92, 88, 86);         // between two keys, and behind them
constexpr QRgb kWhiteEnd = qRgb(226, 223, 220); // the lower edge of a white key
constexpr QRgb kBlackFace = qRgb(52, 50, 51);   // the upper face of a black key
constexpr QRgb kDotOnWhite = qRgb(0, 0, 0);
constexpr QRgb kDotOnBlack = qRgb(0, 255, 0);
constexpr double kDotShare = 0.56; // of the key's width
constexpr double kDotRise = 0.45;  // of the key's width, from the lower end of the key to the dot
constexpr double kWhiteEndHeight = 4;
constexpr double kBlackRim = 1.5;
constexpr double kBlackEndHeight = 6;
constexpr double kCursorWidth = 2;

// The dot's middle stands equally far from both sides.
QRectF DotRect(const QRectF &key)
{
    const double size = key.width() * kDotShare;
    return {key.center().x() - size / 2, key.bottom() - key.width() * kDotRise - size, size, size};
}

void DrawWhite(QPainter &painter, const QRectF &rect, const QColor &colour, double dot)
{
    painter.fillRect(rect.adjusted(0, 0, -dot, 0), colour);
    painter.fillRect(QRectF(rect.left(), rect.bottom() - kWhiteEndHeight, rect.width() - dot, kWhiteEndHeight), QColor(kWhiteEnd));
}

void DrawBlack(QPainter &painter, const QRectF &rect, const QColor &colour)
{
    painter.fillRect(rect, colour);
    QPainterPath face;
    face.addRoundedRect(rect.adjusted(kBlackRim, 0, -kBlackRim, -kBlackEndHeight), kBlackRim, kBlackRim);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(face, QColor(kBlackFace));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

QRect RectOfPlace(const Place &place)
{
    return {place.left, place.top, place.width, place.height};
}

} // namespace

void PianoKeys::FollowPlaces()
{
    twips_ = {};
    for (const PianoKey *key : keys_) {
        twips_ = twips_.united(RectOfPlace(key->place));
    }
    setGeometry(ToPixels(Place{twips_.left(), twips_.top(), twips_.width(), twips_.height()}));
    update();
}

QRectF PianoKeys::RectOf(int number) const
{
    if (twips_.isEmpty()) {
        return {};
    }
    const QRect place = RectOfPlace(KeyOf(number).place).translated(-twips_.topLeft());
    const double dots = devicePixelRatioF();
    const auto across = [&](int twips) { return std::round(dots * twips * width() / twips_.width()) / dots; };
    const auto down = [&](int twips) { return std::round(dots * twips * height() / twips_.height()) / dots; };
    return {QPointF(across(place.left()), down(place.top())),
            QPointF(across(place.left() + place.width()), down(place.top() + place.height()))};
}

int PianoKeys::KeyAt(const QPointF &point) const
{
    for (const bool black : {true, false}) {
        for (int number = 0; number < KeyCount(); ++number) {
            const QRectF rect = RectOf(number);
            const bool inside =
                point.x() >= rect.left() && point.x() < rect.right() && point.y() >= rect.top() && point.y() < rect.bottom();
            if (KeyOf(number).black == black && inside) {
                return number;
            }
        }
    }
    return -1;
}

void PianoKeys::DrawKey(QPainter &painter, int number) const
{
    const PianoKey &key = KeyOf(number);
    const QColor colour(static_cast<QRgb>(key.color.Get()));
    if (key.black) {
        DrawBlack(painter, RectOf(number), colour);
    } else {
        DrawWhite(painter, RectOf(number), colour, 1 / devicePixelRatioF());
    }
}

void PianoKeys::DrawDot(QPainter &painter, int number) const
{
    if (!KeyOf(number).dot) {
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(KeyOf(number).black ? kDotOnBlack : kDotOnWhite));
    painter.drawEllipse(DotRect(RectOf(number)));
    painter.setRenderHint(QPainter::Antialiasing, false);
}

void PianoKeys::DrawCursor(QPainter &painter) const
{
    const double half = kCursorWidth / 2;
    painter.setPen(QPen(palette().color(QPalette::Active, QPalette::Highlight), kCursorWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(RectOf(cursor_).adjusted(half, half, -half, -half));
}

void PianoKeys::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), QColor(kGap));
    for (const bool black : {false, true}) {
        for (int number = 0; number < KeyCount(); ++number) {
            if (KeyOf(number).black == black && RectOf(number).intersects(QRectF(event->rect()))) {
                DrawKey(painter, number);
                DrawDot(painter, number);
            }
        }
    }
    if (cursorShown_ && hasFocus() && KeyCount() > 0) {
        DrawCursor(painter);
    }
}

} // namespace velluto
