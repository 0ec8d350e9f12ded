// A file of the instrument as the tool reads it: which kind its name says it is, its bytes, and what it is found to be. Nothing
// is ever created, written or deleted. Used by list, find and check.
#pragma once

#include "files/Korf.h"
#include "platform/FileStore.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velluto::tool {

enum class Kind : std::uint8_t { None, Program, Style, Performance };

// By the name's extension, in any case of letters.
[[nodiscard]] Kind KindOf(std::string_view path);
// "Program", "Style", "Performance": the program's own words, the same in both languages.
[[nodiscard]] std::string_view NameOf(Kind kind);

// No file of the instrument reaches this: its positions are 24 bits wide.
inline constexpr std::uint64_t kLongestFile = 32ULL << 20;

// Reads the whole file. Of one that is longer than kLongestFile the head alone is read.
RuntimeError ReadInstrument(FileStore &files, const std::string &path, SharedBytes &bytes, std::uint64_t &length);

// Is this the head of a file that a later instrument of the family has written? Its entries are longer, and the program
// reads none of them.
[[nodiscard]] bool IsOfLaterInstrument(ImageBlock image);

} // namespace velluto::tool
