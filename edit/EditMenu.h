// The state of the Edit menu, worked out afresh each time it drops, and its role entries.
#pragma once

#include "files/Files.h"

namespace velluto {

// Run when mnuModifica drops or pops up, with a child open.
void mnuModifica_Click(FilesState &files);
// Gives the active child the role index (0 to 14).
void mnuMIDIStp_Click(FilesState &files, int index);

} // namespace velluto
