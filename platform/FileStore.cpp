#include "platform/FileStore.h"

namespace velluto {

RuntimeError ReadWhole(RandomAccessFile &file, WholeLimit limit, SharedBytes &bytes)
{
    std::uint64_t length = 0;
    if (const RuntimeError error = file.Length(length); error.Failed()) {
        return error;
    }
    if (length > limit.most) {
        return limit.beyond;
    }
    SharedBytes read(static_cast<std::size_t>(length));
    std::size_t got = 0;
    if (const RuntimeError error = file.Read(0, read.Writable(), got); error.Failed()) {
        return error;
    }
    bytes = got == length ? std::move(read) : SharedBytes(read.View().first(got));
    return {};
}

RuntimeError ReadWhole(FileStore &files, const std::string &path, WholeLimit limit, SharedBytes &bytes)
{
    std::unique_ptr<RandomAccessFile> file;
    const RuntimeError error = files.OpenToRead(path, file);
    return error.Failed() ? error : ReadWhole(*file, limit, bytes);
}

} // namespace velluto
