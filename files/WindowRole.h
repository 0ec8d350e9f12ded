// Where a window keeps its role, the part of the instrument that its selection is meant for. Recall reads it, the Edit
// menu shows and changes it, each with a rule of its own on top.
#pragma once

#include "files/Files.h"

namespace velluto {

// The slots that are banks of the instrument, of every type from 9 on.
inline constexpr int kFirstBankSlot = 9;
inline constexpr int kLastPcgBankSlot = 10;
inline constexpr int kLastStyBankSlot = 20;
inline constexpr int kLastPrfBankSlot = 28;

// The lists of the overviews, and the rows looked at in each.
inline constexpr int kPrfOverviewLists = 20;
inline constexpr int kPrfOverviewRows = 8;
inline constexpr int kStyOverviewLists = 3;
inline constexpr int kStyOverviewRows = 16;

[[nodiscard]] bool IsFactoryPrograms(int kind);
[[nodiscard]] bool IsFactoryStyles(int kind);
[[nodiscard]] bool IsStyleOverview(int kind);
[[nodiscard]] bool IsBankSlot(int slot, int last);

struct RolePlace {
    enum class Table { None, Placement, Pcg, Sty, Prf };
    Table table = Table::None;
    int entry = 0; // index into the table
};

// None for windows without a role: other kinds, slots that are no bank, an overview without a selected row. In the
// Performance overview a selected row counts only where it is longer than shorterRows without its trailing blanks.
[[nodiscard]] RolePlace RolePlaceOf(const Form &window, int shorterRows = -1);
// Copies the entry to the working record of its type and answers its role. The place is not None.
int ReadRole(FilesState &files, RolePlace place);
// Stores the role through the working record. The place is not None.
void StoreRole(FilesState &files, RolePlace place, int role);

} // namespace velluto
