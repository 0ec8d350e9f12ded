// Puts a new file in the place of an old one in one step, and keeps the old one beside it. Used by the command tables.
#pragma once

#include <string>
#include <system_error>

namespace velluto::tool {

// The new bytes are written beside the file and reach the disk before they take its place; at no moment is there anything but
// a whole old or a whole new file. The old one, where there is one, is copied to kept: the path with ".bak", or with ".bak2" and
// so on where that is taken. A link stays, and its target is replaced. After an error all is as it was.
[[nodiscard]] std::error_code ReplaceKeeping(const std::string &path, const std::string &bytes, std::string &kept);

} // namespace velluto::tool
