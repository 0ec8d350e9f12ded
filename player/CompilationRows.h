// The files of the compilation shown, as the rows of ListMidiCorr: a view of the image, rebuilt after each change. Used by
// Compilations and the transport.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// The image's files as rows of the list, which is empty before. Ends before the first file whose length cannot be read, which
// HandlePlayerError hears of.
void RebuildCompilationList(frmMIDIPlayer &form);
// The full path of the file in a row, 0-based; empty outside the image.
[[nodiscard]] std::string CompilationItemPath(const frmMIDIPlayer &form, int row);
// Inserts the rows first to last of FileMidiSel, each at its place in the order of names.
void AddFilesToCompilation(frmMIDIPlayer &form, int first, int last);

} // namespace velluto
