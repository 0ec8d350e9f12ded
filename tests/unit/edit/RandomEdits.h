// Random documents and random commands on them: what a seed stands for. A step says what to look for rather than a row
// number, so a sequence keeps its sense when steps are taken out of it.
#pragma once

#include "unit/support/TestProgram.h"

#include <string>
#include <vector>

namespace velluto::test {

enum class Origin { ProgramFile, StyleFile, PerformanceFile, NewProgram64, NewProgram128, NewStyle, NewPerformance };

struct RandomDocument {
    Origin origin = Origin::ProgramFile;
    int bank = 0; // slot of the bank that shows the file, 0 for a window of its own
    Bytes file;
};

enum class Action { Open, Close, Select, Copy, Cut, Delete, Paste, CopyPastMenu, PastePastMenu, Print, ClickSts };

// How a selection is found: the a-th run of a sort, at most b rows of it.
enum class Rows { None, Occupied, Empty, Any, Scattered, EmptyBeforeOccupied, All };

struct EditStep {
    Action action = Action::Open;
    std::size_t document = 0;
    Rows rows = Rows::None;
    unsigned a = 0;
    unsigned b = 0;
};

struct EditSequence {
    std::vector<RandomDocument> documents;
    std::vector<EditStep> steps;
};

[[nodiscard]] EditSequence RandomSequence(unsigned seed);

} // namespace velluto::test
