// The read of a whole file of the instrument, and what it is found to be. Used by the Open commands, the banks and the
// overviews.
#pragma once

#include "files/Files.h"

#include <string>

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

} // namespace velluto
