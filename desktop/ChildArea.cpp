#include "desktop/ChildArea.h"

#include "desktop/WindowAccess.h"

#include <QEvent>
#include <QScrollBar>
#include <QShortcut>

namespace velluto {

ChildArea::ChildArea(QWidget *parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setFrameShape(QFrame::NoFrame);
    InstallWindowAccess();
    connect(this, &QMdiArea::subWindowActivated, this, &TellActiveWindow);
    // To minimise, maximise, move and size a window without a mouse.
    const auto *keys = new QShortcut(QKeySequence(static_cast<int>(Qt::ALT) | Qt::Key_Minus), this);
    connect(keys, &QShortcut::activated, this, [this] {
        if (QMdiSubWindow *active = activeSubWindow()) {
            active->showSystemMenu();
        }
    });
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
