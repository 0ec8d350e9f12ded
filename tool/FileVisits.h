// One file after the other of those that the user has named, read and told apart, with a plain sentence for each that cannot be.
// Used by all commands.
#pragma once

#include "tool/Desk.h"
#include "tool/InstrumentFile.h"

#include <functional>
#include <optional>
#include <span>
#include <string>

namespace velluto::tool {

struct VisitedFile {
    const std::string &path;
    Kind kind;
    std::uint64_t length;
    ImageBlock image;
};

// Calls see(file) for each file that could be read. False where one, or a folder, could not: that has been told.
bool EachFile(const Desk &desk, std::span<const std::string> named, const std::function<void(const VisitedFile &)> &see);

// All bytes of a file that the user has named; nothing where it cannot be read, or is longer than kLongestFile: that has been told.
[[nodiscard]] std::optional<std::string> ReadText(const Desk &desk, const std::string &path);

// Calls see(file) for each that the program would open. The exit code: what is no file of the instrument has been told.
int EachInstrumentFile(const Desk &desk, std::span<const std::string> named, const std::function<void(const VisitedFile &)> &see);

} // namespace velluto::tool
