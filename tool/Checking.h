// What is wrong in a file of the instrument, and at which offset. The program itself tests little of this and opens damaged
// files; here the whole container is looked at. Used by check.
#pragma once

#include "tool/Findings.h"
#include "tool/InstrumentFile.h"

#include <vector>

namespace velluto::tool {

// In the order of the file's parts; what makes the rest unreadable is the last one. With Kind::None the places of the items
// are not looked at.
[[nodiscard]] std::vector<Finding> CheckImage(ImageBlock image, Kind kind);

} // namespace velluto::tool
