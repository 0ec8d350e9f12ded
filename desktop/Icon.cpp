#include "desktop/Icon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <array>
#include <map>
#include <utility>

namespace velluto {

namespace {

// All measures are those of velluto.svg, which is 64 units wide.
constexpr double kDrawing = 64.0;
constexpr double kKeysTop = 30.0;
constexpr double kKeysHeight = 26.0;
constexpr double kWhiteKey = 12.0;
constexpr std::array<double, 4> kWhiteKeys = {8.0, 20.0, 32.0, 44.0};
constexpr std::array<double, 3> kBlackKeys = {16.5, 28.5, 40.5};
constexpr std::array<int, 4> kSizes = {16, 32, 48, 128};

void DrawProgramIcon(QPainter &painter)
{
    painter.setPen(Qt::NoPen);
    QLinearGradient velvet(0, 0, 0, kDrawing);
    velvet.setColorAt(0, QColor(0x9e, 0x2a, 0x4d));
    velvet.setColorAt(1, QColor(0x55, 0x10, 0x2c));
    painter.setBrush(velvet);
    painter.drawRoundedRect(QRectF(2, 2, 60, 60), 12, 12);
    painter.setBrush(QColor(0xfa, 0xf6, 0xf2));
    for (const double left : kWhiteKeys) {
        painter.drawRoundedRect(QRectF(left + 0.75, kKeysTop, kWhiteKey - 1.5, kKeysHeight), 2, 2);
    }
    painter.setBrush(QColor(0x2b, 0x0a, 0x18));
    for (const double left : kBlackKeys) {
        painter.drawRoundedRect(QRectF(left, kKeysTop, 7, 15), 1.5, 1.5);
    }
    QPainterPath wave(QPointF(9, 18));
    wave.cubicTo(17, 7, 24, 7, 32, 18);
    wave.cubicTo(40, 29, 47, 29, 55, 18);
    QPen thread(QColor(0xf2, 0xb8, 0x6b), 3.5);
    thread.setCapStyle(Qt::RoundCap);
    painter.setPen(thread);
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(wave);
}

void DrawChangedIcon(QPainter &painter)
{
    DrawProgramIcon(painter);
    painter.setPen(QPen(QColor(0x2b, 0x0a, 0x18), 3));
    painter.setBrush(QColor(0xff, 0xc9, 0x3c));
    painter.drawEllipse(QPointF(49, 49), 13, 13);
}

// A yellow triangle with an exclamation mark.
void DrawWarning(QPainter &painter)
{
    QPen edge(QColor(0xc9, 0x8a, 0x12), 3);
    edge.setJoinStyle(Qt::RoundJoin);
    painter.setPen(edge);
    painter.setBrush(QColor(0xff, 0xc9, 0x3c));
    painter.drawPolygon(QPolygonF({QPointF(32, 7), QPointF(59, 55), QPointF(5, 55)}));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x3a, 0x28, 0x05));
    painter.drawRoundedRect(QRectF(29.5, 22, 5, 18), 2.5, 2.5);
    painter.drawEllipse(QPointF(32, 47), 3, 3);
}

// Two angles that point to the right.
void DrawMore(QPainter &painter)
{
    QPen pen(QGuiApplication::palette().color(QPalette::ButtonText), 6);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    for (const double left : {14.0, 34.0}) {
        painter.drawPolyline(QPolygonF({QPointF(left, 16), QPointF(left + 16, 32), QPointF(left, 48)}));
    }
}

using Drawing = void (*)(QPainter &);

class Engine : public QIconEngine {
public:
    explicit Engine(Drawing drawing) : drawing_(drawing) {}
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kDrawing, rect.height() / kDrawing);
        painter->setRenderHint(QPainter::Antialiasing);
        drawing_(*painter);
        painter->restore();
    }
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }
    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        QList<QSize> sizes;
        for (const int side : kSizes) {
            sizes.append(QSize(side, side));
        }
        return sizes;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new Engine(drawing_); }

private:
    Drawing drawing_;
};

// Keeps what it has drawn, which must not depend on the colours of the moment. On X11 a start asks for each size twice.
class KeptEngine : public Engine {
public:
    using Engine::Engine;
    QPixmap pixmap(const QSize &size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap &kept = kept_[{size.width(), size.height()}];
        if (kept.isNull()) {
            kept = Engine::pixmap(size, mode, state);
        }
        return kept;
    }
    [[nodiscard]] QIconEngine *clone() const override { return new KeptEngine(*this); }

private:
    std::map<std::pair<int, int>, QPixmap> kept_; // by width and height
};

} // namespace

QIcon ProgramIcon()
{
    return QIcon(new KeptEngine(DrawProgramIcon));
}

QIcon ChangedIcon()
{
    return QIcon(new Engine(DrawChangedIcon));
}

QIcon WarningIcon()
{
    return QIcon(new Engine(DrawWarning));
}

QIcon MoreIcon()
{
    return QIcon(new Engine(DrawMore));
}

} // namespace velluto
