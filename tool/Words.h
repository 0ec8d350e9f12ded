// How the tool speaks: texts in two languages with places for numbers and names, and names that are fit to be printed. Used by
// all of its commands.
#pragma once

#include "app/Language.h"

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

namespace velluto::tool {

// A text of the tool in the run's language.
struct Speaker {
    int linguaBase = kEnglishBase;

    // With "%1" to "%9" replaced by what goes with them.
    [[nodiscard]] std::string Say(const TwoTexts &text, std::initializer_list<std::string> inserts = {}) const;
};

// The language that a locale's name asks for: Italian where it begins with "it", else English.
[[nodiscard]] int LanguageOfLocale(std::string_view locale);

// UTF-8 with U+FFFD for every byte that is none.
[[nodiscard]] std::string ValidUtf8(std::string_view text);
// What a line of plain text shows of a path: no control characters, all other bytes as they are.
[[nodiscard]] std::string Printable(std::string_view path);
// Bytes of Windows-1252 up to the first zero, as UTF-8, with U+FFFD for what has no character: what a list draws of them.
[[nodiscard]] std::string DrawnText(std::string_view bytes);
// In small letters, accented ones too, for comparing.
[[nodiscard]] std::u32string Folded(std::u32string characters);

} // namespace velluto::tool
