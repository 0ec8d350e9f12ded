#include "platform/posix/PosixFolders.h"

#include "platform/posix/PosixFiles.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <memory>
#include <sys/stat.h>

namespace velluto {

namespace {

struct CloseFolder {
    void operator()(DIR *folder) const { ::closedir(folder); }
};
using OpenFolder = std::unique_ptr<DIR, CloseFolder>;

// Calls see(name, about) for each entry that is not hidden. What cannot be looked at has gone meanwhile: it is left out.
template <class See>
RuntimeError EachEntry(const std::string &path, See see)
{
    const OpenFolder folder(path.find('\0') == std::string::npos ? ::opendir(path.c_str()) : nullptr);
    if (folder == nullptr) {
        return path.find('\0') == std::string::npos ? FromErrno(errno) : RuntimeError{FileError::kPathNotFound};
    }
    // NOLINTNEXTLINE(concurrency-mt-unsafe): the folder is this thread's own
    while (const dirent *entry = ::readdir(folder.get())) {
        struct stat about {};
        if (entry->d_name[0] != '.' && ::fstatat(::dirfd(folder.get()), entry->d_name, &about, 0) == 0) {
            see(std::string(entry->d_name), about);
        }
    }
    return {};
}

bool IsFolder(const std::string &path)
{
    struct stat about {};
    return ::stat(path.c_str(), &about) == 0 && S_ISDIR(about.st_mode);
}

// A blank in a mount point is written as \040, and so on.
std::string WithoutEscapes(std::string_view text)
{
    constexpr std::size_t kEscape = 4;
    const auto digit = [](char c) { return c >= '0' && c <= '7'; };
    std::string plain;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const std::string_view escape = text.substr(at, kEscape);
        if (escape.size() == kEscape && escape[0] == '\\' && std::all_of(escape.begin() + 1, escape.end(), digit)) {
            plain += static_cast<char>((escape[1] - '0') * 64 + (escape[2] - '0') * 8 + (escape[3] - '0'));
            at += kEscape - 1;
        } else {
            plain += text[at];
        }
    }
    return plain;
}

} // namespace

RuntimeError PosixFolders::Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files)
{
    files.clear();
    const RuntimeError error = EachEntry(folder, [&](std::string name, const struct stat &about) {
        if (S_ISREG(about.st_mode) && MatchesPattern(name, pattern)) {
            files.push_back({std::move(name), static_cast<std::uint64_t>(about.st_size)});
        }
    });
    std::ranges::sort(files, ComesBefore, &ListedFile::name);
    return error;
}

RuntimeError PosixFolders::Subfolders(const std::string &folder, std::vector<std::string> &names)
{
    names.clear();
    const RuntimeError error = EachEntry(folder, [&](std::string name, const struct stat &about) {
        if (S_ISDIR(about.st_mode)) {
            names.push_back(std::move(name));
        }
    });
    std::ranges::sort(names, ComesBefore);
    return error;
}

RuntimeError PosixFolders::FileLength(const std::string &path, std::uint64_t &length)
{
    if (path.find('\0') != std::string::npos) {
        return {FileError::kFileNotFound};
    }
    struct stat about {};
    if (::stat(path.c_str(), &about) != 0) {
        const int code = errno;
        const std::size_t name = path.rfind('/') + 1;
        const bool folderThere = IsFolder(name > 1 ? path.substr(0, name - 1) : "/");
        return code == ENOENT && folderThere ? RuntimeError{FileError::kFileNotFound} : FromErrno(code);
    }
    if (!S_ISREG(about.st_mode)) {
        return {FileError::kFileNotFound};
    }
    length = static_cast<std::uint64_t>(about.st_size);
    return {};
}

std::vector<std::string> PosixFolders::Drives()
{
    std::vector<std::string> drives{"/"};
    const char *home = std::getenv("HOME"); // NOLINT(concurrency-mt-unsafe): this thread alone writes the environment
    if (home != nullptr && home[0] == '/' && home[1] != '\0' && IsFolder(home)) {
        drives.emplace_back(home);
    }
    std::ifstream table("/proc/self/mounts");
    std::ranges::copy(UserMounts(std::string(std::istreambuf_iterator<char>(table), {})), std::back_inserter(drives));
    return drives;
}

std::vector<std::string> UserMounts(std::string_view table)
{
    constexpr std::array<std::string_view, 3> kPlaces = {"/media/", "/run/media/", "/mnt/"};
    std::vector<std::string> mounts;
    while (!table.empty()) {
        std::string_view line = table.substr(0, table.find('\n'));
        table.remove_prefix(std::min(line.size() + 1, table.size()));
        line.remove_prefix(std::min(line.find(' ') + 1, line.size())); // the device
        const std::string place = WithoutEscapes(line.substr(0, line.find(' ')));
        if (std::ranges::any_of(kPlaces, [&place](std::string_view above) { return (place + "/").starts_with(above); })) {
            mounts.push_back(place);
        }
    }
    std::ranges::sort(mounts, ComesBefore);
    mounts.erase(std::unique(mounts.begin(), mounts.end()), mounts.end());
    return mounts;
}

} // namespace velluto
