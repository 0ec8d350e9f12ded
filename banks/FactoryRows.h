// The rows of the factory windows, made from the factory tables. Rows are bytes of Windows-1252, as the tables hold them.
#pragma once

#include "banks/FactoryTables.h"

#include <string>
#include <vector>

namespace velluto {

// kind 2 to 7; no rows for another. An item row begins with its number of two digits, a heading row with none.
[[nodiscard]] std::vector<std::string> FactoryProgramRows(const FactoryTables &tables, int kind);
// kind 15 or 16: 148 rows.
[[nodiscard]] std::vector<std::string> FactoryStyleRows(const FactoryTables &tables, int kind);

} // namespace velluto
