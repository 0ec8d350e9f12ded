// Cut: the item clipboard takes the active file window's image and the first run of its selected rows, and the window gets a
// new image without their items. The Delete key comes here too, with any selection.
#pragma once

#include "files/Files.h"

namespace velluto {

// An image whose entries or index lead outside it stays as it is, and so does the clipboard.
void mnuTaglia_Click(FilesState &files);

} // namespace velluto
