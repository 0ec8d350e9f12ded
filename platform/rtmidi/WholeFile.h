// Reads a file in one go. Used by the machine's sequencer.
#pragma once

#include "platform/SharedBytes.h"

#include <string>

namespace velluto {

enum class FileReading { Success, NotFound, NotReadable, TooLarge };

// The file's bytes, where it is a regular file of at most so many. Waits for no pipe or device.
FileReading ReadWholeFile(const std::string &path, std::size_t limit, SharedBytes &bytes);

} // namespace velluto
