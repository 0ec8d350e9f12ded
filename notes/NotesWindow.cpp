#include "notes/NotesWindow.h"

#include "app/StoredPlace.h"

namespace velluto {

void StoreResized(WindowPlacement &entry, const Form &form)
{
    StorePosition(entry, form);
    StoreSize(entry, form);
    StoreState(entry, form);
}

void LeaveFrame(Modulo1 &app, WindowPlacement &entry, const Form &form, MenuEntry &command)
{
    StorePosition(entry, form);
    StoreSize(entry, form);
    if (!app.children.ClosingAll) {
        entry.State = StoredState::Closed;
    }
    command.enabled = true;
    --app.children.ChildCount;
    RefreshAfterClose(app);
}

} // namespace velluto
