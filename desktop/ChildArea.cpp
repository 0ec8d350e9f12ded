#include "desktop/ChildArea.h"

#include <QEvent>
#include <QScrollBar>

namespace velluto {

ChildArea::ChildArea(QWidget *parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setFrameShape(QFrame::NoFrame);
    TakeBackground();
}

void ChildArea::TakeBackground()
{
    setBackground(palette().brush(QPalette::Dark));
}

void ChildArea::changeEvent(QEvent *event)
{
    QMdiArea::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        TakeBackground();
    }
}

void ChildArea::scrollContentsBy(int dx, int dy)
{
    scrolling_ = true;
    offset_ += QPoint(dx, dy);
    QMdiArea::scrollContentsBy(dx, dy);
    scrolling_ = false;
}

void ChildArea::ScrollHome()
{
    if (!offset_.isNull()) {
        scrollContentsBy(-offset_.x(), -offset_.y());
    }
}

} // namespace velluto
