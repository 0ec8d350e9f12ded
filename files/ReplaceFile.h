// Writes a whole file where an old one may be. Used by Save and Save As, and by the player's compilations.
#pragma once

#include "files/ErrorTrap.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace velluto {

// Writes all bytes in one call. An old file of any length is deleted first: a failure while writing loses it, the end of the
// process does not. Each step is trapped by judge(error); false where judge gave up.
template <class Judge>
[[nodiscard]] bool ReplaceFile(FileStore &store, const std::string &path, std::span<const std::uint8_t> bytes, Judge judge)
{
    const std::unique_ptr<WritingUnderWay> underWay = store.BeginReplacing(path, bytes);
    std::unique_ptr<RandomAccessFile> file;
    const auto open = [&] { return store.Open(path, file); };
    std::uint64_t oldLength = 0;
    if (!Trapped(open, judge) || !Trapped([&] { return file->Length(oldLength); }, judge)) {
        return false;
    }
    if (oldLength > 0) {
        file.reset();
        if (!Trapped([&] { return store.Delete(path); }, judge) || !Trapped(open, judge)) {
            return false;
        }
    }
    return bytes.empty() || Trapped([&] { return file->Write(0, bytes); }, judge);
}

} // namespace velluto
