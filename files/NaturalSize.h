// The size that a window has when nobody has resized it, as the settings keep it. Used by the Edit menu, which offers and
// gives it.
#pragma once

#include "files/Files.h"

#include <optional>

namespace velluto {

// The outer size of a window of this kind and slot, twips; nothing where it has none of its own.
[[nodiscard]] std::optional<Size> NaturalSize(FilesState &files, int kind, int slot);

// Gives the active child its natural size back.
void mnuIngrandisci_Click(FilesState &files);

} // namespace velluto
