// Paste: the run of items in the clipboard goes to the selected free rows of the active file window. The Edit menu decides
// whether it is offered; nothing is checked again here.
#pragma once

#include "files/Files.h"

namespace velluto {

// Images whose entries or index lead outside them leave the window as it is. The clipboard always stays.
void mnuIncolla_Click(FilesState &files);

} // namespace velluto
