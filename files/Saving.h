// Writing the image of a window's Tag to disk exactly as it stands.
#pragma once

#include "files/Files.h"

#include <string>

namespace velluto {

// 0 on success, 1 after a reported failure. The Tag of the active child loses its modified mark.
int SaveDocument(FilesState &files, const WindowTag &tag);
// 0 on success or when nothing happened, 1 after a cancel or a reported failure.
int SaveDocumentAs(FilesState &files, const WindowTag &tag);

void mnuSalva_Click(FilesState &files);
void mnuSalvaAs_Click(FilesState &files);

} // namespace velluto
