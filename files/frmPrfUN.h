// The window of one .prf file: a row for each of its eight Performances. It shows opened files (slots 1 to 8), the banks
// User 1 to 20 (9 to 28) and the new file (0).
#pragma once

#include "files/DocumentForm.h"
#include "view/ControlArray.h"

namespace velluto {

class frmPrfUN : public DocumentForm {
public:
    // slot 0 to 28
    frmPrfUN(FilesState &files, int slot);

    ControlArray<Button, 1, 20> CommUser{*this, "CommUser"}; // by the number of the bank
    Button CommClose{*this, "CommClose"};

    bool Form_QueryUnload() override;

private:
    void TieTo(int bankSlot) override;
    [[nodiscard]] std::string NewName() const override;
    void ShowNew(WindowTag &tag) override;
    void ShowFile(WindowTag &tag) override;
    [[nodiscard]] Size NaturalSize() override;
    [[nodiscard]] int ButtonsHeight() const override;
    void LayOutButtons(int width, int top) override;
    [[nodiscard]] bool SelectsRow(std::size_t trimmedLength) const override;
};

} // namespace velluto
