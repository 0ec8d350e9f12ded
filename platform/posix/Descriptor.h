// An open file of the system by its number, closed when the object goes. Used by the journal of saves.
#pragma once

#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <span>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velluto {

class Descriptor {
public:
    // errno tells why it is not open.
    Descriptor(const std::string &path, int flags, mode_t mode = 0) : number_(::open(path.c_str(), flags | O_CLOEXEC, mode)) {}
    ~Descriptor() { Close(); }
    Descriptor(Descriptor &&other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    void Close()
    {
        if (number_ >= 0) {
            ::close(std::exchange(number_, -1));
        }
    }
    [[nodiscard]] bool IsOpen() const { return number_ >= 0; }
    [[nodiscard]] int Number() const { return number_; }
    // False where it is not a regular file, or nothing can be learnt of it.
    [[nodiscard]] bool IsRegular(struct stat &about) const { return ::fstat(number_, &about) == 0 && S_ISREG(about.st_mode); }
    // Up to bytes.size() bytes from where it stands; fewer at the end, or where it fails.
    [[nodiscard]] std::size_t Read(std::span<std::uint8_t> bytes) const
    {
        std::size_t got = 0;
        ssize_t step = 1;
        while (got < bytes.size() && step > 0) {
            step = ::read(number_, bytes.data() + got, bytes.size() - got);
            got += step > 0 ? static_cast<std::size_t>(step) : 0;
        }
        return got;
    }
    [[nodiscard]] bool Write(std::span<const std::uint8_t> bytes) const
    {
        std::size_t done = 0;
        ssize_t step = 1;
        while (done < bytes.size() && step > 0) {
            step = ::write(number_, bytes.data() + done, bytes.size() - done);
            done += step > 0 ? static_cast<std::size_t>(step) : 0;
        }
        return done == bytes.size();
    }

private:
    int number_;
};

// Sees to it that a file's bytes, or a folder's names, are on the disk. True where the file system knows no such thing.
inline bool Sync(const Descriptor &opened)
{
    return opened.IsOpen() && (::fsync(opened.Number()) == 0 || errno == EINVAL);
}
inline bool Sync(const std::string &path)
{
    return Sync(Descriptor(path, O_RDONLY | O_NONBLOCK));
}

} // namespace velluto
