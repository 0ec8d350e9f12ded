// Paths of the tests as the system that they run on writes them. Used by the tests of whoever looks into a path.
#pragma once

#include "app/Paths.h"

#include <algorithm>
#include <string>

namespace velluto::test {

// The same number of characters, with the system's separators: "/pa80/Bank.pcg" or "\\pa80\\Bank.pcg".
inline std::string Native(std::string path)
{
    std::ranges::replace(path, '/', kPathSeparator);
    return path;
}

// The same below the root of the first disk: "/x/y.pcg" or "C:\\x\\y.pcg".
inline std::string OnFirstDisk(const std::string &path)
{
    return (kPathSeparator == '/' ? "" : "C:") + Native(path);
}

// That root as the program's lists show it.
inline std::string Root()
{
    return kPathSeparator == '/' ? "/" : "C:";
}

} // namespace velluto::test
