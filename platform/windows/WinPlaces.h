// Where Windows keeps what: the program itself, and what belongs to its user. Used by the desktop's start.
#pragma once

#include <string>

namespace velluto {

// In UTF-8, without a separator at the end; empty where the system does not say.
[[nodiscard]] std::string ProgramFolder();
// The user's folder for the programs' own files, which goes along to other machines of the house.
[[nodiscard]] std::string RoamingFolder();
// Tried out: the rights that Windows tells of are not all that count.
[[nodiscard]] bool IsWritableFolder(const std::string &folder);

} // namespace velluto
