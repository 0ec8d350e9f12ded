// The window of one .pcg file: a row for each place of the bank, in four columns. It shows opened files (slots 1 to 8),
// the banks User 1 and User 2 (9, 10) and the two kinds of new file (11, 12).
#pragma once

#include "files/Files.h"
#include "view/ControlArray.h"
#include "view/Form.h"

namespace velluto {

class frmPcgUN : public Form {
public:
    // slot 1 to 12
    frmPcgUN(FilesState &files, int slot);

    ListBox List1{*this, "List1"};
    ControlArray<Button, 9, 2> CommUser{*this, "CommUser"};
    Button CommClose{*this, "CommClose"};

    // Expects the slot's record, app.ViewKind, and the file in files.LoadImage where the slot is neither 11 nor 12.
    void Form_Load() override;
    bool Form_QueryUnload() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_MouseDown(int button) override;

private:
    void CommUser_Click(int index);
    void CommClose_Click();
    void List1_Click();
    void List1_KeyDown(int key) const;

    void PlaceWindow(int places);
    void ShowButtons();
    void Layout();
    void MakeNewFile(WindowTag &tag, int places);
    void MakeFile(WindowTag &tag, int places);
    [[nodiscard]] bool IsFileWindow() const;

    FilesState &files_;
    int slot_;
    int buttonRow_ = 0; // height of the row of buttons, twips
};

// Brings the slot's window up, made afresh where there is none.
void ShowPcgWindow(FilesState &files, int slot);

} // namespace velluto
