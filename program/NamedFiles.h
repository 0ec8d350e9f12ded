// Files that come to the program by their names alone: as arguments, or dropped on its window. Used by the desktop.
#pragma once

#include "program/Velluto.h"

#include <string>
#include <string_view>

namespace velluto {

// By the extension, in any case: .pcg, .sty, .prf, .mid, .midi.
[[nodiscard]] bool IsFileForUs(std::string_view path);

// Opens the file with this full path: a MIDI file in the player, any other as its Open command would.
void OpenFileByName(Velluto &program, const std::string &path);

} // namespace velluto
