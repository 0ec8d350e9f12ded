// What the benchmarks share: instrument files of about 15 MiB, and a running program with stand-ins for the machine.
#pragma once

#include "unit/support/TestProgram.h"

#include <string>
#include <vector>

namespace velluto::bench {

inline constexpr std::size_t kFileLength = 15U << 20;

// A file of about kFileLength whose entries have these slots in this order, and bodies of equal length.
[[nodiscard]] test::Bytes LargeFile(const std::vector<int> &slots);

// A program in a folder of its own, in English, with one output that counts what it gets.
struct Stage {
    Stage();
    // Writes the file into the program's folder. Its path.
    std::string Put(const std::string &name, const test::Bytes &bytes);

    test::TestProgram run;
    FilesState &files = run.program.files;
};

} // namespace velluto::bench
