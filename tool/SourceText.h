// Lines and fields of the texts that the user gives: UTF-8 or Windows-1252, CR LF or LF. Used by the readers of plain tables,
// instrument definitions and CSV.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::tool {

// Without blanks and tabs around it.
[[nodiscard]] std::string_view Trimmed(std::string_view text);
// The text behind the three bytes by which some editors mark UTF-8.
[[nodiscard]] std::string_view WithoutMark(std::string_view text);
// The lines without their ends.
[[nodiscard]] std::vector<std::string_view> LinesOf(std::string_view text);
// A name as the tables hold it: Windows-1252, with "?" for what that lacks, without control characters and blanks around it.
[[nodiscard]] std::string TableName(std::string_view text);
// Is every character one that the tables can hold?
[[nodiscard]] bool FitsTable(std::string_view text);
// A whole decimal number of at most this value.
[[nodiscard]] std::optional<int> NumberUpTo(std::string_view text, int most);

} // namespace velluto::tool
