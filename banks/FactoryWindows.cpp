#include "banks/FactoryWindows.h"

namespace velluto {

void ShowFactoryBank(BankState &banks, int kind)
{
    banks.recall.app.ViewKind = kind;
    ShowChild<frmBank117>(banks.BankWindows.at(static_cast<std::size_t>(kind - ViewKind::BankA)), banks.recall, kind);
}

void mnuSty_Click(BankState &banks, int index)
{
    constexpr int kFirstList = 1;
    banks.recall.app.ViewKind = index == kFirstList ? ViewKind::FactoryStyles1 : ViewKind::FactoryStyles2;
    ShowChild<frmSty>(banks.StyListWindows.at(static_cast<std::size_t>(index - 1)), banks.recall, index);
}

} // namespace velluto
