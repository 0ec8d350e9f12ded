// The program's variables by the names that its own language gives them, as JSON. Used by the command "value".
#pragma once

#include "driver/Json.h"
#include "program/Velluto.h"

#include <string_view>
#include <vector>

namespace velluto::driver {

// The variable of that name: a number, a text, true or false, or a list for a table, from the table's first index on. A
// record is an object of its fields. One element of a table is named with its index: "ChannelRole(0)". Throws
// BadCommand where the program has no such variable.
[[nodiscard]] Json ValueOf(Velluto &program, std::string_view name);
// Every name that ValueOf knows.
[[nodiscard]] std::vector<std::string_view> ValueNames();

} // namespace velluto::driver
