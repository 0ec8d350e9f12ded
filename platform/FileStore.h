// Random-access files with run-time error numbers: all that the program asks of a file system. The settings, the
// instrument's files and the tables go through it; the adapters to POSIX and Windows, the driver's faults and the tests answer it.
#pragma once

#include "platform/RuntimeError.h"
#include "platform/SharedBytes.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace velluto {

// The run-time error numbers that the program gives a meaning to.
namespace FileError {
inline constexpr int kOther = 51;
inline constexpr int kFileNotFound = 53;
inline constexpr int kDeviceError = 56; // has a message of its own; systems report 57
inline constexpr int kDeviceInputOutput = 57;
inline constexpr int kDiskFull = 61;
inline constexpr int kDiskNotReady = 71;
inline constexpr int kPathFileAccess = 75;
inline constexpr int kPathNotFound = 76;
inline constexpr int kCancelled = 32755;
} // namespace FileError

// An open file. It is closed when the object goes.
class RandomAccessFile {
public:
    virtual ~RandomAccessFile() = default;
    virtual RuntimeError Length(std::uint64_t &length) = 0;
    // Reads up to buffer.size() bytes from the 0-based offset; got is lower than that only at the end of the file.
    virtual RuntimeError Read(std::uint64_t offset, std::span<std::uint8_t> buffer, std::size_t &got) = 0;
    // Writes all bytes at the 0-based offset, or fails. Writing the same bytes again is harmless.
    virtual RuntimeError Write(std::uint64_t offset, std::span<const std::uint8_t> bytes) = 0;
};

// A file being written, from before the first operation until after the last. What ends the process meanwhile leaves the old file
// or the new one, whole, as soon as the program has been started again. No answer of an operation depends on it.
class WritingUnderWay {
public:
    virtual ~WritingUnderWay() = default;
};

class FileStore {
public:
    virtual ~FileStore() = default;
    // Opens for reading and writing; a missing file is created empty. Anything but a regular file is error 75.
    // The path is the platform's own, in UTF-8.
    virtual RuntimeError Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file) = 0;
    // Opens for reading alone, so that a file which may not be written will do. A missing file is error 53, and stays
    // missing; anything but a regular file is error 75.
    virtual RuntimeError OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file) = 0;
    virtual RuntimeError Delete(const std::string &path) = 0;
    // To be kept while a file is deleted and written anew with these bytes; null where nothing can be done for it.
    virtual std::unique_ptr<WritingUnderWay> BeginReplacing(const std::string & /*path*/, const ByteRuns & /*bytes*/) { return nullptr; }
    // The same while a file is written to in place, or made.
    virtual std::unique_ptr<WritingUnderWay> BeginChanging(const std::string & /*path*/) { return nullptr; }
    // The process's current directory, without a separator at its end (but that of a root, "/" or "C:\").
    virtual std::string CurrentFolder() = 0;
};

// The longest file that is read whole, and the error that a longer one gives; no memory is asked for that.
struct WholeLimit {
    std::uint64_t most = 0;
    RuntimeError beyond;
};

// All of an open file. Where somebody cuts it in the meantime the bytes are fewer. Throws std::bad_alloc.
RuntimeError ReadWhole(RandomAccessFile &file, WholeLimit limit, SharedBytes &bytes);
// The same of a file that is opened to be read alone.
RuntimeError ReadWhole(FileStore &files, const std::string &path, WholeLimit limit, SharedBytes &bytes);

} // namespace velluto
