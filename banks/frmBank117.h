// The window of one factory Program bank, A to F (ViewKind 2 to 7): its sounds in groups, each under a heading.
#pragma once

#include "banks/FactoryForm.h"

namespace velluto {

// The command that shows the bank of a kind, and whose caption is its title.
[[nodiscard]] MenuEntry &FactoryBankEntry(frmMain &menu, int kind);

class frmBank117 : public FactoryForm {
public:
    // kind 2 to 7
    frmBank117(RecallState &recall, int kind);

    bool Form_QueryUnload() override;

private:
    [[nodiscard]] std::vector<std::string> Rows() const override;
    [[nodiscard]] WindowTag StateText(const WindowPlacement &placement) const override;
    [[nodiscard]] bool PlaysRow(std::string_view row) const override;
    void List1_Click() override;
    void UnloadWindow() override;

    [[nodiscard]] bool SaveBeforeClosing();
};

} // namespace velluto
