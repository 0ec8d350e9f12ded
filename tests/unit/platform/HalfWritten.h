// Saves in a process that ends in the middle, and the start after it. For the tests of KeptFiles.
#pragma once

#include "platform/machine/MachineFiles.h"
#include "platform/machine/Utf8Path.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace velluto::test {

inline const Bytes kOld = {'o', 'l', 'd'};
inline const Bytes kNew = {'n', 'e', 'w', '!', '!', '!'};

// A file that is written, up to where half of it is: saved anew, or changed in place.
struct HalfWritten {
    enum class How { Replaced, Changed };
    How how = How::Replaced;
    std::string path;
};

// What a save does, up to where half of it is written.
void SaveHalf(FileStore &files, const std::string &path);
// Keeps files whole in the folder, begins all of these, and ends without another word.
[[noreturn]] void WriteAndDie(const std::string &home, const std::vector<HalfWritten> &files);
// The same in a process of its own.
void InAProcessThatDies(const std::string &home, const std::vector<HalfWritten> &files);

class KeptFilesTest : public testing::Test {
protected:
    KeptFilesTest()
    {
        std::filesystem::create_directories(PathOfUtf8(disk_));
        std::filesystem::create_directories(PathOfUtf8(home_));
        WriteBytes(path_, kOld);
    }

    void DieInASave(const std::string &path) const { InAProcessThatDies(home_, {{HalfWritten::How::Replaced, path}}); }
    void StartAgain() const
    {
        MachineFiles files;
        files.KeepWhole(home_);
    }
    // All names below the folder of the test.
    [[nodiscard]] std::vector<std::string> Names() const
    {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::recursive_directory_iterator(PathOfUtf8(folder_.Path()))) {
            names.push_back(std::filesystem::relative(entry.path(), PathOfUtf8(folder_.Path())).generic_string());
        }
        std::ranges::sort(names);
        return names;
    }
    [[nodiscard]] std::string OnDisk(const std::string &name) const { return folder_.At("disk/" + name); }

    TempFolder folder_;
    std::string home_ = folder_.At("home");
    std::string disk_ = folder_.At("disk");
    std::string path_ = OnDisk("Stage.pcg");
};

} // namespace velluto::test
