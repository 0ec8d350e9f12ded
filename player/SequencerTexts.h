// What the player tells of a sequencer that refuses a file or a command.
#pragma once

#include "platform/Refusal.h"

#include <string>

namespace velluto {

// A sentence in UTF-8, in the run's language; empty for Why::None.
[[nodiscard]] std::string Sentence(const Refusal &refusal, int linguaBase);

} // namespace velluto
