#include "desktop/MenuFocus.h"

#include <QApplication>
#include <QEvent>

namespace velluto {

MenuFocus::MenuFocus(QMenuBar &bar) : QObject(&bar), bar_(bar)
{
    QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget *old, const QWidget *now) {
        if (now != &bar_) {
            return;
        }
        if (old != nullptr && old->window() == bar_.window()) {
            before_ = old;
        }
        LookSoon();
    });
    QObject::connect(&bar_, &QMenuBar::triggered, this, &MenuFocus::LookSoon);
    bar_.installEventFilter(this);
}

bool MenuFocus::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        LookSoon(); // a second Escape has left the bar
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
    if (before_ && bar_.hasFocus() && bar_.activeAction() == nullptr) {
        before_->setFocus(Qt::MenuBarFocusReason);
    }
}

} // namespace velluto
