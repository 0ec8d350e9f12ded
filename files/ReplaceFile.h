// Writes a whole file where an old one may be. Used by Save and Save As, and by the player's compilations.
#pragma once

#include "files/ErrorTrap.h"

#include <cstdint>
#include <memory>
#include <string>

namespace velluto {

inline RuntimeError WriteRuns(RandomAccessFile &file, const ByteRuns &bytes)
{
    RuntimeError error;
    std::uint64_t offset = 0;
    for (auto run = bytes.begin(); run != bytes.end() && !error.Failed(); offset += run->size(), ++run) {
        error = run->empty() ? error : file.Write(offset, *run);
    }
    return error;
}

// Writes all bytes, run by run, and from the first one on where a failure is tried again. An old file of any length is deleted first: a
// failure while writing loses it, the end of the process does not. Each step is trapped by judge(error); false where judge gave up.
template <class Judge>
[[nodiscard]] bool ReplaceFile(FileStore &store, const std::string &path, const ByteRuns &bytes, Judge judge)
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
    return Trapped([&] { return WriteRuns(*file, bytes); }, judge);
}

} // namespace velluto
