// Files that the program's lists leave out. Used by the tests of the lists.
#pragma once

#ifdef _WIN32
#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"
#endif

#include <string>

namespace velluto::test {

// What the dot in front of its name does elsewhere, an attribute does on Windows.
inline void Hide([[maybe_unused]] const std::string &path)
{
#ifdef _WIN32
    ::SetFileAttributesW(WideOf(path)->c_str(), FILE_ATTRIBUTE_HIDDEN);
#endif
}

} // namespace velluto::test
