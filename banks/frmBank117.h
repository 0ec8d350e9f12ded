// The window of one factory Program bank, A to F (ViewKind 2 to 7): its sounds in groups, each under a heading.
#pragma once

#include "banks/FactoryForm.h"
#include "banks/FactoryWindows.h"

namespace velluto {

class frmBank117 : public FactoryForm {
public:
    // kind 2 to 7
    frmBank117(BankState &banks, int kind);

    bool Form_QueryUnload() override;

private:
    [[nodiscard]] Size NaturalCells() const override;
    [[nodiscard]] std::vector<std::string> Rows() const override;
    [[nodiscard]] WindowTag StateText(const WindowPlacement &placement) const override;
    [[nodiscard]] bool PlaysRow(std::string_view row) const override;
    void List1_Click() override;
    [[nodiscard]] int KindAtUnload() const override;
    [[nodiscard]] MenuEntry &OwnCommand() override;
    [[nodiscard]] std::unique_ptr<Form> TakeOut() override;

    [[nodiscard]] bool SaveBeforeClosing();

    BankState &banks_;
};

// Brings the bank's window up, made afresh where there is none.
void ShowBankWindow(BankState &banks, int kind);

} // namespace velluto
