// The streams and the words of a program on a console of a POSIX system.
#pragma once

#include <string>
#include <vector>

namespace velluto {

// A file is never opened in the place of a stream that the caller has closed: what is meant for the stream would go there. A write to
// a pipe that nobody reads fails, and does not end the program.
void PrepareStreams();
// What was typed behind the program's name, in UTF-8.
[[nodiscard]] std::vector<std::string> WordsOfCommand(int argc, char **argv);

} // namespace velluto
