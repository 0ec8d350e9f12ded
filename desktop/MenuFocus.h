// Gives the keyboard back to the window that had it before the menu bar. Qt does so itself, but for one way: where a menu has been left
// with Escape, which leaves the bar active, and another is opened by its letter, Qt takes the bar for what had the keyboard. Keys would
// play no more then.
#pragma once

#include <QMenuBar>
#include <QPointer>

namespace velluto {

class MenuFocus : public QObject {
public:
    explicit MenuFocus(QMenuBar &bar); // which owns it
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void Look();
    void LookSoon();

    QMenuBar &bar_;
    QPointer<QWidget> before_; // what had the keyboard
};

} // namespace velluto
