#include "platform/windows/WinFolders.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WinFiles.h"
#include "platform/windows/WinPaths.h"

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

namespace velluto {

namespace {

struct EndSearch {
    using pointer = HANDLE;
    void operator()(HANDLE search) const
    {
        if (search != INVALID_HANDLE_VALUE) {
            ::FindClose(search);
        }
    }
};
using Search = std::unique_ptr<void, EndSearch>;

std::uint64_t Joined(DWORD high, DWORD low)
{
    return std::uint64_t{high} << std::numeric_limits<DWORD>::digits | low;
}

bool IsFolder(DWORD attributes)
{
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

// The length of the file that a link leads to; nothing where it leads to none. The system's answers are about the link itself.
std::optional<std::uint64_t> LengthBehind(const std::wstring &link)
{
    const Handle file(::CreateFileW(link.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    LARGE_INTEGER size{};
    if (!file || ::GetFileSizeEx(file.get(), &size) == 0) {
        return {};
    }
    return static_cast<std::uint64_t>(size.QuadPart);
}

// The folder's path with a separator behind it.
std::optional<std::wstring> Front(const std::string &folder)
{
    std::optional<std::wstring> path = SystemPath(folder);
    if (path && path->back() != L'\\') {
        *path += L'\\';
    }
    return path;
}

// Calls see(entry) for each entry of the folder that is not hidden.
template <class See>
RuntimeError EachEntry(const std::wstring &front, See see)
{
    WIN32_FIND_DATAW entry{};
    // Short names of 8 and 3 letters are left out of it: "*.mid" would else find "song.midi".
    const Search search(
        ::FindFirstFileExW((front + L"*").c_str(), FindExInfoBasic, &entry, FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
    if (search.get() == INVALID_HANDLE_VALUE) {
        const DWORD code = ::GetLastError();
        return code == ERROR_FILE_NOT_FOUND ? RuntimeError{} : FromSystem(code); // the root of an empty drive lists nothing at all
    }
    constexpr DWORD kHidden = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    do {
        const std::wstring_view name = entry.cFileName;
        if ((entry.dwFileAttributes & kHidden) == 0 && name != L"." && name != L"..") {
            see(entry);
        }
    } while (::FindNextFileW(search.get(), &entry) != 0);
    const DWORD code = ::GetLastError();
    return code == ERROR_NO_MORE_FILES ? RuntimeError{} : FromSystem(code);
}

bool IsLink(const WIN32_FIND_DATAW &entry)
{
    return (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0 && entry.dwReserved0 == IO_REPARSE_TAG_SYMLINK;
}

} // namespace

RuntimeError WinFolders::Files(const std::string &folder, std::string_view pattern, std::vector<ListedFile> &files)
{
    files.clear();
    const std::optional<std::wstring> front = Front(folder);
    if (!front) {
        return {FileError::kPathNotFound};
    }
    const RuntimeError error = EachEntry(*front, [&](const WIN32_FIND_DATAW &entry) {
        std::string name = Utf8Of(entry.cFileName);
        if (IsFolder(entry.dwFileAttributes) || !MatchesPattern(name, pattern)) {
            return;
        }
        std::optional<std::uint64_t> length = Joined(entry.nFileSizeHigh, entry.nFileSizeLow);
        if (IsLink(entry)) {
            length = LengthBehind(*front + entry.cFileName);
        }
        if (length) {
            files.push_back({std::move(name), *length});
        }
    });
    std::ranges::sort(files, ComesBefore, &ListedFile::name);
    return error;
}

RuntimeError WinFolders::Subfolders(const std::string &folder, std::vector<std::string> &names)
{
    names.clear();
    const std::optional<std::wstring> front = Front(folder);
    if (!front) {
        return {FileError::kPathNotFound};
    }
    const RuntimeError error = EachEntry(*front, [&](const WIN32_FIND_DATAW &entry) {
        if (IsFolder(entry.dwFileAttributes)) {
            names.push_back(Utf8Of(entry.cFileName));
        }
    });
    std::ranges::sort(names, ComesBefore);
    return error;
}

RuntimeError WinFolders::FileLength(const std::string &path, std::uint64_t &length)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        return {FileError::kFileNotFound};
    }
    WIN32_FILE_ATTRIBUTE_DATA about{};
    if (::GetFileAttributesExW(name->c_str(), GetFileExInfoStandard, &about) == 0) {
        const DWORD code = ::GetLastError();
        return code == ERROR_FILE_NOT_FOUND ? RuntimeError{FileError::kFileNotFound} : FromSystem(code);
    }
    std::optional<std::uint64_t> found = Joined(about.nFileSizeHigh, about.nFileSizeLow);
    if (IsFolder(about.dwFileAttributes)) {
        found.reset();
    } else if ((about.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        found = LengthBehind(*name);
    }
    if (!found) {
        return {FileError::kFileNotFound};
    }
    length = *found;
    return {};
}

std::vector<std::string> WinFolders::Drives()
{
    std::vector<std::string> drives;
    const DWORD there = ::GetLogicalDrives(); // bit 0 is A
    for (char letter = 'A'; letter <= 'Z'; ++letter) {
        if ((there >> static_cast<unsigned>(letter - 'A') & 1U) != 0) {
            drives.push_back(std::string(1, letter) + ":");
        }
    }
    return drives;
}

} // namespace velluto
