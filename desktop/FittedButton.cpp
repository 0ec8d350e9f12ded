#include "desktop/FittedButton.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>

namespace velluto {

namespace {

// Logical pixels.
constexpr int kClear = 3; // on either side of the words, the edge included
constexpr int kTieInset = 5;
constexpr int kTieHeight = 2;
constexpr int kSmallestWriting = 9; // smaller writing is for nobody

QFont WithPixels(QFont font, int pixels)
{
    font.setPixelSize(pixels);
    return font;
}

} // namespace

int FittedButton::FittingPixels() const
{
    const QString words = text().remove(QLatin1Char('&'));
    int pixels = QFontInfo(font()).pixelSize();
    while (pixels > kSmallestWriting && QFontMetrics(WithPixels(font(), pixels)).horizontalAdvance(words) > width() - 2 * kClear) {
        --pixels;
    }
    return pixels;
}

QFont FittedButton::FittedFont() const
{
    const int own = QFontInfo(font()).pixelSize();
    int pixels = FittingPixels();
    if (parentWidget() != nullptr) {
        for (const QObject *child : parentWidget()->children()) {
            const auto *other = dynamic_cast<const FittedButton *>(child);
            if (other != nullptr && other->width() == width() && !other->isHidden()) {
                pixels = std::min(pixels, other->FittingPixels());
            }
        }
    }
    return pixels == own ? font() : WithPixels(font(), pixels);
}

void FittedButton::paintEvent(QPaintEvent * /*event*/)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    const QFont fitted = FittedFont();
    painter.setFont(fitted);
    option.fontMetrics = QFontMetrics(fitted);
    painter.drawControl(QStyle::CE_PushButton, option);
    if (property(kTiedProperty).toBool()) {
        painter.fillRect(QRect(kTieInset, height() - kTieInset, width() - 2 * kTieInset, kTieHeight), palette().color(QPalette::Link));
    }
}

} // namespace velluto
