// The two languages of the program and the type of a text that it has in both. Used wherever the program speaks to its user:
// by the numbered texts of the catalogue, and beside what they belong to by all others.
#pragma once

#include <cstdint>
#include <string_view>

namespace velluto {

// As the settings keep the user's choice.
namespace Language {
inline constexpr std::uint8_t Italian = 1;
inline constexpr std::uint8_t English = 2;
} // namespace Language

// LinguaBase of a run: what is added to the Italian id of a text.
inline constexpr int kItalianBase = 0;
inline constexpr int kEnglishBase = 200;

struct TwoTexts {
    std::string_view italian;
    std::string_view english;

    [[nodiscard]] constexpr std::string_view In(int linguaBase) const { return linguaBase == kItalianBase ? italian : english; }
};

} // namespace velluto
