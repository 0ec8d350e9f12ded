#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fcntl.h>
#include <memory>
#include <span>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velluto {

namespace {

// A zero byte would end the path early and name another file.
bool IsWellFormed(const std::string &path)
{
    return !path.empty() && path.find('\0') == std::string::npos;
}

// A socket refuses to be opened with the words of a device that has gone.
bool IsSocket(const std::string &path)
{
    struct stat about {};
    return ::stat(path.c_str(), &about) == 0 && S_ISSOCK(about.st_mode);
}

#ifdef MADV_POPULATE_WRITE
std::size_t PageLength()
{
    static const auto length = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    return length;
}

// The whole pages of a buffer.
std::span<std::byte> PagesIn(std::span<std::uint8_t> buffer)
{
    void *begin = buffer.data();
    std::size_t room = buffer.size();
    if (std::align(PageLength(), PageLength(), begin, room) == nullptr) {
        return {};
    }
    return {static_cast<std::byte *>(begin), room / PageLength() * PageLength()};
}

// Whether the last of these pages is in memory. Memory that was used before is whole, most often, and what is new is empty from its end.
bool ArePresent(std::span<std::byte> pages)
{
    unsigned char present = 0;
    return ::mincore(pages.data() + pages.size() - PageLength(), PageLength(), &present) == 0 && (present & 1U) != 0;
}

// Memory that a read is to fill. The system gives new memory page after page as they are first written, which takes most of the time of a
// read: of a large buffer whose memory is new it comes in large pages where the system has some, and piece by piece in one go, each while
// the processor still has it at hand. Where the system cannot, it comes page after page. To ask for what is there would take as long as a
// read.
class ReadBuffer {
public:
    explicit ReadBuffer(std::span<std::uint8_t> buffer) : rest_(buffer)
    {
        const std::span<std::byte> pages = PagesIn(buffer);
        isNew_ = pages.size() >= kPiece && !ArePresent(pages);
        if (isNew_ && buffer.size() >= kLargePage) {
            ::madvise(pages.data(), pages.size(), MADV_HUGEPAGE);
        }
    }

    [[nodiscard]] bool Full() const { return rest_.empty(); }
    // What to fill next.
    std::span<std::uint8_t> Piece()
    {
        if (!isNew_) {
            return rest_;
        }
        const std::size_t begun = reinterpret_cast<std::uintptr_t>(rest_.data()) % kPiece; // so that it lies in one large page
        const std::span<std::uint8_t> piece = rest_.first(std::min(rest_.size(), kPiece - begun));
        if (const std::span<std::byte> pages = PagesIn(piece); !pages.empty()) {
            ::madvise(pages.data(), pages.size(), MADV_POPULATE_WRITE);
        }
        return piece;
    }
    void Pass(std::size_t filled) { rest_ = rest_.subspan(filled); }

private:
    static constexpr std::size_t kPiece = std::size_t{1} << 18; // bytes; buffers that are smaller have been used before, most often

    std::span<std::uint8_t> rest_;
    bool isNew_ = false;
};
#else
class ReadBuffer {
public:
    explicit ReadBuffer(std::span<std::uint8_t> buffer) : rest_(buffer) {}
    [[nodiscard]] bool Full() const { return rest_.empty(); }
    [[nodiscard]] std::span<std::uint8_t> Piece() const { return rest_; }
    void Pass(std::size_t filled) { rest_ = rest_.subspan(filled); }

private:
    std::span<std::uint8_t> rest_;
};
#endif

bool IsFull(int code)
{
    return code == ENOSPC || code == EDQUOT;
}

class PosixFile : public RandomAccessFile {
public:
    // kept, where there is such, gives room where the disk is full.
    PosixFile(int descriptor, KeptFiles *kept) : descriptor_(descriptor), kept_(kept) {}
    ~PosixFile() override { ::close(descriptor_); }
    PosixFile(const PosixFile &) = delete;
    PosixFile &operator=(const PosixFile &) = delete;

    RuntimeError Length(std::uint64_t &length) override
    {
        struct stat about {};
        if (::fstat(descriptor_, &about) != 0) {
            return FromErrno(errno);
        }
        length = static_cast<std::uint64_t>(about.st_size);
        return {};
    }

    RuntimeError Read(std::uint64_t offset, std::span<std::uint8_t> buffer, std::size_t &got) override
    {
        got = 0;
        for (ReadBuffer target(buffer); !target.Full();) {
            const std::span<std::uint8_t> piece = target.Piece();
            const ssize_t n = ::pread(descriptor_, piece.data(), piece.size(), static_cast<off_t>(offset + got));
            if (n < 0 && errno == EINTR) {
                continue;
            }
            if (n < 0) {
                return FromErrno(errno);
            }
            if (n == 0) {
                break;
            }
            got += static_cast<std::size_t>(n);
            target.Pass(static_cast<std::size_t>(n));
        }
        return {};
    }

    RuntimeError Write(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t n = ::pwrite(descriptor_, bytes.data() + done, bytes.size() - done, static_cast<off_t>(offset + done));
            if (n < 0 && (errno == EINTR || (IsFull(errno) && kept_ != nullptr && kept_->MakeRoom()))) {
                continue;
            }
            if (n < 0) {
                return FromErrno(errno);
            }
            if (n == 0) {
                return {FileError::kDiskFull};
            }
            done += static_cast<std::size_t>(n);
        }
        return {};
    }

private:
    int descriptor_;
    KeptFiles *kept_;
};

// How a file is opened: flags say for what.
RuntimeError OpenWith(int flags, const std::string &path, KeptFiles *kept, std::unique_ptr<RandomAccessFile> &file)
{
    if (!IsWellFormed(path)) {
        return {FileError::kPathNotFound};
    }
    // Not blocking, so that a pipe or a device of that name answers at once and is then refused.
    const auto open = [&] { return ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666); };
    int descriptor = open();
    if (descriptor < 0 && IsFull(errno) && kept != nullptr && kept->MakeRoom()) {
        descriptor = open();
    }
    if (descriptor < 0) {
        const int code = errno;
        if (code == ENXIO && IsSocket(path)) {
            return {FileError::kPathFileAccess};
        }
        // Where nothing is to be made, what is not there is the file.
        return code == ENOENT && (flags & O_CREAT) == 0 ? RuntimeError{FileError::kFileNotFound} : FromErrno(code);
    }
    auto opened = std::make_unique<PosixFile>(descriptor, kept);
    struct stat about {};
    if (::fstat(descriptor, &about) != 0) {
        return FromErrno(errno);
    }
    if (!S_ISREG(about.st_mode)) {
        return {FileError::kPathFileAccess};
    }
    file = std::move(opened);
    return {};
}

} // namespace

RuntimeError FromErrno(int code)
{
    switch (code) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
        return {FileError::kPathNotFound};
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
        return {FileError::kPathFileAccess};
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return {FileError::kDiskFull};
    case ENXIO:
    case ENODEV:
    case ENOMEDIUM:
        return {FileError::kDiskNotReady};
    case EIO:
        return {FileError::kDeviceInputOutput};
    default:
        return {FileError::kOther};
    }
}

PosixFiles::PosixFiles()
{
    // A write beyond the limit on file sizes is to fail with its error and not to end the program.
    std::signal(SIGXFSZ, SIG_IGN);
}

void PosixFiles::KeepWhole(const std::string &programFolder)
{
    kept_ = std::make_unique<KeptFiles>(programFolder);
}

RuntimeError PosixFiles::Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenWith(O_RDWR | O_CREAT, path, kept_.get(), file);
}

RuntimeError PosixFiles::OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenWith(O_RDONLY, path, nullptr, file);
}

RuntimeError PosixFiles::Delete(const std::string &path)
{
    if (!IsWellFormed(path)) {
        return {FileError::kPathNotFound};
    }
    // Open follows a link, so Delete does too: it is the file that goes, and a save through a link reaches its target.
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(path.c_str(), nullptr), &std::free);
    if ((target && kept_ && kept_->PutAside(target.get())) || ::unlink(target ? target.get() : path.c_str()) == 0) {
        return {};
    }
    return errno == ENOENT ? RuntimeError{FileError::kFileNotFound} : FromErrno(errno);
}

std::unique_ptr<WritingUnderWay> PosixFiles::BeginReplacing(const std::string &path, const ByteRuns &bytes)
{
    return kept_ ? kept_->BeginReplacing(path, bytes) : nullptr;
}

std::unique_ptr<WritingUnderWay> PosixFiles::BeginChanging(const std::string &path)
{
    return kept_ ? kept_->BeginChanging(path) : nullptr;
}

std::string PosixFiles::CurrentFolder()
{
    const std::unique_ptr<char, decltype(&std::free)> folder(::getcwd(nullptr, 0), &std::free);
    return folder ? std::string(folder.get()) : std::string("/");
}

} // namespace velluto
