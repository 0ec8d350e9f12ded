// What the readers of lists say, and the files that the tests give them.
#pragma once

#include "tool/SoundList.h"
#include "tool/SourceFault.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velluto::tool {

inline std::string File(const std::string &path)
{
    const test::Bytes bytes = test::ReadBytes(path);
    EXPECT_FALSE(bytes.empty()) << path;
    return {bytes.begin(), bytes.end()};
}

// "121/0/5 Name", with a mark behind it for a kit, a Style, or any bank.
inline std::vector<std::string> Told(const std::vector<ListedSound> &sounds)
{
    std::vector<std::string> told;
    for (const ListedSound &sound : sounds) {
        const SoundAddress &at = sound.address;
        told.push_back(std::to_string(at.msb) + "/" + std::to_string(at.lsb) + "/" + std::to_string(at.program) + " " + sound.name +
                       (sound.isKit ? " kit" : "") + (sound.isStyle ? " style" : "") + (sound.anyBank ? " any" : ""));
    }
    return told;
}

// "LINE: WORDS", or "none".
template <class Read>
std::string Complaint(Read read)
{
    try {
        (void)read();
    } catch (const SourceFault &fault) {
        return std::to_string(fault.Line()) + ": " + fault.what();
    }
    return "none";
}

} // namespace velluto::tool
