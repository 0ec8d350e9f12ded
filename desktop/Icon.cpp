#include "desktop/Icon.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

#include <array>

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

void DrawIcon(QPainter &painter)
{
    painter.setRenderHint(QPainter::Antialiasing);
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
    wave.cubicTo(17, 6, 24, 6, 32, 18);
    wave.cubicTo(40, 30, 47, 30, 55, 18);
    QPen thread(QColor(0xf2, 0xb8, 0x6b), 3.5);
    thread.setCapStyle(Qt::RoundCap);
    painter.setPen(thread);
    painter.setBrush(Qt::NoBrush);
    painter.setClipRect(QRectF(0, 0, kDrawing, kKeysTop - 2));
    painter.drawPath(wave);
}

class Engine : public QIconEngine {
public:
    void paint(QPainter *painter, const QRect &rect, QIcon::Mode /*mode*/, QIcon::State /*state*/) override
    {
        painter->save();
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kDrawing, rect.height() / kDrawing);
        DrawIcon(*painter);
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
    [[nodiscard]] QIconEngine *clone() const override { return new Engine; }
};

} // namespace

QIcon ProgramIcon()
{
    return QIcon(new Engine);
}

} // namespace velluto
