// What a list looks like: its rows, its selection, where its keyboard is, and the whole of a row that is cut.
#include "desktop/ListView.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace velluto {

namespace {

// Every second dot of the row's edge, counted from its corner: the same however much of the row is being painted.
void DrawKeyboardMark(QPainter &painter, const QRect &rect, QColor ink, float strength)
{
    ink.setAlphaF(strength);
    painter.setBrushOrigin(rect.topLeft());
    const QBrush dots(ink, Qt::Dense4Pattern);
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), dots);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), dots);
    painter.fillRect(QRect(rect.left(), rect.top() + 1, 1, rect.height() - 2), dots);
    painter.fillRect(QRect(rect.right(), rect.top() + 1, 1, rect.height() - 2), dots);
}

} // namespace

void ListView::paintEvent(QPaintEvent *event)
{
    if (list_ == nullptr) {
        return;
    }
    QPainter painter(viewport());
    int first = std::max((event->rect().left() + horizontalOffset()) / columnWidth_ * rowsPerColumn_, 0);
    int last = std::min(((event->rect().right() + horizontalOffset()) / columnWidth_ + 1) * rowsPerColumn_, list_->ListCount());
    if (ScrollsDown()) {
        first = (event->rect().top() + verticalOffset()) / rowHeight_;
        last = std::min((event->rect().bottom() + verticalOffset()) / rowHeight_ + 1, list_->ListCount());
    }
    for (int row = first; row < last; ++row) {
        DrawRow(painter, row);
    }
    if (hasFocus() && list_->ListCount() == 0) {
        DrawKeyboardMark(painter, RowRect(0), palette().color(QPalette::Text), 0.55F);
    }
}

void ListView::DrawRow(QPainter &painter, int row) const
{
    const QRect rect = RowRect(row);
    const bool selected = list_->Selected(row);
    QPalette::ColorGroup group = hasFocus() ? QPalette::Active : QPalette::Inactive;
    if (!isEnabled()) {
        group = QPalette::Disabled;
    }
    if (selected) {
        painter.fillRect(rect, palette().color(group, QPalette::Highlight));
    }
    const QColor ink = palette().color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    painter.setPen(ink);
    QFont letters = font();
    letters.setBold(model_->IsHeading(row));
    painter.setFont(letters);
    painter.setClipRect(rect);
    QString text = model_->Text(row);
    if (ScrollsDown()) { // names may be long, and what tells them apart stands at their end
        text = painter.fontMetrics().elidedText(text, Qt::ElideMiddle, rect.width() - 2 * kTextInset);
    }
    painter.drawText(QPoint(rect.left() + kTextInset, rect.top() + baseline_), text);
    // Where no row is current the keyboard starts from the first.
    if (hasFocus() && row == std::max(list_->ListIndex(), 0)) {
        DrawKeyboardMark(painter, rect, ink, selected ? 0.8F : 0.55F);
    }
    painter.setClipping(false);
}

// The whole of a row that is drawn cut.
bool ListView::viewportEvent(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || list_ == nullptr || !ScrollsDown()) {
        return QListView::viewportEvent(event);
    }
    const auto &help = static_cast<const QHelpEvent &>(*event);
    const int row = RowAt(help.pos());
    const QString text = row >= 0 ? model_->Text(row) : QString();
    const bool cut = fontMetrics().horizontalAdvance(text) > columnWidth_ - 2 * kTextInset;
    QToolTip::showText(help.globalPos(), cut ? text : QString(), viewport(), RowRect(std::max(row, 0)));
    return true;
}

} // namespace velluto
