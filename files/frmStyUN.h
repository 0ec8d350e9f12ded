// The window of one .sty file: sixteen Styles in two columns, or their STS on the same rows. It shows opened files
// (slots 1 to 8), the banks User 1 to 3 (9 to 11) and Direct HD 1 to 9 (12 to 20), and the new file (0).
#pragma once

#include "files/DocumentForm.h"
#include "view/ControlArray.h"

namespace velluto {

class frmStyUN : public DocumentForm {
public:
    // slot 0 to 20
    frmStyUN(FilesState &files, int slot);

    ControlArray<Button, kFirstStyUserSlot, 3> CommUser{*this, "CommUser"};
    Button CommSTS{*this, "CommSTS"}; // its caption names the view that a click will show
    ControlArray<Button, kFirstDirectHdSlot, 9> CommDirectHD{*this, "CommDirectHD"};
    Button CommClose{*this, "CommClose"};

    bool Form_QueryUnload() override;

private:
    void CommUser_Click(int index);
    void CommDirectHD_Click(int index);
    void CommSTS_Click();

    void TieTo(int bankSlot) override;
    [[nodiscard]] std::string NewName() const override;
    void ShowNew(WindowTag &tag) override;
    void ShowFile(WindowTag &tag) override;
    [[nodiscard]] Size NaturalSize() override;
    [[nodiscard]] int ButtonsHeight() const override;
    void LayOutButtons(int width, int top) override;
    [[nodiscard]] bool SelectsRow(std::size_t trimmedLength) const override;

    void NameStsButton(const std::string &view);
    void ShowStyles();
    void ShowSts();
    void EndCaptionWith(const std::string &end);
};

} // namespace velluto
