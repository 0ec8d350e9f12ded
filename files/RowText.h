// Pieces of the rows that list windows show: the number in front of a name, and the zeros behind it.
#pragma once

#include <string>

namespace velluto {

// The number with leading zeros to so many digits; a longer number stays whole.
[[nodiscard]] std::string WithLeadingZeros(int number, int digits);
// Makes blanks of the zeros that pad a name at the end of a row, from the fourth character before the end backwards up
// to the first other character. The last four keep theirs: in a list that does no harm.
void BlankPadding(std::string &row);

} // namespace velluto
