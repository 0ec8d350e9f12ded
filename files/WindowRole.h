// Where a window keeps its role, the part of the instrument that its selection is meant for. Recall reads it, the Edit
// menu shows and changes it, each with a rule of its own on top.
#pragma once

#include "files/Files.h"

#include <optional>

namespace velluto {

struct RolePlace {
    DocumentType *type; // nullptr: the entry is one of the placement table
    int entry;          // index into the table
};

// Nothing for windows without a role: other kinds, slots that are no bank, an overview without a selected row. In the
// Performance overview a selected row counts only where it is longer than shorterRows without its trailing blanks.
[[nodiscard]] std::optional<RolePlace> RolePlaceOf(FilesState &files, const Form &window, int shorterRows = -1);
// Copies the entry to the working record of its type and answers its role.
int ReadRole(FilesState &files, RolePlace place);
// Stores the role through the working record.
void StoreRole(FilesState &files, RolePlace place, int role);

} // namespace velluto
