#include "desktop/ChildArea.h"

#include "desktop/EmptyHint.h"
#include "desktop/WindowAccess.h"

#include <QEvent>
#include <QMdiSubWindow>
#include <QScrollBar>
#include <QShortcut>

#include <algorithm>

namespace velluto {

namespace {

// The widget and all that it holds: Qt's update leaves out what covers the widget.
void PaintAnew(QWidget &widget)
{
    widget.update();
    for (QWidget *inner : widget.findChildren<QWidget *>()) {
        inner->update();
    }
}

} // namespace

ChildArea::ChildArea(QWidget *parent) : QMdiArea(parent)
{
    setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    setOption(QMdiArea::DontMaximizeSubWindowOnActivation);
    setFrameShape(QFrame::NoFrame);
    InstallWindowAccess();
    connect(this, &QMdiArea::subWindowActivated, this, &TellActiveWindow);
    // The window that steps back paints its frame once more, and Qt may do so over the one that has come to the front.
    connect(this, &QMdiArea::subWindowActivated, this, [](QMdiSubWindow *window) {
        if (window != nullptr) {
            PaintAnew(*window);
        }
    });
    // To minimise, maximise, move and size a window without a mouse.
    const auto *keys = new QShortcut(QKeySequence(static_cast<int>(Qt::ALT) | Qt::Key_Minus), this);
    connect(keys, &QShortcut::activated, this, [this] {
        if (QMdiSubWindow *active = activeSubWindow()) {
            active->showSystemMenu();
        }
    });
    TakeBackground();
    new EmptyHint(*this);
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
    // Minimised windows stay where they are. Qt takes them along and puts them back, and leaves pieces of them on the screen: all is
    // painted anew then.
    const QList<QMdiSubWindow *> windows = subWindowList();
    const bool pieces = std::ranges::any_of(windows, &QMdiSubWindow::isMinimized);
    if (pieces) {
        viewport()->setUpdatesEnabled(false);
    }
    QMdiArea::scrollContentsBy(dx, dy);
    if (pieces) {
        viewport()->setUpdatesEnabled(true);
    }
    scrolling_ = false;
}

void ChildArea::ScrollHome()
{
    if (!offset_.isNull()) {
        scrollContentsBy(-offset_.x(), -offset_.y());
    }
}

} // namespace velluto
