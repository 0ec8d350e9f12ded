// Bringing a file into a window: the New and Open commands, the recent entries. Paths are UTF-8; slots count from 1.
#pragma once

#include "files/Files.h"

#include <cstdint>
#include <string>

namespace velluto {

// Shows the Open dialog and reads the file chosen. number is the ViewKind of the type that the dialog begins with: 14,
// 20 or 22; the file's own name decides what it is.
int ChooseFile(FilesState &files, int number);

// Commands of the menus.
void mnuPcgNuovo64_Click(FilesState &files);
void mnuPcgNuovo128_Click(FilesState &files);
void mnuStyNuovo_Click(FilesState &files);
void mnuPrfNuovo_Click(FilesState &files);
void mnuPcgApri_Click(FilesState &files);
void mnuStyApri_Click(FilesState &files);
void mnuPrfApri_Click(FilesState &files);
void mnuRecentFile_Click(FilesState &files, int index); // 1 to 16

// Opens the file with this full path as its Open command would if it were chosen there, by the type that its name tells.
// Does nothing for a name of none of the three types, and where that type's Open command is off.
void OpenNamedFile(FilesState &files, const std::string &path);

// What the system finds under a path that was named at the start.
enum class Argument : std::uint8_t { File, Folder, Missing };
// Opens it, and tells of what could never open: of a name of none of the three types that is missing, or a folder, or a foreign
// file. A MIDI file is left to the player.
void OpenArgument(FilesState &files, const std::string &path, Argument what);

} // namespace velluto
