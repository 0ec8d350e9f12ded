// Gives the keyboard back to what had it before the menu bar. Qt does so itself, but where a menu has been left with Escape, which leaves
// the bar active, and another is opened by its letter: then Qt takes the bar for what had the keyboard, and keys would play no more.
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
    QPointer<QWidget> before_; // what had the keyboard last, but for the bar
};

} // namespace velluto
