// Rows of the player's file lists: their text, and which of them are selected. Rows are 0-based.
#pragma once

#include "view/Control.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velluto {

// A row: the name, three blanks, the file's length in bytes in brackets.
[[nodiscard]] std::string FileRow(std::string_view name, std::uint64_t length);
// The name in a row: what stands before the last "(", trailing blanks cut.
[[nodiscard]] std::string BareName(std::string_view row);
// What stands behind the last separator of a path, to the last byte.
[[nodiscard]] std::string NamePart(std::string_view path);

// -1 where no row is selected.
[[nodiscard]] int FirstSelected(const ListBox &list);
// The current row where it is selected, else the first selected one; -1 where none is.
[[nodiscard]] int CurrentOrFirstSelected(const ListBox &list);
// The last row of the unbroken run of selected rows that begins at first.
[[nodiscard]] int EndOfRun(const ListBox &list, int first);
// Makes a row current and selects it. Other selected rows stay as they are.
void Choose(ListBox &list, int row);
// Takes the selection from the current row to another one, which becomes current. Other selected rows stay as they are.
void MoveSelection(ListBox &list, int row);

} // namespace velluto
