#include "tool/ReplaceKeeping.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace velluto::tool {

namespace {

constexpr int kMostKept = 10000;
constexpr mode_t kUsualMode = 0644;
constexpr off_t kLongestKept = off_t{1} << 26; // bytes; a table has some ten thousand

std::error_code LastError()
{
    return {errno, std::generic_category()};
}

// Writes all bytes to a descriptor, has them on the disk, and closes it.
std::error_code WriteAndClose(int descriptor, const std::string &bytes, mode_t mode)
{
    std::error_code error;
    for (std::size_t done = 0; !error && done < bytes.size();) {
        const ssize_t n = ::write(descriptor, bytes.data() + done, bytes.size() - done);
        if (n >= 0) {
            done += static_cast<std::size_t>(n);
        } else if (errno != EINTR) {
            error = LastError();
        }
    }
    if (!error && (::fchmod(descriptor, mode) != 0 || ::fsync(descriptor) != 0)) {
        error = LastError();
    }
    if (::close(descriptor) != 0 && !error) {
        error = LastError();
    }
    return error;
}

void SyncFolderOf(const std::string &path)
{
    const std::string folder = std::filesystem::path(path).parent_path().string();
    const int descriptor = ::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        (void)::fsync(descriptor); // not every file system can
        ::close(descriptor);
    }
}

// A copy of the old file under the first name that is free.
std::error_code KeepOld(const std::string &path, mode_t mode, std::string &kept)
{
    std::ifstream in(path, std::ios::binary);
    const std::string old{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    if (in.bad() || !in.is_open()) {
        return std::make_error_code(std::errc::io_error);
    }
    for (int number = 1; number <= kMostKept; ++number) {
        const std::string name = path + ".bak" + (number == 1 ? "" : std::to_string(number));
        const int descriptor = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
        if (descriptor < 0 && errno == EEXIST) {
            continue;
        }
        if (descriptor < 0) {
            return LastError();
        }
        if (const std::error_code error = WriteAndClose(descriptor, old, mode)) {
            ::unlink(name.c_str());
            return error;
        }
        kept = name;
        return {};
    }
    return std::make_error_code(std::errc::file_exists);
}

std::error_code WriteBeside(const std::string &path, const std::string &bytes, mode_t mode, std::string &name)
{
    name = path + ".XXXXXX";
    const int descriptor = ::mkstemp(name.data());
    return descriptor < 0 ? LastError() : WriteAndClose(descriptor, bytes, mode);
}

std::string TargetOf(const std::string &path)
{
    const std::unique_ptr<char, decltype(&std::free)> target(::realpath(path.c_str(), nullptr), &std::free);
    return target ? target.get() : path;
}

} // namespace

std::error_code ReplaceKeeping(const std::string &path, const std::string &bytes, std::string &kept)
{
    const std::string target = TargetOf(path);
    kept.clear();
    struct stat about {};
    const bool isThere = ::stat(target.c_str(), &about) == 0;
    const mode_t mode = isThere ? about.st_mode & static_cast<mode_t>(ACCESSPERMS) : kUsualMode;
    if (isThere && !S_ISREG(about.st_mode)) {
        return std::make_error_code(std::errc::not_supported);
    }
    if (isThere && ::access(target.c_str(), W_OK) != 0) { // who has write-protected it wants it to stay
        return LastError();
    }
    if (isThere && about.st_size > kLongestKept) {
        return std::make_error_code(std::errc::file_too_large);
    }
    if (isThere) {
        if (const std::error_code error = KeepOld(target, mode, kept)) {
            return error;
        }
    }
    std::string beside;
    std::error_code error = WriteBeside(target, bytes, mode, beside);
    if (!error && ::rename(beside.c_str(), target.c_str()) != 0) {
        error = LastError();
    }
    if (error) {
        ::unlink(beside.c_str());
        if (!kept.empty()) {
            ::unlink(kept.c_str());
        }
        kept.clear();
        return error;
    }
    SyncFolderOf(target);
    return {};
}

} // namespace velluto::tool
