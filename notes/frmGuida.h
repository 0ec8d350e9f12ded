// The user guide: a text file in a window for reading. A double click on a line of its contents jumps to the heading.
#pragma once

#include "notes/NotesWindow.h"

namespace velluto {

class frmGuida : public NotesWindow {
public:
    explicit frmGuida(NotesState &notes);

    TextBox Text1{*this, "Text1"};
    Timer Timer1{*this, "Timer1", 10};

private:
    bool LoadWindow() override;
    void Resized() override;
    void LayOut();
    void Text1_KeyDown(int key);
    void Text1_DblClick();
    void Timer1_Timer();
};

void mnuGuida_Click(NotesState &notes);

} // namespace velluto
