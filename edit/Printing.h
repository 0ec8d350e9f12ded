// The printed listing of a file window: one page for a Program, Style or Performance file.
#pragma once

#include "files/Files.h"

namespace velluto {

// Prints the active child. Nothing where there is none.
void mnuStampa_Click(FilesState &files);

// Prints the listing of the window whose Tag it is; the rows are those of the active child's List1. A window that is no
// file gives a page with the heading alone. The listing of a Style file takes the item clipboard's image over and leaves
// the clipboard empty. A printer that fails ends the listing, and is told in a box.
void PrintDocument(FilesState &files, const WindowTag &tag);

} // namespace velluto
