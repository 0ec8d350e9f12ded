// tables import, export and make: what they read and write, and what they say about it. Used by main.
#pragma once

#include "tool/Arguments.h"
#include "tool/Desk.h"

#include <string>
#include <string_view>

namespace velluto::tool {

// Where the launcher has the program run: below the folder for data, by its variable or in the user's home folder. Empty where
// neither is told.
[[nodiscard]] std::string UserFolder(std::string_view dataHome, std::string_view home);

// Each gives the program's exit code. The folder of the user's tables is that of the arguments.
int ImportTables(const Desk &desk, const Arguments &arguments);
int ExportTables(const Desk &desk, const Arguments &arguments);
int MakeTables(const Desk &desk, const Arguments &arguments);

} // namespace velluto::tool
