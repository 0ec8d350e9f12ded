// The window of one of the two factory Style lists (ViewKind 15 and 16): four groups of two pages of sixteen Styles.
#pragma once

#include "banks/FactoryForm.h"

namespace velluto {

class frmSty : public FactoryForm {
public:
    // index 1 or 2
    frmSty(RecallState &recall, int index);

private:
    [[nodiscard]] std::vector<std::string> Rows() const override;
    [[nodiscard]] WindowTag StateText(const WindowPlacement &placement) const override;
    [[nodiscard]] bool PlaysRow(std::string_view row) const override;
    void List1_Click() override;
};

} // namespace velluto
