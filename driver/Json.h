// The driver's answers as JSON: texts of the program's two encodings, and the one line of an answer.
#pragma once

#include <nlohmann/json.hpp>

#include <span>
#include <string>
#include <string_view>

namespace velluto::driver {

using Json = nlohmann::ordered_json; // keys keep the order in which they were put

// Bytes of an instrument's file: ASCII as it is, the others as their Windows-1252 characters, a zero byte as a zero
// character. The five bytes that Windows-1252 leaves free become the control character of their number.
[[nodiscard]] std::string Utf8FromWindows1252(std::string_view bytes);
[[nodiscard]] bool IsUtf8(std::string_view text);
// A text of the program: UTF-8 as it is; a path that is no UTF-8 is shown byte by byte.
[[nodiscard]] std::string ProgramText(std::string_view text);
// Lower case, two digits a byte.
[[nodiscard]] std::string Hexadecimal(std::string_view bytes);
[[nodiscard]] std::string_view AsText(std::span<const std::uint8_t> bytes);
[[nodiscard]] std::span<const std::uint8_t> AsBytes(std::string_view text);

[[nodiscard]] Json Good();
// With what there is to tell.
[[nodiscard]] Json Good(std::string_view key, Json value);
[[nodiscard]] Json Bad(std::string_view error);
// The answer on one line, without a line end.
[[nodiscard]] std::string OneLine(const Json &answer);

} // namespace velluto::driver
