// The yardstick of every opening: the file read with one call, and nothing done with it.
#pragma once

#include <string>

namespace velluto::bench {

// Into memory that nobody else writes.
void ReadPlainly(const std::string &path);

} // namespace velluto::bench
