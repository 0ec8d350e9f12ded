// The About box: what the program is.
#pragma once

#include "notes/Notes.h"

namespace velluto {

class frmAbout : public Form {
public:
    explicit frmAbout(NotesState &notes);
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Activate() override;

    Emblem picVelluto{*this, "picVelluto"};
    Label lblTitolo{*this, "lblTitolo"};
    Button cmdOK{*this, "cmdOK"};

private:
    NotesState &notes_;
    Modulo1 &app_;
};

void mnuInfo_Click(NotesState &notes);

} // namespace velluto
