// The binders of text boxes: one for a single line, one for many.
#pragma once

#include "desktop/Binder.h"
#include "desktop/WidgetEvents.h"

#include <QLineEdit>
#include <QPlainTextEdit>

namespace velluto {

// What both kinds do with keys and mouse. A text box keeps the usual editing shortcuts for itself while it has the
// focus; where the program has an answer of its own to the right button, that takes the place of Qt's menu.
class TextBinder : public Binder {
public:
    ~TextBinder() override;

protected:
    // area is the widget that takes the mouse.
    TextBinder(TextBox &box, EventGate &gate, QWidget *edit, QWidget *area);
    [[nodiscard]] TextBox &box() const { return box_; }
    // The widget's own change is on its way to the program: what comes back of it is no news.
    [[nodiscard]] bool IsTaking() const { return taking_; }
    // Takes what the user has typed, and where the caret stands, into the control.
    void TakeText(const QString &text, int position);
    void TakeCaret(const QString &text, int position);

private:
    bool LookAtKeys(QEvent &event);
    bool LookAtMouse(QEvent &event);

    TextBox &box_;
    bool taking_ = false;
    WidgetEvents *keys_;
    WidgetEvents *mouse_;
};

class LineBinder : public TextBinder {
public:
    LineBinder(TextBox &box, EventGate &gate, QLineEdit *edit);

protected:
    void Show(Aspect aspect) override;

private:
    QLineEdit *edit_;
};

class MultiLineBinder : public TextBinder {
public:
    MultiLineBinder(TextBox &box, EventGate &gate, QPlainTextEdit *edit);

protected:
    void Show(Aspect aspect) override;

private:
    void ShowText();
    void Correct(const QString &drawn, const QString &text);
    void ScrollToTop(int position);

    QPlainTextEdit *edit_;
    bool stale_ = false; // the text is to be drawn when the handler at work has ended
};

} // namespace velluto
