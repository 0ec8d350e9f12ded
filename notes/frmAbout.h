// The About box: what the program is.
#pragma once

#include "notes/NotesWindow.h"

namespace velluto {

class frmAbout : public NotesWindow {
public:
    explicit frmAbout(NotesState &notes);
    void Form_Load() override;

    Emblem picVelluto{*this, "picVelluto"};
    Label lblTitolo{*this, "lblTitolo"};
    Button cmdOK{*this, "cmdOK"};

private:
    bool LoadWindow() override;
};

void mnuInfo_Click(NotesState &notes);

} // namespace velluto
