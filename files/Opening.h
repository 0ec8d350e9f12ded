// Bringing a file into a window: the read of the whole file, the New and Open commands, the recent entries.
// Paths are UTF-8; slots count from 1.
#pragma once

#include "files/Files.h"

#include <string>
#include <string_view>

namespace velluto {

// What ReadInstrumentFile answers.
namespace ReadStatus {
inline constexpr int Good = 0;
inline constexpr int InputOutputError = 1;    // told to the user
inline constexpr int NotAnInstrumentFile = 2; // told to the user
inline constexpr int Missing = 3;             // not told; the file does not exist (an empty file has just been deleted)
} // namespace ReadStatus

// Reads the file into files.LoadImage and tests it.
int ReadInstrumentFile(FilesState &files, const std::string &path);

// What ChooseFile answers.
namespace ChooseOutcome {
inline constexpr int ForeignName = 0; // "All files" and a name of none of the three types, or no name
inline constexpr int Nothing = 1;     // cancelled, an unknown name, or a failed read that has been told
inline constexpr int AlreadyOpen = 2;
inline constexpr int Missing = 3;
inline constexpr int Program = 4; // the file is in files.LoadImage
inline constexpr int Style = 5;
inline constexpr int Performance = 6;
} // namespace ChooseOutcome

// Shows the Open dialog and reads the file chosen. number is the ViewKind of the type that the dialog begins with: 14,
// 20 or 22; the file's own name decides what it is.
int ChooseFile(FilesState &files, int number);

// 1 when a slot 1 to 8 with State 1 holds the path. Leaves the last record looked at in the working copy.
int FindOpenPcg(FilesState &files, std::string_view path);
int FindOpenSty(FilesState &files, std::string_view path);
int FindOpenPrf(FilesState &files, std::string_view path);
// The slot 1 to 8 that holds the path, or 0. Leaves the last record looked at in the working copy.
int FindKnownPcg(FilesState &files, std::string_view path);
int FindKnownSty(FilesState &files, std::string_view path);
int FindKnownPrf(FilesState &files, std::string_view path);
// The first slot 1 to 8 whose open flag is clear, or 0.
int FindFreePcgSlot(const FilesState &files);
int FindFreeStySlot(const FilesState &files);
int FindFreePrfSlot(const FilesState &files);

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

} // namespace velluto
