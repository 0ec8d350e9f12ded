#include "notes/NotesWindow.h"

#include "app/StoredPlace.h"

namespace velluto {

void StoreResized(WindowPlacement &entry, const Form &form)
{
    StorePosition(entry, form);
    StoreSize(entry, form);
    if (form.windowState == WindowState::Normal) {
        entry.State = NotesWindow::kNormal;
    } else if (form.windowState == WindowState::Minimised) {
        entry.State = NotesWindow::kMinimised;
    }
}

void LeaveFrame(Modulo1 &app, WindowPlacement &entry, const Form &form, MenuEntry &command)
{
    StorePosition(entry, form);
    StoreSize(entry, form);
    if (!app.children.ClosingAll) {
        entry.State = NotesWindow::kClosed;
    }
    command.enabled = true;
    --app.children.ChildCount;
    RefreshAfterClose(app);
}

} // namespace velluto
