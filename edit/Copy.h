// Copy: the item clipboard takes the active file window's image and the first run of its selected rows.
#pragma once

#include "files/Files.h"

namespace velluto {

void mnuCopia_Click(FilesState &files);

} // namespace velluto
