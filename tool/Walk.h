// From what the user names to the files of the instrument in it, one at a time: a folder's own files first, then those of the
// folders in it. Used by list, find and check.
#pragma once

#include <functional>
#include <string>
#include <system_error>

namespace velluto::tool {

// Called with each file; with an error for a folder that cannot be listed. False ends the walk.
using Visit = std::function<bool(const std::string &path, const std::error_code &error)>;

// A file is visited whatever it is called; of a folder, those whose names end in .pcg, .sty or .prf, in the order of a list.
// Hidden ones are left out, and no link to a folder is followed, so that a circle of links ends. Only the names of one folder
// are held at a time. False where a visit has ended it.
bool WalkFiles(const std::string &named, const Visit &visit);

// Why the path is none that can be read as a file, for a sentence; nothing where it seems to be one.
enum class Obstacle : unsigned char { None, Missing, Folder, NoFile, Circle, TooLong };
[[nodiscard]] Obstacle ObstacleAt(const std::string &path);

} // namespace velluto::tool
