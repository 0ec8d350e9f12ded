// What is wrong in a text that the user gives, and in which line. Thrown by the readers of such texts, told by the command.
#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace velluto::tool {

class SourceFault : public std::runtime_error {
public:
    // line counts from 1; 0 where it is the text as a whole. words are in the run's language.
    SourceFault(std::size_t line, const std::string &words) : std::runtime_error(words), line_(line) {}
    [[nodiscard]] std::size_t Line() const { return line_; }

private:
    std::size_t line_;
};

} // namespace velluto::tool
