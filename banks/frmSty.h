// The window of one of the two factory Style lists (ViewKind 15 and 16): four groups of two pages of sixteen Styles.
#pragma once

#include "banks/FactoryForm.h"
#include "banks/FactoryWindows.h"

namespace velluto {

class frmSty : public FactoryForm {
public:
    // index 1 or 2
    frmSty(BankState &banks, int index);

private:
    [[nodiscard]] Size NaturalCells() const override;
    [[nodiscard]] std::vector<std::string> Rows() const override;
    [[nodiscard]] WindowTag StateText(const WindowPlacement &placement) const override;
    [[nodiscard]] bool PlaysRow(std::string_view row) const override;
    void List1_Click() override;
    [[nodiscard]] int KindAtUnload() const override;
    [[nodiscard]] MenuEntry &OwnCommand() override;
    [[nodiscard]] std::unique_ptr<Form> TakeOut() override;

    BankState &banks_;
};

// Brings the list's window up, made afresh where there is none. index 1 or 2.
void ShowStyWindow(BankState &banks, int index);

} // namespace velluto
