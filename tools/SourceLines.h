// The readable source tables: one entry a line, fields between commas, remarks behind "#". Whatever is wrong in one is told
// by file and line.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace makers {

class SourceError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// An entry under a "group" line. Fields are trimmed and plain ASCII; missing ones read as empty.
struct SourceLine {
    std::string where; // "programs.txt:17", for complaints
    std::vector<std::string> fields;

    [[nodiscard]] const std::string &Field(std::size_t index) const;
    // The field, which may have so many characters at most.
    [[nodiscard]] const std::string &Text(std::size_t index, std::size_t longest) const;
    // The field as a number from 0 to 127.
    [[nodiscard]] int Number(std::size_t index) const;
    [[noreturn]] void Complain(std::string_view what) const;
};

struct SourceGroup {
    SourceLine head;                 // bank, and what else stands on the "group" line
    std::vector<SourceLine> entries; // each of the same bank
};

// Reads a source table. The entries of a group have so many fields, the first of which is the group's bank.
// Throws SourceError where the file cannot be read or a line is not what it should be.
[[nodiscard]] std::vector<SourceGroup> ReadGroups(const std::filesystem::path &file, std::size_t fieldsOfEntry);

} // namespace makers
