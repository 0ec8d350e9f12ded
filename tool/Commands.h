// list, find and check: from files and folders to lines of text. Used by main.
#pragma once

#include "tool/Arguments.h"
#include "tool/Desk.h"

namespace velluto::tool {

// Each gives the program's exit code. It ends early where the answer can no longer be written.
int ListFiles(const Desk &desk, const Arguments &arguments);
int FindItems(const Desk &desk, const Arguments &arguments);
int CheckFiles(const Desk &desk, const Arguments &arguments);

} // namespace velluto::tool
