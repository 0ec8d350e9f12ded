#include "desktop/FormSurface.h"

#include "desktop/Keys.h"
#include "desktop/MonitorWords.h"
#include "view/Gestures.h"

#include <QContextMenuEvent>
#include <QKeyEvent>

#include <map>

namespace velluto {

namespace {

Button *FindAnswering(const Form &form, bool toReturn)
{
    for (Control *control : form.controls()) {
        auto *button = dynamic_cast<Button *>(control);
        if (button != nullptr && (toReturn ? button->answersReturn : button->answersEscape)) {
            return button;
        }
    }
    return nullptr;
}

} // namespace

FormSurface::FormSurface(Form &form, EventGate &gate, QWidget *parent) : QWidget(parent), form_(&form), gate_(gate)
{
    setMouseTracking(true);
    QWidget *before = nullptr;
    std::map<const Control *, QWidget *> holders; // a form declares what holds others before them
    for (Control *control : form.controls()) {
        const auto holder = holders.find(control->container);
        std::unique_ptr<Binder> binder = MakeBinder(*control, holder != holders.end() ? holder->second : this, gate);
        if (!binder) {
            continue;
        }
        binder->Start();
        holders[control] = binder->widget();
        // The Tab key follows the order in which the form declares its controls.
        if (QWidget *reached = binder->FocusWidget()) {
            if (before != nullptr) {
                setTabOrder(before, reached);
            }
            before = reached;
        }
        binders_.push_back(std::move(binder));
    }
    AddMonitorWords(form, *this);
}

void FormSurface::Detach()
{
    form_ = nullptr;
    binders_.clear();
}

// Keys that no control has taken.
void FormSurface::keyPressEvent(QKeyEvent *event)
{
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    const bool isEscape = event->key() == Qt::Key_Escape;
    Button *answering = form_ != nullptr && (isReturn || isEscape) ? FindAnswering(*form_, isReturn) : nullptr;
    if (answering == nullptr) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    const EventGate::Pass pass(gate_);
    Press(*answering);
}

void FormSurface::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (form_ != nullptr) {
        const EventGate::Pass pass(gate_);
        form_->Form_MouseDown(ButtonCode(event->button()));
    }
}

void FormSurface::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (form_ != nullptr) {
        const EventGate::Pass pass(gate_);
        form_->Form_MouseMove();
    }
}

void FormSurface::contextMenuEvent(QContextMenuEvent *event)
{
    event->accept();
    if (form_ != nullptr && event->reason() == QContextMenuEvent::Keyboard) {
        const EventGate::Pass pass(gate_);
        form_->Form_MouseDown(MouseButton::Right);
    }
}

} // namespace velluto
