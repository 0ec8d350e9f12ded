#include "banks/FactoryWindows.h"

#include "banks/frmBank117.h"
#include "banks/frmSty.h"

namespace velluto {

namespace {

void ShowBank(BankState &banks, MenuEntry &entry, int kind)
{
    entry.enabled = false;
    banks.recall.app.ViewKind = kind;
    ShowBankWindow(banks, kind);
}

} // namespace

BankState::BankState(RecallState &state) : recall(state) {}

BankState::~BankState() = default;

void mnuBankA_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankA, ViewKind::BankA);
}

void mnuBankB_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankB, ViewKind::BankA + 1);
}

void mnuBankC_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankC, ViewKind::BankA + 2);
}

void mnuBankD_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankD, ViewKind::BankA + 3);
}

void mnuBankE_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankE, ViewKind::BankA + 4);
}

void mnuBankF_Click(BankState &banks)
{
    ShowBank(banks, banks.recall.app.frame.mnuBankF, ViewKind::BankF);
}

void mnuSty_Click(BankState &banks, int index)
{
    constexpr int kFirstList = 1;
    banks.recall.app.frame.mnuSty[index].enabled = false;
    banks.recall.app.ViewKind = index == kFirstList ? ViewKind::FactoryStyles1 : ViewKind::FactoryStyles2;
    ShowStyWindow(banks, index);
}

} // namespace velluto
