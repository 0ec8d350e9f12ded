// The places that the entries of a directory have in their bank: inside it, each once, in ascending order; of Styles, each with
// its STS in one of the two arrangements. Used by Checking.
#pragma once

#include "tool/Findings.h"
#include "tool/InstrumentFile.h"

#include <vector>

namespace velluto::tool {

// Appends what is wrong. The directory lies inside the image.
void CheckPlaces(ImageBlock image, Kind kind, std::vector<Finding> &found);

} // namespace velluto::tool
