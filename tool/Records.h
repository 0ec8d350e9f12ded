// Answers as a table for other programs: CSV with a line of headings, or a JSON list of objects, always valid. Rows go out as
// they come. Used by all commands that list something.
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace velluto::tool {

enum class Format : std::uint8_t { Plain, Csv, Json };

using Cell = std::variant<std::string_view, std::uint64_t>;

class RecordWriter {
public:
    // Begins the table; the format is not Plain.
    RecordWriter(std::ostream &out, Format format, std::vector<std::string_view> columns);
    // As many cells as there are columns. Texts are UTF-8; a byte that is none becomes U+FFFD.
    void Row(std::span<const Cell> cells);
    void End();

private:
    void JsonRow(std::span<const Cell> cells);
    void CsvRow(std::span<const Cell> cells);

    std::ostream &out_;
    Format format_;
    std::vector<std::string_view> columns_;
    bool first_ = true;
};

} // namespace velluto::tool
