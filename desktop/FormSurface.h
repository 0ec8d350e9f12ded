// The inside of a form: its controls, each at the place that the form gives it. Used by child windows and dialogs.
#pragma once

#include "desktop/Binder.h"
#include "view/Form.h"

#include <QWidget>

#include <memory>
#include <vector>

namespace velluto {

class FormSurface : public QWidget {
public:
    FormSurface(Form &form, EventGate &gate, QWidget *parent);
    // The form is about to go: draws on, but hears nothing from then on.
    void Detach();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    Form *form_;
    EventGate &gate_;
    std::vector<std::unique_ptr<Binder>> binders_;
};

} // namespace velluto
