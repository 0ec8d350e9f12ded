// Texts as characters, one element each, where columns count: UTF-8 texts and the single bytes of instrument files side
// by side. The one table of Windows-1252. Used by the listings, the guide, the notebook, and the faces.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velluto {

// The characters of Windows-1252 bytes. The five bytes that have none become the control character of their number.
[[nodiscard]] std::u32string CharactersOfBytes(std::string_view bytes);
// The byte that stands for the character, nothing where Windows-1252 has none: CharactersOfBytes the other way.
[[nodiscard]] std::optional<char> ByteOfCharacter(char32_t character);
// The characters of UTF-8; a text that is no UTF-8 is taken as Windows-1252 bytes.
[[nodiscard]] std::u32string CharactersOfText(std::string_view text);
// The other way.
[[nodiscard]] std::string Utf8Of(std::u32string_view characters);

// The text with every line end, whichever kind it was, as carriage return and line feed.
[[nodiscard]] std::u32string WithCrLf(std::u32string_view text);

// A byte of UTF-8 that goes on with the character before it.
[[nodiscard]] constexpr bool IsContinuationByte(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

} // namespace velluto
