// Writing the image of a window's Tag to disk exactly as it stands: the commands Save and Save As, and the question
// that a changed window asks when it closes.
#pragma once

#include "files/Files.h"

#include <string>

namespace velluto {

// 0 on success, 1 after a reported failure. The Tag of the active child loses its modified mark. The old file goes
// first: a failure while writing loses it.
int SaveDocument(FilesState &files, const WindowTag &tag);
// 0 on success or when nothing happened, 1 after a cancel or a reported failure. The Tag of the active child takes the
// new path.
int SaveDocumentAs(FilesState &files, const WindowTag &tag);

void mnuSalva_Click(FilesState &files);
void mnuSalvaAs_Click(FilesState &files);

// The question of a window that closes with changes, under app.CurrentOperation; the answers are acted on. False where
// the window stays, which also ends a program exit in progress. No puts 0 at Tag position clearedByNo.
[[nodiscard]] bool MayClose(FilesState &files, Form &window, int clearedByNo);

} // namespace velluto
