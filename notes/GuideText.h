// The guide as a text: its file, and the jump from a line of its table of contents to the heading of the same words.
// Used by frmGuida.
#pragma once

#include "platform/FileStore.h"

#include <string>
#include <string_view>

namespace velluto {

inline constexpr std::size_t kGuideRoom = 35400; // bytes; a longer guide is refused

// Reads the whole file. A missing one is error 53, one that is too long error 5; bytes is left alone then.
[[nodiscard]] RuntimeError ReadGuide(FileStore &files, const std::string &path, std::string &bytes);

// What the window shows of the file's bytes, UTF-8 or Windows-1252: UTF-8 with every line ending in CR LF.
[[nodiscard]] std::string ShownGuide(std::string_view bytes);

// Where a double click leads: the next line with the words of the line that the caret stands in, blanks at its start
// left aside. caret and result count the characters before the caret; 0 where there is no further such line.
[[nodiscard]] int JumpTarget(std::u32string_view text, int caret);

} // namespace velluto
