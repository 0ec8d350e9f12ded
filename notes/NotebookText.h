// The notebook as a text: one record of 32000 Windows-1252 bytes in its file, UTF-8 in its window, and what of a typed
// text it can keep. Used by frmBloccoNote.
#pragma once

#include "platform/FileStore.h"

#include <string>
#include <string_view>

namespace velluto {

inline constexpr std::size_t kNotebookLength = 32000; // bytes, and characters: a line end is two

// What the file holds.
struct NotebookFile {
    std::string record;   // 32000 bytes; those that the file lacks are blanks
    bool hasRest = false; // of a foreign file: more bytes than the record
};
// Reads the file, which is made where it is missing. file is left alone where that fails.
[[nodiscard]] RuntimeError ReadNotebook(FileStore &files, const std::string &path, NotebookFile &file);
// Writes the record of 32000 bytes; what a longer file holds behind it stays.
[[nodiscard]] RuntimeError WriteNotebook(FileStore &files, const std::string &path, const std::string &record);

// The record as a text, the padding at its end removed.
struct ShownNotebook {
    std::string text;    // UTF-8, every line ends in CR LF
    bool isWhole = true; // false: with such line ends it would not fit, and must not be edited
};
[[nodiscard]] ShownNotebook ShowNotebook(std::string_view record);

// What the notebook takes of a text as it was typed or pasted in.
struct TakenText {
    std::u32string text;
    int caret = 0;        // where the caret stands in it
    char32_t refused = 0; // the first character that Windows-1252 does not have; 0 for none
    bool full = false;    // something was left out for want of room
    [[nodiscard]] bool IsWhole() const { return refused == 0 && !full; }
};
// caret: the end of what was typed last, from where overlong text is taken away.
[[nodiscard]] TakenText TakeText(std::u32string_view typed, int caret);

// The record of a text that has been taken.
[[nodiscard]] std::string NotebookRecord(std::u32string_view text);

} // namespace velluto
