// A child window on the screen: the frame with title and buttons around a form's surface. Place and state go both
// ways; what the user does reaches the form through the children's own routines.
#pragma once

#include "desktop/ChildArea.h"
#include "desktop/FormSurface.h"
#include "view/ChildWindows.h"

#include <QMdiSubWindow>

namespace velluto {

// The program's word for Qt's; minimised comes before maximised.
[[nodiscard]] WindowState ToWindowState(Qt::WindowStates states);

class ChildWindow : public QMdiSubWindow {
public:
    ChildWindow(Form &form, ChildWindows &children, EventGate &gate, ChildArea &area);
    // The form is about to go.
    void Detach();

    [[nodiscard]] Form *form() const { return form_; }
    // What the frame adds to the inner size, logical pixels.
    [[nodiscard]] static QSize FrameSize();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void Follow(Aspect aspect);
    void ApplyPlace();
    void ApplyState();
    void NoteGeometry();
    void KeepOppositeEdge(const QRect &before, const QRect &now);
    void NoteState(Qt::WindowStates states);
    [[nodiscard]] bool IsNormal() const { return !isMinimized() && !isMaximized(); }
    // Where the form's place is drawn, before scrolling: moved into view where nothing of its title could be seen.
    [[nodiscard]] QRect Target() const;

    Form *form_;
    ChildWindows &children_;
    EventGate &gate_;
    ChildArea &area_;
    FormSurface *surface_;
    QRect shown_;          // the rectangle last given or noted, before scrolling
    bool applying_ = true; // the program is moving the window, not the user
    bool noting_ = false;
};

} // namespace velluto
