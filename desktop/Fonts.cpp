#include "desktop/Fonts.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>
#include <QFontMetricsF>

#include <algorithm>
#include <cmath>

namespace velluto {

QFont ToQFont(const Font &font)
{
    if (IsPlain(font)) {
        return QApplication::font();
    }
    QFont result(QString::fromUtf8(font.name), font.size, font.weight);
    result.setStyleHint(QFont::TypeWriter);
    return result;
}

int RowHeight(const QFont &font)
{
    return QFontInfo(font).pixelSize() + 1;
}

int CellWidth(const QFont &font)
{
    return static_cast<int>(std::lround(QFontMetricsF(font).horizontalAdvance(QLatin1Char('A'))));
}

int RowBaseline(const QFont &font)
{
    const QFontMetrics metrics(font);
    const int drawn = metrics.ascent() + metrics.descent();
    // What a row lacks is taken below, where only the tails of a few letters reach.
    return metrics.ascent() + std::max(0, (RowHeight(font) - drawn + 1) / 2) + (RowHeight(font) < drawn ? 1 : 0);
}

} // namespace velluto
