#include "desktop/ElidedLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

namespace velluto {

bool ElidedLabel::HasManyLines() const
{
    return text().contains(QLatin1Char('\n')) || contentsRect().height() >= 2 * fontMetrics().lineSpacing();
}

QString ElidedLabel::PlainText() const
{
    return text().remove(QLatin1Char('&'));
}

void ElidedLabel::paintEvent(QPaintEvent * /*event*/)
{
    QPainter painter(this);
    const QRect area = contentsRect();
    if (HasManyLines()) {
        style()->drawItemText(&painter, area, static_cast<int>(Qt::AlignLeft | Qt::AlignTop) | Qt::TextWordWrap | Qt::TextShowMnemonic,
                              palette(), isEnabled(), text(), foregroundRole());
        return;
    }
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, area.width(), Qt::TextShowMnemonic);
    style()->drawItemText(&painter, area, static_cast<int>(alignment()) | Qt::TextSingleLine | Qt::TextShowMnemonic, palette(), isEnabled(),
                          shown, foregroundRole());
}

bool ElidedLabel::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty()) {
        const bool cut = !HasManyLines() && fontMetrics().horizontalAdvance(PlainText()) > contentsRect().width();
        QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), cut ? PlainText() : QString(), this);
        return true;
    }
    return QLabel::event(event);
}

} // namespace velluto
