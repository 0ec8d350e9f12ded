#include "tool/Records.h"

#include "tool/Words.h"

#include <array>
#include <utility>

namespace velluto::tool {

namespace {

std::string JsonText(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string json = "\"";
    for (const char c : ValidUtf8(text)) {
        if (c == '"' || c == '\\') {
            json += '\\';
            json += c;
        } else if (const auto byte = static_cast<unsigned char>(c); byte < ' ' || byte == 0x7F) {
            json += {'\\', 'u', '0', '0', kDigits[byte >> 4], kDigits[byte & 0xF]};
        } else {
            json += c;
        }
    }
    return json += '"';
}

// In quotes where a reader would otherwise take a part of it for the table's own signs, or drop its blanks.
std::string CsvText(std::string_view text)
{
    std::string valid = ValidUtf8(text);
    const bool isPlain = valid.find_first_of(",;\"\r\n") == std::string::npos && !valid.starts_with(' ') && !valid.ends_with(' ');
    if (isPlain) {
        return valid;
    }
    std::string csv = "\"";
    for (const char c : valid) {
        csv.append(c == '"' ? 2 : 1, c);
    }
    return csv += '"';
}

template <class TextOf>
std::string TextOfCell(const Cell &cell, TextOf textOf)
{
    const auto *const number = std::get_if<std::uint64_t>(&cell);
    return number != nullptr ? std::to_string(*number) : textOf(std::get<std::string_view>(cell));
}

} // namespace

RecordWriter::RecordWriter(std::ostream &out, Format format, std::vector<std::string_view> columns)
    : out_(out), format_(format), columns_(std::move(columns))
{
    if (format_ == Format::Json) {
        out_ << '[';
        return;
    }
    const std::vector<Cell> headings(columns_.begin(), columns_.end());
    CsvRow(headings);
}

void RecordWriter::Row(std::span<const Cell> cells)
{
    if (format_ == Format::Json) {
        JsonRow(cells);
    } else {
        CsvRow(cells);
    }
}

void RecordWriter::End()
{
    if (format_ == Format::Json) {
        out_ << (first_ ? "]\n" : "\n]\n");
    }
}

void RecordWriter::JsonRow(std::span<const Cell> cells)
{
    out_ << (std::exchange(first_, false) ? "\n{" : ",\n{");
    for (std::size_t i = 0; i < columns_.size(); ++i) {
        out_ << (i == 0 ? "" : ", ") << JsonText(columns_[i]) << ": " << TextOfCell(cells[i], JsonText);
    }
    out_ << '}';
}

void RecordWriter::CsvRow(std::span<const Cell> cells)
{
    for (std::size_t i = 0; i < cells.size(); ++i) {
        out_ << (i == 0 ? "" : ",") << TextOfCell(cells[i], CsvText);
    }
    out_ << '\n';
}

} // namespace velluto::tool
