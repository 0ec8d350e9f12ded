// The menu bar: one action for each entry of the frame's menu tree. States are the program's; a menu asks for them
// each time it drops, and a shortcut asks too, whatever the action last looked like.
#pragma once

#include "app/frmMain.h"
#include "desktop/EventGate.h"
#include "view/ChildWindows.h"

#include <QMainWindow>
#include <QMenu>

#include <vector>

namespace velluto {

class MenuBinder {
public:
    // Fills the menu bar of window, which owns the actions.
    MenuBinder(frmMain &frame, ChildWindows &children, EventGate &gate, QMainWindow &window);
    ~MenuBinder();
    MenuBinder(const MenuBinder &) = delete;
    MenuBinder &operator=(const MenuBinder &) = delete;

    // Shows a menu at the pointer; its state has been computed.
    void PopUp(const MenuEntry &entry);
    // nullptr for an entry that is not in the menu bar.
    [[nodiscard]] QAction *ActionOf(const MenuEntry &entry) const;

private:
    void Build(MenuEntry &entry, QMenu *parent);
    void BuildMenu(MenuEntry &entry, QMenu *menu);
    void BuildCommand(MenuEntry &entry, QAction *action);
    void BindShortcut(MenuEntry &entry);
    void Bind(MenuEntry &entry, const QKeySequence &sequence);
    void BindGuide(MenuEntry &entry);
    void Follow(const MenuEntry &entry, QAction &action);
    void Choose(MenuEntry &entry);
    void ListWindows(QMenu &menu);

    ChildWindows &children_;
    EventGate &gate_;
    QMainWindow &window_;
    struct Bound {
        MenuEntry *entry;
        QAction *action;
    };
    std::vector<Bound> bound_;
    std::vector<QAction *> windows_; // the rows of the window list while its menu shows them
    bool poppingUp_ = false;
    QObject receiver_; // signals end with the binder
};

} // namespace velluto
