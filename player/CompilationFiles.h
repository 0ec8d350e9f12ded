// Compilations on the disk: files beside the program, read and written as they stand. Used by Compilations.
#pragma once

#include "app/Modulo1.h"

#include <cstdint>
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
// What no compilation is as long as: nothing of such a file is read.
inline constexpr std::uint64_t kLongestCompilation = std::uint64_t{1} << 24; // bytes
inline constexpr RuntimeError kCompilationTooLong{7};
// Reads a whole file. On an error the image holds what was read so far.
RuntimeError ReadCompilation(const Modulo1 &app, const std::string &path, std::string &image);
// Writes a whole file over what was there.
RuntimeError WriteCompilation(const Modulo1 &app, const std::string &path, std::string_view image);

} // namespace velluto
