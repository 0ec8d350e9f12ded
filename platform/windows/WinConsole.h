// The streams and the words of a program on a console of Windows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velluto {

// Lines end with a line feed alone, as on every system, and a console is told that the bytes are UTF-8.
void PrepareStreams();
// What was typed behind the program's name, in UTF-8. The arguments of main are in the user's code page, and not asked.
[[nodiscard]] std::vector<std::string> WordsOfCommand(int argc, char **argv);
// Says it where the program has no console of its own: on its standard output, else on the console that it was started from, else in
// a box.
void TellWhoStarted(std::string_view text);

} // namespace velluto
