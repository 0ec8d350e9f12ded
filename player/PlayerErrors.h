// What the player does where the disk refuses. Used by the compilations and by the file panel.
#pragma once

#include "player/frmMIDIPlayer.h"

#include <string>
#include <string_view>

namespace velluto {

// The path, a blank and the word of the step, an id of the catalogue: what is told where the path is not there.
[[nodiscard]] std::string PreparedText(const frmMIDIPlayer &form, std::string_view path, int word);
// A file that is not there sets the flag, a path that is not there is told under the prepared text, other errors pass.
void HandlePlayerError(frmMIDIPlayer &form, RuntimeError error, const std::string &preparedText);

// A step that failed because the disk was not ready is repeated. A disk that never gets ready ends it all the same.
template <class Step>
RuntimeError Resumed(Step step)
{
    constexpr int kMostTries = 1000;
    RuntimeError error = step();
    for (int tries = 1; error.number == FileError::kDiskNotReady && tries < kMostTries; ++tries) {
        error = step();
    }
    return error;
}

} // namespace velluto
