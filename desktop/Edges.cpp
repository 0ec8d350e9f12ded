#include "desktop/Edges.h"

#include <QPainter>
#include <QStyleOptionSlider>

#include <algorithm>

namespace velluto {

namespace {

constexpr double kCorner = 2;   // radius of a rounded corner, logical pixels
constexpr int kTrack = 4;       // breadth of a slider's track
constexpr int kHandleInset = 1; // the handle stays inside the place that it is pressed in
constexpr int kMarkLength = 4;  // of the marks beside a slider
constexpr int kMarkGap = 2;     // between handle and mark
constexpr float kPale = 0.35F;  // how much of it is left of a line of what cannot be used

// Part of a mixture, 0 to 1, is the first colour.
QColor Mixed(const QColor &one, const QColor &other, float part)
{
    const auto mix = [part](float a, float b) { return a * part + b * (1 - part); };
    return QColor::fromRgbF(mix(one.redF(), other.redF()), mix(one.greenF(), other.greenF()), mix(one.blueF(), other.blueF()));
}

void DrawMarks(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QRect &handle, const QColor &line)
{
    const bool level = option.orientation == Qt::Horizontal;
    const int handleLength = level ? handle.width() : handle.height();
    const int room = (level ? option.rect.width() : option.rect.height()) - style.pixelMetric(QStyle::PM_SliderLength, &option);
    for (int value = option.minimum; value <= option.maximum; value += std::max(option.tickInterval, 1)) {
        const int along =
            QStyle::sliderPositionFromValue(option.minimum, option.maximum, value, room, option.upsideDown) + handleLength / 2;
        if (level) {
            const int x = option.rect.left() + along;
            painter.fillRect(x, handle.top() - kMarkGap - kMarkLength, 1, kMarkLength, line);
            painter.fillRect(x, handle.bottom() + 1 + kMarkGap, 1, kMarkLength, line);
        } else {
            const int y = option.rect.top() + along;
            painter.fillRect(handle.left() - kMarkGap - kMarkLength, y, kMarkLength, 1, line);
            painter.fillRect(handle.right() + 1 + kMarkGap, y, kMarkLength, 1, line);
        }
    }
}

} // namespace

QColor LineColour(const QPalette &palette, bool enabled)
{
    const QColor line = Mixed(palette.color(QPalette::Active, QPalette::WindowText), palette.color(QPalette::Window), 0.55F);
    return enabled ? line : Mixed(line, palette.color(QPalette::Window), kPale);
}

QColor MarkColour(const QPalette &palette)
{
    return palette.color(QPalette::Active, QPalette::Link);
}

void DrawEdge(QPainter &painter, const QRect &rect, const QColor &colour, EdgeShape shape)
{
    const QRectF edge = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, shape != EdgeShape::Square);
    painter.setPen(QPen(colour, 1));
    painter.setBrush(Qt::NoBrush);
    if (shape == EdgeShape::Round) {
        painter.drawEllipse(edge);
    } else {
        painter.drawRoundedRect(edge, shape == EdgeShape::Rounded ? kCorner : 0, shape == EdgeShape::Rounded ? kCorner : 0);
    }
    painter.restore();
}

bool ShowsFocus(const QStyleOption &option)
{
    return option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_KeyboardFocusChange);
}

void DrawSlider(QPainter &painter, const QStyleOptionSlider &option, const QStyle &style, const QWidget *widget)
{
    const QRect groove = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderGroove, widget);
    const QRect handle = style.subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, widget)
                             .adjusted(kHandleInset, kHandleInset, -kHandleInset, -kHandleInset);
    const bool level = option.orientation == Qt::Horizontal;
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const QColor line = LineColour(option.palette, enabled);
    QRect track = groove;
    QRect filled = groove;
    if (level) {
        track = QRect(groove.left(), handle.center().y() - kTrack / 2 + 1, groove.width(), kTrack);
        filled = track;
        option.upsideDown ? filled.setLeft(handle.center().x()) : filled.setRight(handle.center().x());
    } else {
        track = QRect(handle.center().x() - kTrack / 2 + 1, groove.top(), kTrack, groove.height());
        filled = track;
        option.upsideDown ? filled.setTop(handle.center().y()) : filled.setBottom(handle.center().y());
    }
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.fillRect(track, option.palette.color(QPalette::Base));
    if (enabled) {
        painter.fillRect(filled, option.palette.color(QPalette::Active, QPalette::Highlight));
    }
    DrawEdge(painter, track, line, EdgeShape::Square);
    if (option.tickPosition != QSlider::NoTicks) {
        DrawMarks(painter, option, style, handle, line);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(
        option.palette.color(option.activeSubControls.testFlag(QStyle::SC_SliderHandle) ? QPalette::Midlight : QPalette::Button));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.drawRoundedRect(handle, kCorner, kCorner);
    painter.restore();
    DrawEdge(painter, handle, ShowsFocus(option) ? MarkColour(option.palette) : line, EdgeShape::Rounded);
}

} // namespace velluto
