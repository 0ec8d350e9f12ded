// Where a window keeps its role, the part of the instrument that its selection is meant for. Recall reads it, the Edit
// menu shows and changes it, each with a rule of its own on top.
#pragma once

#include "files/Files.h"

namespace velluto {

[[nodiscard]] bool IsFactoryPrograms(int kind);
[[nodiscard]] bool IsFactoryStyles(int kind);
[[nodiscard]] bool IsStyleOverview(int kind);

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
