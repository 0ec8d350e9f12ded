// Bringing up the window of a document. Used by the commands that open files, new ones, and banks.
#pragma once

#include "files/Files.h"

namespace velluto {

// Brings the slot's window up, made afresh where there is none. A fresh one expects its record in the slot, app.ViewKind,
// and the file in LoadImage.
void ShowDocument(FilesState &files, DocumentType &type, int slot);

} // namespace velluto
