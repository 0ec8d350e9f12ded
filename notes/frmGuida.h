// The user guide: a text file in a window for reading. A double click on a line of its contents jumps to the heading.
#pragma once

#include "notes/Notes.h"

namespace velluto {

class frmGuida : public Form {
public:
    explicit frmGuida(NotesState &notes);
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_Resize() override;

    TextBox Text1{*this, "Text1"};
    Timer Timer1{*this, "Timer1", 10};

private:
    void LayOut();
    void Text1_KeyDown(int key);
    void Text1_DblClick();
    void Timer1_Timer();

    NotesState &notes_;
    Modulo1 &app_;
};

void mnuGuida_Click(NotesState &notes);

} // namespace velluto
