// One edit under way: the images that its steps finish. A step that would read outside them ends the edit; what was finished
// until then stays in BuildImage and in the tables, as after any other command.
#pragma once

#include "edit/ImagePieces.h"
#include "files/Files.h"

#include <optional>

namespace velluto {

struct Assembly {
    FilesState &files;
    std::optional<ImagePieces> image; // the last one finished, if any

    // Runs the steps. False where they could not be followed to their end: the caller then changes nothing.
    template <class Steps>
    [[nodiscard]] bool Follow(Steps steps)
    {
        bool followed = true;
        try {
            steps();
        } catch (const OutsideImage &) {
            followed = false;
        }
        if (image) {
            files.BuildImage = image->Image().Thrifty();
        }
        return followed;
    }
};

} // namespace velluto
