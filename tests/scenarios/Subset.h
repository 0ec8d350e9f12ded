// Whether an answer of the driver holds what a scenario expects of it.
#pragma once

#include "driver/Json.h"

#include <string>

namespace velluto::scenarios {

// Empty where every expected key is there with its value; else what differs first, with the way to it. An object may
// have more keys than expected. A list must be as long as expected, but may go on where the expected one ends in "...".
[[nodiscard]] std::string Difference(const driver::Json &expected, const driver::Json &answer, const std::string &at = "");

} // namespace velluto::scenarios
