// Where the instrument keeps what a list shows: the numbers that recall works from, as tables. Used by Recall alone.
#pragma once

#include "banks/BankLayout.h"

namespace velluto {

inline constexpr RecordField kFieldMsb{18, 3};
inline constexpr RecordField kFieldLsb{22, 3};
inline constexpr RecordField kFieldProgram{26, 3};

// The pages of a factory Style list: sixteen rows each, headings between them.
struct StylePage {
    int firstRow;
    int lastRow;
};
inline constexpr std::array<StylePage, 8> kStylePages = {
    {{2, 17}, {21, 36}, {39, 54}, {58, 73}, {76, 91}, {95, 110}, {113, 128}, {132, 147}}};

// Bank select MSB of what the user can load.
inline constexpr int kMsbUserPrograms = 121;
inline constexpr int kMsbStyles = 0;
inline constexpr int kMsbPerformances = 1;

// Bank select LSB.
inline constexpr int kLsbProgramUser1 = 64;
inline constexpr int kLsbStyleList2 = 8;      // the second factory Style list begins here
inline constexpr int kLsbStyleSlotOffset = 8; // slot 9 (User 1) is LSB 17, slot 20 (Direct HD 9) LSB 28
inline constexpr int kLsbStyleUserOffset = 16;
inline constexpr int kLsbDirectHdOffset = 19;

} // namespace velluto
