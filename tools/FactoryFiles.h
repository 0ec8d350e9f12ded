// What make-tables makes of its sources: the two tables of the factory sounds, and the ten banks of Performances that
// stand for the instrument's own. Each throws SourceError where its source is not what it should be.
#pragma once

#include "tools/Delivery.h"

#include <filesystem>
#include <vector>

namespace makers {

[[nodiscard]] MadeFile MakeProgramTable(const std::filesystem::path &source);
[[nodiscard]] MadeFile MakeStyleTable(const std::filesystem::path &source);
[[nodiscard]] std::vector<MadeFile> MakePerformanceBanks(const std::filesystem::path &source);

} // namespace makers
