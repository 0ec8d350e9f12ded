// The notebook: a free text that is kept between runs, written to its file whenever its window closes.
#pragma once

#include "notes/Notes.h"

namespace velluto {

class frmBloccoNote : public Form {
public:
    explicit frmBloccoNote(NotesState &notes);
    void Form_Load() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_Resize() override;

    TextBox Text1{*this, "Text1"};
    // How much of the notebook is used, or why something that was typed is not there.
    Label lblStato{*this, "lblStato"};

private:
    void LayOut();
    void TellUse(std::size_t characters);
    void Text1_Change();

    NotesState &notes_;
    Modulo1 &app_;
    bool notWritten_ = false; // the last close could not write the text, which is unchanged since
};

void mnuBloccoNote_Click(NotesState &notes);

} // namespace velluto
