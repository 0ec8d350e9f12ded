// The tables as plain text that a person reads and edits, a line for each sound: tools/tables holds what ships in this form.
// The program's makers read it too, without sharing code, and so check this reading. Used by the command tables.
#pragma once

#include "tool/SoundTable.h"
#include "tool/Words.h"

#include <string>
#include <string_view>

namespace velluto::tool {

// In UTF-8. A text with a comma, a "#", quotes or a blank at its beginning stands in quotes, which are doubled within.
[[nodiscard]] std::string PlainPrograms(const RecordTable &table, const Speaker &speaker);
[[nodiscard]] std::string PlainStyles(const RecordTable &table, const Speaker &speaker);

// The other way. Throws SourceFault where a line is not what it should be.
[[nodiscard]] RecordTable MakePrograms(std::string_view text, const Speaker &speaker);
[[nodiscard]] RecordTable MakeStyles(std::string_view text, const Speaker &speaker);

} // namespace velluto::tool
