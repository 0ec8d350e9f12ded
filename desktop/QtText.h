// Texts on their way between the program and Qt: encodings, access keys, line ends, caret positions.
#pragma once

#include <QString>

#include <string>
#include <string_view>

namespace velluto {

[[nodiscard]] QString FromUtf8(std::string_view text);
[[nodiscard]] std::string ToUtf8(const QString &text);
// Windows-1252 bytes up to the first zero byte. Control codes and the five bytes without a character become U+FFFD, so
// that each byte still takes one place.
[[nodiscard]] QString FromWindows1252(std::string_view bytes);

// A caption for a menu or a button. Only the first '&' marks an access key; further ones come out of file names and
// are shown as they are.
[[nodiscard]] QString WithAccessKey(std::string_view caption);
// A text in which no '&' means anything.
[[nodiscard]] QString WithoutAccessKey(std::string_view text);
// A caption as it is read aloud: its access key mark removed.
[[nodiscard]] QString Spoken(std::string_view caption);
// A window title: Qt would take "[*]" for a mark of its own.
[[nodiscard]] QString AsTitle(std::string_view text);

// The text with Qt's line ends, a newline, in place of the program's CR LF.
[[nodiscard]] QString ToLines(QString text);
// Text boxes: the program's lines end in CR LF, Qt's in a newline.
[[nodiscard]] QString ToEditorText(std::string_view text);
[[nodiscard]] std::string FromEditorText(const QString &text);
// caret counts the characters of the program's text before the caret, CR and LF as two; position counts the units of
// Qt's text. Both are clamped to their texts.
[[nodiscard]] int ToEditorPosition(std::string_view text, int caret);
[[nodiscard]] int FromEditorPosition(const QString &text, int position);

} // namespace velluto
