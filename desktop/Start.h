// What the start of the program asks of its system, and each system has its own way to answer: the words of the command, the paths in
// them, where the user's files are, and how dark programs are. Used by main and Look; answered by StartPosix and StartWindows.
#pragma once

#include "files/Opening.h"

#include <future>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

// The words behind the program's name, in UTF-8; where a path is none, as it is.
[[nodiscard]] std::vector<std::string> WordsAtStart(int argc, char **argv);
// Those that the toolkit has left of them; words: as they are since GoToUserFolder.
[[nodiscard]] std::vector<std::string> WordsLeft(const std::vector<std::string> &words, int argc, char **argv);

// The whole path of what is named from the current folder.
[[nodiscard]] std::string FromRoot(const std::string &path);
[[nodiscard]] Argument KindOf(const std::string &path);

// Makes the user's own folder the current one, and puts there what ships with the program. Only where the program does so itself: a
// launcher has done it elsewhere. Words that name files are made whole paths first.
void GoToUserFolder(std::vector<std::string> &words);

// Whether the system speaks Italian: the program's own language is not known before its settings are.
[[nodiscard]] bool SystemSpeaksItalian();
// The theme that the system's user has chosen, "light" or "dark"; empty where the palette that Qt brings says it all.
[[nodiscard]] std::string_view ThemeOfSystem();
// Makes the C library's locale the user's, before the first thread: where Qt does so in its application, it would change how numbers are
// read under threads that read some.
void SetLocale();
// Begins to read what the machine has of fonts on another thread, where that is no work of Qt's alone. Qt would read it once more where it
// asks for a font before the end.
[[nodiscard]] std::future<void> ReadFontsAhead();
// Gives back to the system what a start takes and no longer needs. For when the first picture is there: it takes some tenths of a
// millisecond, in which others that ask for memory wait.
void GiveBackMemory();
// The desktop's leave to come to the front, empty where it gives none.
[[nodiscard]] std::string Activation();
// Says it to whoever has asked from a command line.
void Tell(std::string_view text);

} // namespace velluto
