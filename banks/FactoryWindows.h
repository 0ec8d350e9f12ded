// The windows of the factory sounds, and the commands of the View menu that show them.
#pragma once

#include "banks/Recall.h"
#include "banks/frmBank117.h"
#include "banks/frmSty.h"

#include <array>
#include <memory>

namespace velluto {

struct BankState {
    RecallState &recall;
    std::array<std::unique_ptr<frmBank117>, 6> BankWindows; // ViewKind 2 to 7
    std::array<std::unique_ptr<frmSty>, 2> StyListWindows;  // ViewKind 15 and 16
};

void ShowFactoryBank(BankState &banks, int kind); // 2 to 7: the commands mnuBankA to mnuBankF
void mnuSty_Click(BankState &banks, int index);   // 1 or 2

} // namespace velluto
