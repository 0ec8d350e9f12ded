// The instrument's factory names and addresses, from two files of fixed-length records beside the program. Read once
// at the load of the frame; recall and the bank windows use them.
#pragma once

#include "platform/FileStore.h"

#include <array>
#include <string>

namespace velluto {

inline constexpr int kPcgTableRecords = 745;
inline constexpr int kPcgTableRecordLength = 30;
inline constexpr int kStyTableRecords = 271;
inline constexpr int kStyTableRecordLength = 23;

struct FactoryTables {
    std::array<std::string, kPcgTableRecords + 1> PcgTable; // 1 to 745
    std::array<std::string, kStyTableRecords + 1> StyTable; // 1 to 271
};

// Reads both tables. A missing file is created empty, as a random-access open does; missing records read as blanks.
void ReadFactoryTables(FileStore &files, const std::string &pcgTablePath, const std::string &styTablePath, FactoryTables &tables);

} // namespace velluto
