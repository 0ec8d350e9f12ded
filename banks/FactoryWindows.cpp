#include "banks/FactoryWindows.h"

namespace velluto {

namespace {

void ShowBank(BankState &banks, int kind)
{
    banks.recall.app.ViewKind = kind;
    ShowChild<frmBank117>(banks.BankWindows.at(static_cast<std::size_t>(kind - ViewKind::BankA)), banks.recall, kind);
}

} // namespace

void mnuBankA_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankA);
}

void mnuBankB_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankA + 1);
}

void mnuBankC_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankA + 2);
}

void mnuBankD_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankA + 3);
}

void mnuBankE_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankA + 4);
}

void mnuBankF_Click(BankState &banks)
{
    ShowBank(banks, ViewKind::BankF);
}

void mnuSty_Click(BankState &banks, int index)
{
    constexpr int kFirstList = 1;
    banks.recall.app.ViewKind = index == kFirstList ? ViewKind::FactoryStyles1 : ViewKind::FactoryStyles2;
    ShowChild<frmSty>(banks.StyListWindows.at(static_cast<std::size_t>(index - 1)), banks.recall, index);
}

} // namespace velluto
