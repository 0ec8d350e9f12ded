#include "platform/kept/Disk.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"

#include <algorithm>
#include <utility>

namespace velluto::disk {

namespace {

constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// INVALID_HANDLE_VALUE, with the error set, where it cannot be opened.
HANDLE OpenHandle(const std::string &path, DWORD access, DWORD making, DWORD flags)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        ::SetLastError(ERROR_INVALID_NAME);
        return INVALID_HANDLE_VALUE;
    }
    return ::CreateFileW(name->c_str(), access, kShared, nullptr, making, flags, nullptr);
}

HANDLE HandleOf(std::intptr_t number)
{
    return reinterpret_cast<HANDLE>(number); // NOLINT(performance-no-int-to-ptr): it was one, and is opaque
}

DWORD AttributesOf(const std::string &path)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        ::SetLastError(ERROR_INVALID_NAME);
        return INVALID_FILE_ATTRIBUTES;
    }
    return ::GetFileAttributesW(name->c_str());
}

bool SetAttributes(const std::string &path, DWORD attributes)
{
    const std::optional<std::wstring> name = SystemPath(path);
    return name && ::SetFileAttributesW(name->c_str(), attributes) != 0;
}

// As paths are written: without what makes the system take them literally.
std::string FinalPath(HANDLE opened)
{
    std::wstring path(::GetFinalPathNameByHandleW(opened, nullptr, 0, FILE_NAME_NORMALIZED), L'\0'); // with its zero
    path.resize(::GetFinalPathNameByHandleW(opened, path.data(), static_cast<DWORD>(path.size()), FILE_NAME_NORMALIZED));
    constexpr std::wstring_view kLiteral = L"\\\\?\\";
    constexpr std::wstring_view kLiteralShare = L"\\\\?\\UNC\\";
    if (path.starts_with(kLiteralShare)) {
        return "\\\\" + Utf8Of(std::wstring_view(path).substr(kLiteralShare.size()));
    }
    return Utf8Of(std::wstring_view(path).substr(path.starts_with(kLiteral) ? kLiteral.size() : 0));
}

// Where a file that is not there would be made.
std::optional<Place> PlaceInFolder(const std::string &path)
{
    if (AttributesOf(path) != INVALID_FILE_ATTRIBUTES) {
        return std::nullopt; // a link to nothing
    }
    const std::size_t name = path.find_last_of("\\/:") + 1;
    if (name == path.size()) {
        return std::nullopt;
    }
    const Handle folder(OpenHandle(name > 0 ? path.substr(0, name) : ".", FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    std::string found = folder ? FinalPath(folder.get()) : std::string();
    if (found.empty()) {
        return std::nullopt;
    }
    if (!found.ends_with(kSeparator)) { // as that of a root does
        found += kSeparator;
    }
    return Place{found + path.substr(name)};
}

std::uint64_t Joined(DWORD high, DWORD low)
{
    return std::uint64_t{high} << 32U | low;
}

} // namespace

bool IsAbsolute(std::string_view path)
{
    return path.starts_with("\\\\") || (path.size() > 2 && path[1] == ':' && path[2] == '\\');
}

std::optional<Place> PlaceOf(const std::string &path)
{
    const Handle file(OpenHandle(path, FILE_READ_ATTRIBUTES, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    if (!file) {
        return ::GetLastError() == ERROR_FILE_NOT_FOUND ? PlaceInFolder(path) : std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION about{};
    if (::GetFileType(file.get()) != FILE_TYPE_DISK || ::GetFileInformationByHandle(file.get(), &about) == 0 ||
        (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::nullopt;
    }
    Place place{FinalPath(file.get()), true, Joined(about.nFileSizeHigh, about.nFileSizeLow)};
    return IsAbsolute(place.path) ? std::optional(std::move(place)) : std::nullopt;
}

File File::ToRead(const std::string &path)
{
    File file(reinterpret_cast<std::intptr_t>(OpenHandle(path, GENERIC_READ, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT)));
    constexpr DWORD kNoFile = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    BY_HANDLE_FILE_INFORMATION about{};
    if (file.IsOpen() && (::GetFileType(HandleOf(file.number_)) != FILE_TYPE_DISK ||
                          ::GetFileInformationByHandle(HandleOf(file.number_), &about) == 0 || (about.dwFileAttributes & kNoFile) != 0)) {
        file.Close();
    }
    file.length_ = Joined(about.nFileSizeHigh, about.nFileSizeLow);
    return file;
}

// Its folder is the user's own, and so is what is made there.
File File::Make(const std::string &path, bool &folderIsMissing)
{
    File file(reinterpret_cast<std::intptr_t>(OpenHandle(path, GENERIC_READ | GENERIC_WRITE, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN)));
    folderIsMissing = !file.IsOpen() && ::GetLastError() == ERROR_PATH_NOT_FOUND;
    return file;
}

File::File(File &&other) noexcept : number_(std::exchange(other.number_, kNone)), length_(other.length_) {}

void File::Close()
{
    if (IsOpen()) {
        ::CloseHandle(HandleOf(std::exchange(number_, kNone)));
    }
}

std::size_t File::Read(std::span<std::uint8_t> bytes) const
{
    std::size_t got = 0;
    DWORD step = 1;
    while (got < bytes.size() && step > 0) {
        if (::ReadFile(HandleOf(number_), bytes.data() + got, static_cast<DWORD>(bytes.size() - got), &step, nullptr) == 0) {
            break;
        }
        got += step;
    }
    return got;
}

bool File::Write(std::span<const std::uint8_t> bytes) const
{
    DWORD written = 0;
    return ::WriteFile(HandleOf(number_), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) != 0 &&
           written == bytes.size();
}

void File::Empty() const
{
    if (IsOpen() && ::SetFilePointerEx(HandleOf(number_), LARGE_INTEGER{}, nullptr, FILE_BEGIN) != 0) {
        ::SetEndOfFile(HandleOf(number_));
    }
}

// A place beyond all bytes: what is locked nobody else can read.
bool File::Lock() const
{
    OVERLAPPED place{};
    place.OffsetHigh = 1;
    return ::LockFileEx(HandleOf(number_), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place) != 0;
}

bool File::HasName() const
{
    BY_HANDLE_FILE_INFORMATION about{};
    FILE_STANDARD_INFO standard{};
    return ::GetFileInformationByHandle(HandleOf(number_), &about) != 0 &&
           ::GetFileInformationByHandleEx(HandleOf(number_), FileStandardInfo, &standard, sizeof(standard)) != 0 &&
           standard.DeletePending == 0 && about.nNumberOfLinks > 0;
}

bool File::Sync() const
{
    return IsOpen() && ::FlushFileBuffers(HandleOf(number_)) != 0;
}

// Rights are those that the folder gives, as they are of every file of it.
bool File::MakeLike(const std::string &path, std::span<const std::uint8_t> bytes) const
{
    const File copy(reinterpret_cast<std::intptr_t>(OpenHandle(path, GENERIC_WRITE, CREATE_NEW, FILE_ATTRIBUTE_HIDDEN)));
    return copy.IsOpen() && copy.Write(bytes) && copy.Sync();
}

There IsThere(const std::string &path)
{
    if (AttributesOf(path) != INVALID_FILE_ATTRIBUTES) {
        return There::Yes;
    }
    const DWORD code = ::GetLastError();
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? There::No : There::Unknown;
}

bool PutAside(const std::string &path, const std::string &hidden)
{
    const std::optional<std::wstring> from = SystemPath(path);
    const std::optional<std::wstring> to = SystemPath(hidden);
    const DWORD attributes = AttributesOf(path);
    // One that is read-only may have another name, but not be deleted.
    if (!from || !to || attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) != 0 ||
        ::MoveFileExW(from->c_str(), to->c_str(), MOVEFILE_WRITE_THROUGH) == 0) {
        return false;
    }
    SetAttributes(hidden, attributes | FILE_ATTRIBUTE_HIDDEN);
    return true;
}

bool PutBack(const std::string &hidden, const std::string &path)
{
    const std::optional<std::wstring> from = SystemPath(hidden);
    const std::optional<std::wstring> to = SystemPath(path);
    const DWORD attributes = AttributesOf(hidden);
    if (!from || !to || attributes == INVALID_FILE_ATTRIBUTES ||
        ::MoveFileExW(from->c_str(), to->c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        return false;
    }
    SetAttributes(path, attributes & ~static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN));
    return true;
}

bool TakeAway(const std::string &path)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        return false;
    }
    return ::DeleteFileW(name->c_str()) != 0 || ::GetLastError() == ERROR_FILE_NOT_FOUND || ::GetLastError() == ERROR_PATH_NOT_FOUND;
}

bool MakeEmpty(const std::string &path)
{
    const Handle file(OpenHandle(path, GENERIC_WRITE, TRUNCATE_EXISTING, FILE_ATTRIBUTE_NORMAL));
    return static_cast<bool>(file);
}

bool MakeHiddenFolder(const std::string &path)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (name && ::CreateDirectoryW(name->c_str(), nullptr) != 0) {
        SetAttributes(path, FILE_ATTRIBUTE_HIDDEN);
        return true;
    }
    return name && ::GetLastError() == ERROR_ALREADY_EXISTS;
}

void TakeEmptyFolderAway(const std::string &path)
{
    if (const std::optional<std::wstring> name = SystemPath(path)) {
        ::RemoveDirectoryW(name->c_str());
    }
}

std::vector<std::string> NamesIn(const std::string &folder)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAW entry{};
    const std::optional<std::wstring> pattern = SystemPath(folder + "\\*");
    const HANDLE search = pattern ? ::FindFirstFileW(pattern->c_str(), &entry) : INVALID_HANDLE_VALUE;
    if (search != INVALID_HANDLE_VALUE) {
        do {
            names.push_back(Utf8Of(entry.cFileName));
        } while (::FindNextFileW(search, &entry) != 0);
        ::FindClose(search);
    }
    return names;
}

// Windows writes the names of a folder down by itself, in their order.
bool Sync(const std::string &path)
{
    const DWORD attributes = AttributesOf(path);
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return attributes != INVALID_FILE_ATTRIBUTES;
    }
    const Handle file(OpenHandle(path, GENERIC_WRITE, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL));
    return file && ::FlushFileBuffers(file.get()) != 0;
}

} // namespace velluto::disk
