#include "desktop/MenuFocus.h"

#include <QApplication>
#include <QEvent>

namespace velluto {

MenuFocus::MenuFocus(QMenuBar &bar) : QObject(&bar), bar_(bar)
{
    QObject::connect(qApp, &QApplication::focusChanged, this, [this](const QWidget * /*old*/, QWidget *now) {
        if (now == &bar_) {
            LookSoon();
        } else if (now != nullptr && now->window() == bar_.window()) {
            before_ = now;
        }
    });
    QObject::connect(&bar_, &QMenuBar::triggered, this, &MenuFocus::LookSoon);
    bar_.installEventFilter(this);
}

// Whoever leaves the bar does so by a key, or sees it painted anew.
bool MenuFocus::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease || event->type() == QEvent::Paint) {
        LookSoon();
    }
    return false;
}

// Not at once: Qt first does what it does of its own accord, and a choice may open a dialog, from which the keyboard comes back to the bar.
void MenuFocus::LookSoon()
{
    QMetaObject::invokeMethod(this, &MenuFocus::Look, Qt::QueuedConnection);
}

void MenuFocus::Look()
{
    if (bar_.hasFocus() && bar_.activeAction() == nullptr && before_ && before_->isVisible() && before_->isEnabled()) {
        before_->setFocus(Qt::MenuBarFocusReason);
    }
}

} // namespace velluto
