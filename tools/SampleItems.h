// What the sample files hold: names and bodies of invented items, the same on every machine and in every run.
// make-samples puts them into containers.
#pragma once

#include "tools/KorfFile.h"

#include <string_view>
#include <vector>

namespace samples {

using makers::Item;

struct Sample {
    std::string_view file;
    std::vector<Item> items;
};

[[nodiscard]] std::vector<Sample> MakeSamples();

} // namespace samples
