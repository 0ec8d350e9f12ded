// The window of one .pcg file: a row for each place of the bank, in four columns. It shows opened files (slots 1 to 8),
// the banks User 1 and User 2 (9, 10) and the two kinds of new file (11, 12).
#pragma once

#include "files/DocumentForm.h"
#include "view/ControlArray.h"

namespace velluto {

class frmPcgUN : public DocumentForm {
public:
    // slot 1 to 12
    frmPcgUN(FilesState &files, int slot);

    ControlArray<Button, kFirstPcgUserSlot, 2> CommUser{*this, "CommUser"};
    Button CommClose{*this, "CommClose"};

    bool Form_QueryUnload() override;

private:
    void TieTo(int bankSlot) override;
    [[nodiscard]] std::string NewName() const override;
    void ShowNew(WindowTag &tag) override;
    void ShowFile(WindowTag &tag) override;
    [[nodiscard]] Size NaturalSize() override;
    void CheckPlace() override;
    [[nodiscard]] int ButtonsHeight() const override { return buttonRow_; }
    void LayOutButtons(int width, int top) override;
    [[nodiscard]] int KindOnceLoaded(int kind) const override;
    [[nodiscard]] bool SelectsRow(std::size_t trimmedLength) const override;
    [[nodiscard]] bool IsCopySource() const override;

    int places_ = 0;
    int buttonRow_ = 0; // height of the row of buttons, twips
};

} // namespace velluto
