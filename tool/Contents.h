// What is in a file of the instrument, row by row, with the texts that the program's own windows show. Used by list and find.
#pragma once

#include "tool/InstrumentFile.h"

#include <string>
#include <string_view>
#include <vector>

namespace velluto::tool {

struct ItemRow {
    std::string_view kind; // "Program", "Style", "STS", "Performance"
    int place = 0;         // in its bank, from 1
    bool occupied = false;
    std::string bytes; // the row as the window has it: Windows-1252

    // The item's name as it is drawn, without the blanks behind it.
    [[nodiscard]] std::string Name() const;
};

// How many places the bank of this file has.
[[nodiscard]] int PlacesOf(ImageBlock image, Kind kind);
// All rows of the file's window; for Styles that have them, the rows behind the button STS follow.
[[nodiscard]] std::vector<ItemRow> RowsOf(ImageBlock image, Kind kind);

} // namespace velluto::tool
