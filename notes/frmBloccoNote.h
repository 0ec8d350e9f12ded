// The notebook: a free text that is kept between runs, written to its file whenever its window closes.
#pragma once

#include "notes/NotesWindow.h"

namespace velluto {

class frmBloccoNote : public NotesWindow {
public:
    explicit frmBloccoNote(NotesState &notes);
    bool Form_QueryUnload() override;

    TextBox Text1{*this, "Text1"};
    // How much of the notebook is used, or why something that was typed is not there.
    Label lblStato{*this, "lblStato"};

private:
    bool LoadWindow() override;
    void UnloadWindow() override;
    void Resized() override;
    void LayOut();
    void TellUse(std::size_t characters);
    void Text1_Change();

    bool notWritten_ = false; // the last close could not write the text, which is unchanged since
};

void mnuBloccoNote_Click(NotesState &notes);

} // namespace velluto
