#include "notes/NotesWindow.h"

#include "app/StoredPlace.h"

namespace velluto {

NotesWindow::NotesWindow(std::string name, NotesState &notes, int entry, MenuEntry &command)
    : ChildForm(std::move(name), kNoNumber, notes.app, &command), notes_(notes),
      entry_(notes.app.settings.PlacementTable.at(static_cast<std::size_t>(entry)))
{
}

void NotesWindow::UnloadWindow()
{
    StorePlace(entry_, *this);
    if (!app.children.ClosingAll) {
        entry_.State = StoredState::Closed;
    }
}

void NotesWindow::StoreResized()
{
    StorePlace(entry_, *this);
    StoreState(entry_, *this);
}

} // namespace velluto
