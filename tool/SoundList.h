// Names of sounds with their addresses, from the two kinds of list that owners have: instrument definitions (.ins), as
// sequencers use them, and tables of text (.csv). Used by the import.
#pragma once

#include "tool/SoundTable.h"
#include "tool/Words.h"

#include <string>
#include <string_view>
#include <vector>

namespace velluto::tool {

struct ListedSound {
    SoundAddress address;
    std::string name; // as the tables hold it; never empty
    bool isKit = false;
    bool isStyle = false; // the address is bank and number of a Style
    bool anyBank = false; // said of every bank that the list does not tell of: the program alone counts
};

// An instrument definition. Of several instruments, the one of this name; the name may be empty where there is one alone.
// Throws SourceFault where there is none, or nothing in it.
[[nodiscard]] std::vector<ListedSound> ReadDefinition(std::string_view text, std::string_view instrument, const Speaker &speaker);

// A table with commas, semicolons or tabs: msb, lsb, program, name, and a kind if it likes, in the order that a line of
// headings says or in this one. Throws SourceFault where a line is not what it should be.
[[nodiscard]] std::vector<ListedSound> ReadCsv(std::string_view text, const Speaker &speaker);

} // namespace velluto::tool
