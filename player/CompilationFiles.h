// Compilations on the disk: files beside the program, read and written as they stand. Used by Compilations.
#pragma once

#include "app/Modulo1.h"

#include <string>
#include <string_view>
#include <vector>

namespace velluto {

// AppDir, "c-", the name, ".cmp".
[[nodiscard]] std::string CompilationPath(const Modulo1 &app, std::string_view name);
// The files beside the program that may be compilations.
[[nodiscard]] std::vector<std::string> CompilationFiles(const Modulo1 &app);
// The name of such a file without its last four characters and its first two, whatever they are.
[[nodiscard]] std::string CompilationNameOf(std::string_view fileName);
// Reads a whole file. On an error the image holds what was read so far.
RuntimeError ReadCompilation(const Modulo1 &app, const std::string &path, std::string &image);
// Writes a whole file over what was there.
RuntimeError WriteCompilation(const Modulo1 &app, const std::string &path, std::string_view image);

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
