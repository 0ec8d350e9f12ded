#include "platform/rtmidi/WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velluto {

namespace {

class Descriptor {
public:
    explicit Descriptor(const std::string &path) : number_(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC)) {}
    ~Descriptor()
    {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    [[nodiscard]] int Number() const { return number_; }

private:
    int number_;
};

// False where the bytes could not all be read.
bool Fill(int descriptor, std::span<std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t got = ::read(descriptor, bytes.data(), bytes.size());
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got <= 0) {
            return false;
        }
        bytes = bytes.subspan(static_cast<std::size_t>(got));
    }
    return true;
}

} // namespace

FileReading ReadWholeFile(const std::string &path, std::size_t limit, SharedBytes &bytes)
{
    const Descriptor file(path);
    if (file.Number() < 0) {
        return errno == ENOENT || errno == ENOTDIR ? FileReading::NotFound : FileReading::NotReadable;
    }
    struct stat about {};
    if (::fstat(file.Number(), &about) != 0 || !S_ISREG(about.st_mode)) {
        return FileReading::NotReadable;
    }
    const auto size = static_cast<std::size_t>(about.st_size);
    if (size > limit) {
        return FileReading::TooLarge;
    }
    bytes = SharedBytes(size);
    return Fill(file.Number(), bytes.Writable()) ? FileReading::Success : FileReading::NotReadable;
}

} // namespace velluto
