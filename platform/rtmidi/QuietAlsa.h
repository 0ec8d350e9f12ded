// Keeps ALSA's library from writing to the standard error stream. Called before anything asks for its sequencer or its
// audio.
#pragma once

namespace velluto {

void QuietAlsa();

} // namespace velluto
