#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"
#include "tool/ReplaceKeeping.h"

#include <cstdint>
#include <optional>

namespace velluto::tool {

namespace {

constexpr int kMostKept = 10000;
constexpr std::uint64_t kLongestKept = std::uint64_t{1} << 26; // bytes; a table has some ten thousand

std::error_code LastError()
{
    return {static_cast<int>(::GetLastError()), std::system_category()};
}

// A copy of the old file under the first name that is free.
std::error_code KeepOld(const std::wstring &path, std::wstring &kept)
{
    for (int number = 1; number <= kMostKept; ++number) {
        const std::wstring name = path + L".bak" + (number == 1 ? L"" : std::to_wstring(number));
        if (::CopyFileW(path.c_str(), name.c_str(), TRUE) != 0) {
            kept = name;
            return {};
        }
        if (::GetLastError() != ERROR_FILE_EXISTS) {
            return LastError();
        }
    }
    return std::make_error_code(std::errc::file_exists);
}

// Under a name that nothing has, and on the disk when it returns.
std::error_code WriteBeside(const std::wstring &path, const std::string &bytes, std::wstring &name)
{
    Handle file(INVALID_HANDLE_VALUE);
    for (int number = 1; number <= kMostKept && !file; ++number) {
        name = path + L"." + std::to_wstring(number) + L".new";
        file = Handle(::CreateFileW(name.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file && ::GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    if (!file) {
        const std::error_code error = LastError();
        name.clear();
        return error;
    }
    DWORD written = 0;
    const auto length = static_cast<DWORD>(bytes.size());
    if (::WriteFile(file.get(), bytes.data(), length, &written, nullptr) == 0 || ::FlushFileBuffers(file.get()) == 0) {
        return LastError();
    }
    return written == length ? std::error_code{} : std::make_error_code(std::errc::no_space_on_device);
}

// Where a link leads to; any other path as it is.
std::wstring TargetOf(const std::wstring &path)
{
    const DWORD about = ::GetFileAttributesW(path.c_str());
    if (about == INVALID_FILE_ATTRIBUTES || (about & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
        return path;
    }
    const Handle file(::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring target(file ? ::GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED) : 0, L'\0'); // with its zero
    if (!target.empty()) {
        target.resize(::GetFinalPathNameByHandleW(file.get(), target.data(), static_cast<DWORD>(target.size()), FILE_NAME_NORMALIZED));
    }
    return target.empty() ? path : target;
}

std::error_code Replace(const std::wstring &target, const std::string &bytes, std::wstring &kept)
{
    WIN32_FILE_ATTRIBUTE_DATA about{};
    const bool isThere = ::GetFileAttributesExW(target.c_str(), GetFileExInfoStandard, &about) != 0;
    if (isThere && (about.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return std::make_error_code(std::errc::not_supported);
    }
    if (isThere && (about.dwFileAttributes & FILE_ATTRIBUTE_READONLY) != 0) { // who has write-protected it wants it to stay
        return std::make_error_code(std::errc::permission_denied);
    }
    if (isThere && (std::uint64_t{about.nFileSizeHigh} << 32U | about.nFileSizeLow) > kLongestKept) {
        return std::make_error_code(std::errc::file_too_large);
    }
    if (isThere) {
        if (const std::error_code error = KeepOld(target, kept)) {
            return error;
        }
    }
    std::wstring beside;
    std::error_code error = WriteBeside(target, bytes, beside);
    if (!error && ::MoveFileExW(beside.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) == 0) {
        error = LastError();
    }
    if (error) {
        ::DeleteFileW(beside.c_str());
        ::DeleteFileW(kept.c_str());
    }
    return error;
}

} // namespace

std::error_code ReplaceKeeping(const std::string &path, const std::string &bytes, std::string &kept)
{
    kept.clear();
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        return std::make_error_code(std::errc::no_such_file_or_directory);
    }
    const std::wstring target = TargetOf(*name);
    std::wstring copy;
    if (const std::error_code error = Replace(target, bytes, copy)) {
        return error;
    }
    kept = Utf8Of(copy);
    return {};
}

} // namespace velluto::tool
