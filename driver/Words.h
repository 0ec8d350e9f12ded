// From a line of the driver's input to its words and numbers. Used by the commands.
#pragma once

#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::driver {

// A command that cannot be carried out; its text becomes the answer's "error". Thrown before anything has changed.
class BadCommand : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

using Words = std::vector<std::string>;

// Words are separated by blanks and tabs. A word in double quotes may hold blanks, \" and \\; any other backslash
// stands for itself. Throws BadCommand where a quote is not closed or a closing one has text behind it.
[[nodiscard]] Words SplitWords(std::string_view line);

// Nothing to answer: blank, or a remark that begins with '#'.
[[nodiscard]] bool IsRemark(std::string_view line);

// A whole decimal number from lowest to highest. what names it in the error.
[[nodiscard]] int ToNumber(std::string_view word, std::string_view what, int lowest, int highest = std::numeric_limits<int>::max());
// A byte of a MIDI message, decimal or, behind "0x", hexadecimal.
[[nodiscard]] int ToByte(std::string_view word);

} // namespace velluto::driver
