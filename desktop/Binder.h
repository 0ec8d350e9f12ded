// One binder for each control that is drawn: it carries the control's changes to a widget and the user's events back,
// and decides nothing. MakeBinder knows which kind of control gets which widget.
#pragma once

#include "desktop/EventGate.h"
#include "view/Control.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace velluto {

class Binder {
public:
    virtual ~Binder();
    Binder(const Binder &) = delete;
    Binder &operator=(const Binder &) = delete;

    [[nodiscard]] QWidget *widget() const { return widget_; } // nullptr for a control that is not drawn
    [[nodiscard]] const Control &control() const { return control_; }
    // What the Tab key reaches; nullptr for a control that it passes by.
    [[nodiscard]] virtual QWidget *FocusWidget() const
    {
        return widget_ != nullptr && widget_->focusPolicy() != Qt::NoFocus ? widget_ : nullptr;
    }

    // Brings the widget up to date and follows the control from then on.
    void Start();

protected:
    // widget is owned by its parent.
    Binder(Control &control, EventGate &gate, QWidget *widget) : control_(control), gate_(gate), widget_(widget) {}
    // What the kind of control has to show beyond what all have.
    virtual void Show(Aspect aspect) = 0;
    [[nodiscard]] EventGate &gate() const { return gate_; }
    // In front of a change by the user's hand: no piano key stays pressed whose release would then end another note.
    void LetKeysGo();
    // Receiver of the widget's signals: they end with the binder, while the widget may live a little longer.
    [[nodiscard]] QObject *receiver() { return &receiver_; }

private:
    void Update(Aspect aspect);

    Control &control_;
    EventGate &gate_;
    QWidget *widget_;
    QObject receiver_;
};

// What a screen reader says for the control.
[[nodiscard]] QString AccessibleNameOf(const Control &control);

// nullptr for a control that is not drawn here: menu entries, and kinds without a widget.
[[nodiscard]] std::unique_ptr<Binder> MakeBinder(Control &control, QWidget *parent, EventGate &gate);

} // namespace velluto
