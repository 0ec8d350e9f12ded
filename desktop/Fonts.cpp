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
    return BaselineIn(RowHeight(font), metrics.ascent(), metrics.descent());
}

int BaselineIn(int height, int ascent, int descent)
{
    constexpr int kTails = 2; // what letters that reach below the line need, to be told from others
    const int drawn = ascent + descent;
    // What a row lacks is taken below, where only the tails of a few letters reach. Fonts that begin high above their letters, for
    // scripts with marks there, lack more, and that is taken above.
    const int baseline = ascent + std::max(0, (height - drawn + 1) / 2) + (height < drawn ? 1 : 0);
    return std::min(baseline, height - kTails);
}

} // namespace velluto
