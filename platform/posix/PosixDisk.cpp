#include "platform/kept/Disk.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace velluto::disk {

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};

std::optional<std::string> WithoutLinks(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr), &std::free);
    return real ? std::optional<std::string>(real.get()) : std::nullopt;
}

int OpenNumber(const std::string &path, int flags, mode_t mode = 0)
{
    return ::open(path.c_str(), flags | O_CLOEXEC, mode);
}

int NumberOf(std::intptr_t number)
{
    return static_cast<int>(number);
}

} // namespace

bool IsAbsolute(std::string_view path)
{
    return path.starts_with('/');
}

std::optional<Place> PlaceOf(const std::string &path)
{
    struct stat about {};
    if (path.empty() || path.find('\0') != std::string::npos) {
        return std::nullopt;
    }
    if (::lstat(path.c_str(), &about) != 0) {
        const std::size_t name = path.rfind('/') + 1;
        const std::optional<std::string> folder = errno == ENOENT ? WithoutLinks(name > 0 ? path.substr(0, name) : ".") : std::nullopt;
        if (!folder || name == path.size()) {
            return std::nullopt;
        }
        return Place{(*folder == "/" ? "" : *folder) + "/" + path.substr(name)};
    }
    std::optional<std::string> target = WithoutLinks(path);
    if (!target || ::stat(target->c_str(), &about) != 0 || !S_ISREG(about.st_mode)) {
        return std::nullopt;
    }
    return Place{std::move(*target), true, static_cast<std::uint64_t>(about.st_size)};
}

File File::ToRead(const std::string &path)
{
    File file(OpenNumber(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW));
    struct stat about {};
    if (file.IsOpen() && (::fstat(NumberOf(file.number_), &about) != 0 || !S_ISREG(about.st_mode))) {
        file.Close();
    }
    file.length_ = static_cast<std::uint64_t>(about.st_size);
    return file;
}

File File::Make(const std::string &path, bool &folderIsMissing)
{
    File file(OpenNumber(path, O_RDWR | O_CREAT | O_EXCL, 0600));
    folderIsMissing = !file.IsOpen() && errno == ENOENT;
    return file;
}

File::File(File &&other) noexcept : number_(std::exchange(other.number_, kNone)), length_(other.length_) {}

void File::Close()
{
    if (IsOpen()) {
        ::close(NumberOf(std::exchange(number_, kNone)));
    }
}

std::size_t File::Read(std::span<std::uint8_t> bytes) const
{
    std::size_t got = 0;
    ssize_t step = 1;
    while (got < bytes.size() && step > 0) {
        step = ::read(NumberOf(number_), bytes.data() + got, bytes.size() - got);
        got += step > 0 ? static_cast<std::size_t>(step) : 0;
    }
    return got;
}

bool File::Write(std::span<const std::uint8_t> bytes) const
{
    std::size_t done = 0;
    ssize_t step = 1;
    while (done < bytes.size() && step > 0) {
        step = ::write(NumberOf(number_), bytes.data() + done, bytes.size() - done);
        done += step > 0 ? static_cast<std::size_t>(step) : 0;
    }
    return done == bytes.size();
}

void File::Empty() const
{
    [[maybe_unused]] const int emptied = ::ftruncate(NumberOf(number_), 0);
}

bool File::Lock() const
{
    return ::flock(NumberOf(number_), LOCK_EX | LOCK_NB) == 0;
}

bool File::HasName() const
{
    struct stat about {};
    return ::fstat(NumberOf(number_), &about) == 0 && about.st_nlink > 0;
}

bool File::Sync() const
{
    return IsOpen() && (::fsync(NumberOf(number_)) == 0 || errno == EINVAL);
}

bool File::MakeLike(const std::string &path, std::span<const std::uint8_t> bytes) const
{
    struct stat about {};
    const File copy(OpenNumber(path, O_WRONLY | O_CREAT | O_EXCL, 0600));
    if (!copy.IsOpen() || !copy.Write(bytes) || ::fstat(NumberOf(number_), &about) != 0) {
        return false;
    }
    [[maybe_unused]] const int asOwner = ::fchown(NumberOf(copy.number_), about.st_uid, about.st_gid); // an ordinary user's are his own
    return ::fchmod(NumberOf(copy.number_), about.st_mode & 07777U) == 0 && copy.Sync() && disk::Sync(path.substr(0, path.rfind('/') + 1));
}

There IsThere(const std::string &path)
{
    struct stat about {};
    if (::lstat(path.c_str(), &about) == 0) {
        return There::Yes;
    }
    return errno == ENOENT ? There::No : There::Unknown;
}

bool PutAside(const std::string &path, const std::string &hidden)
{
    return ::rename(path.c_str(), hidden.c_str()) == 0;
}

bool PutBack(const std::string &hidden, const std::string &path)
{
    return ::rename(hidden.c_str(), path.c_str()) == 0 && Sync(path.substr(0, path.rfind('/') + 1));
}

bool TakeAway(const std::string &path)
{
    return ::unlink(path.c_str()) == 0 || errno == ENOENT;
}

bool MakeEmpty(const std::string &path)
{
    return ::truncate(path.c_str(), 0) == 0;
}

bool MakeHiddenFolder(const std::string &path)
{
    return ::mkdir(path.c_str(), 0700) == 0 || errno == EEXIST;
}

void TakeEmptyFolderAway(const std::string &path)
{
    ::rmdir(path.c_str());
}

std::vector<std::string> NamesIn(const std::string &folder)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> listed(::opendir(folder.c_str()));
    if (listed != nullptr) {
        // NOLINTNEXTLINE(concurrency-mt-unsafe): the folder is this thread's own
        while (const dirent *found = ::readdir(listed.get())) {
            names.emplace_back(found->d_name);
        }
    }
    return names;
}

bool Sync(const std::string &path)
{
    const int number = OpenNumber(path, O_RDONLY | O_NONBLOCK);
    const bool isOnDisk = number >= 0 && (::fsync(number) == 0 || errno == EINVAL);
    if (number >= 0) {
        ::close(number);
    }
    return isOnDisk;
}

} // namespace velluto::disk
