// What is wrong in a text that the user gives, and in which line. Thrown by the readers of such texts, told by the command.
#pragma once

#include "tool/Words.h"

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace velluto::tool {

class SourceFault : public std::runtime_error {
public:
    // line counts from 1; 0 where it is the text as a whole. words are in the run's language.
    SourceFault(std::size_t line, const std::string &words) : std::runtime_error(words), line_(line) {}
    [[nodiscard]] std::size_t Line() const { return line_; }

private:
    std::size_t line_;
};

// Faults that more than one reader meets.
[[noreturn]] void ComplainOfOpenQuotes(std::size_t line, const Speaker &speaker);
// A number of a sound's address. Throws where it is none from 0 to 127, with the column's name where there is one.
[[nodiscard]] int AddressNumber(std::string_view text, std::size_t line, const Speaker &speaker, std::string_view column = {});

} // namespace velluto::tool
