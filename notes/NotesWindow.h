// What the windows of this room do alike: what their placement entry says of them, and how they go.
#pragma once

#include "app/ChildForm.h"
#include "notes/Notes.h"

namespace velluto {

class NotesWindow : public ChildForm {
public:
    void Form_MouseDown(int /*button*/) final {} // the Edit menu has nothing for them

protected:
    // entry is that of the placement table.
    NotesWindow(std::string name, NotesState &notes, int entry, MenuEntry &command);

    // Stores the place. The State stays where the frame closes with the window, so that it tells what was open then.
    void UnloadWindow() override;
    // Stores place, size and State. Maximised the window keeps the State that it had.
    void StoreResized();

    NotesState &notes_;
    WindowPlacement &entry_;
};

} // namespace velluto
