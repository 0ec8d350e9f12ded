// The frame on the screen: menu bar, the area of the children, the status bar, the frame's place and state.
#pragma once

#include "desktop/ChildArea.h"
#include "desktop/ChildWindow.h"
#include "desktop/MenuBinder.h"

#include <QMainWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <vector>

namespace velluto {

class MainWindow : public QMainWindow {
public:
    // close asks the program to end; false where a child refused.
    MainWindow(frmMain &frame, ChildWindows &children, EventGate &gate, std::function<bool()> close);
    ~MainWindow() override;

    // Comes up in the frame's stored place and state.
    void ShowFrame();
    void ShowChild(Form &form);
    void CloseChild(Form &form);
    void ActivateChild(Form *form);
    void PopUpMenu(const MenuEntry &entry) { menus_->PopUp(entry); }

    [[nodiscard]] const ChildArea &Area() const { return *area_; }
    // nullptr for a form that is not shown.
    [[nodiscard]] ChildWindow *WindowOf(const Form &form) const;
    // The frame no longer belongs to the program: closing it asks nobody.
    void Release();

protected:
    void closeEvent(QCloseEvent *event) override;
    void moveEvent(QMoveEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;

private:
    void MakeStatusBar();
    void Follow(Aspect aspect);
    void ApplyPlace();
    void ApplyState();
    void NoteState();
    void NoteGeometry();
    void TellWidth();
    void NoteActivation(QMdiSubWindow *window);

    frmMain &frame_;
    ChildWindows &children_;
    EventGate &gate_;
    std::function<bool()> close_;
    ChildArea *area_;
    QWidget *statusBar_ = nullptr;
    std::unique_ptr<MenuBinder> menus_;
    std::vector<std::unique_ptr<Binder>> binders_; // status bar and timers
    std::vector<ChildWindow *> windows_;
    QTimer geometryTimer_; // runs from a move or resize until it is taken for the user's
    QRect shown_;          // the rectangle last given or noted
    bool settled_ = false; // the window manager has had its say about the first placement
    bool applying_ = false;
    bool arranging_ = false; // the program is activating, showing or closing a child
};

} // namespace velluto
