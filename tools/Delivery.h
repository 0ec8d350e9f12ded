// What every maker does with the files that it has made: writes them into a folder, or says which files there differ.
#pragma once

#include "tools/KorfFile.h"

#include <filesystem>
#include <string>
#include <vector>

namespace makers {

struct MadeFile {
    std::string name;
    Bytes bytes;
};

// Complains about each file that cannot be written, or that with check is not what it should be; maker is the program's
// name. The number of complaints.
int Deliver(const std::vector<MadeFile> &files, const std::filesystem::path &folder, bool check, const std::string &maker);

} // namespace makers
