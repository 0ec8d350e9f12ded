#include "platform/windows/WinFiles.h"

#include "platform/kept/Disk.h"
#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace velluto {

namespace {

// Others may read, write and take away what the program has open, as it may what they have.
constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kMostAtOnce = std::size_t{1} << 30U; // one call takes no more than 32 bits of length

DWORD AtOnce(std::size_t bytes)
{
    return static_cast<DWORD>(std::min(bytes, kMostAtOnce));
}

// What the headers of the compiler have no names for yet.
constexpr auto kFileDispositionInfoEx = static_cast<FILE_INFO_BY_HANDLE_CLASS>(21);
constexpr DWORD kQuotaExceeded = 1295;
constexpr DWORD kNoSuchDevice = 433;

// Where in the file a call begins.
OVERLAPPED Place(std::uint64_t offset)
{
    OVERLAPPED place{};
    place.Offset = static_cast<DWORD>(offset);
    place.OffsetHigh = static_cast<DWORD>(offset >> std::numeric_limits<DWORD>::digits);
    return place;
}

// kept, where there is such, gives room where the disk is full.
bool GetsRoom(DWORD code, KeptFiles *kept)
{
    return (code == ERROR_DISK_FULL || code == ERROR_HANDLE_DISK_FULL || code == kQuotaExceeded) && kept != nullptr && kept->MakeRoom();
}

class WinFile : public RandomAccessFile {
public:
    WinFile(Handle handle, KeptFiles *kept) : handle_(std::move(handle)), kept_(kept) {}

    RuntimeError Length(std::uint64_t &length) override
    {
        LARGE_INTEGER size{};
        if (::GetFileSizeEx(handle_.get(), &size) == 0) {
            return FromSystem(::GetLastError());
        }
        length = static_cast<std::uint64_t>(size.QuadPart);
        return {};
    }

    RuntimeError Read(std::uint64_t offset, std::span<std::uint8_t> buffer, std::size_t &got) override
    {
        got = 0;
        while (got < buffer.size()) {
            OVERLAPPED place = Place(offset + got);
            DWORD n = 0;
            if (::ReadFile(handle_.get(), buffer.data() + got, AtOnce(buffer.size() - got), &n, &place) == 0) {
                const DWORD code = ::GetLastError();
                return code == ERROR_HANDLE_EOF ? RuntimeError{} : FromSystem(code);
            }
            if (n == 0) {
                break;
            }
            got += n;
        }
        return {};
    }

    RuntimeError Write(std::uint64_t offset, std::span<const std::uint8_t> bytes) override
    {
        std::size_t done = 0;
        while (done < bytes.size()) {
            OVERLAPPED place = Place(offset + done);
            DWORD n = 0;
            if (::WriteFile(handle_.get(), bytes.data() + done, AtOnce(bytes.size() - done), &n, &place) == 0) {
                const DWORD code = ::GetLastError();
                if (GetsRoom(code, kept_)) {
                    continue;
                }
                return FromSystem(code);
            }
            if (n == 0) {
                return {FileError::kDiskFull};
            }
            done += n;
        }
        return {};
    }

private:
    Handle handle_;
    KeptFiles *kept_;
};

// Where nothing is to be made, what is not there is the file.
RuntimeError FromSystemWithoutMaking(DWORD code)
{
    return code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND ? RuntimeError{FileError::kFileNotFound} : FromSystem(code);
}

// How a file is opened: access says for what, making (OPEN_...) what becomes of a missing one.
RuntimeError OpenWith(DWORD access, DWORD making, const std::string &path, KeptFiles *kept, std::unique_ptr<RandomAccessFile> &file)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        return {FileError::kPathNotFound};
    }
    const auto open = [&] {
        return Handle(::CreateFileW(name->c_str(), access, kShared, nullptr, making, FILE_ATTRIBUTE_NORMAL, nullptr));
    };
    Handle handle = open();
    if (!handle && GetsRoom(::GetLastError(), kept)) {
        handle = open();
    }
    if (!handle) {
        const DWORD code = ::GetLastError();
        return making == OPEN_EXISTING ? FromSystemWithoutMaking(code) : FromSystem(code);
    }
    if (::GetFileType(handle.get()) != FILE_TYPE_DISK) { // NUL, a printer, a pipe
        return {FileError::kPathFileAccess};
    }
    file = std::make_unique<WinFile>(std::move(handle), kept);
    return {};
}

// Takes the name away at once, also where somebody still has the file open: a save makes a new file of the name right after. Older
// systems take it away when the last one closes.
bool TakeAway(HANDLE file)
{
    FILE_DISPOSITION_INFO_EX atOnce{FILE_DISPOSITION_FLAG_DELETE | FILE_DISPOSITION_FLAG_POSIX_SEMANTICS};
    if (::SetFileInformationByHandle(file, kFileDispositionInfoEx, &atOnce, sizeof(atOnce)) != 0) {
        return true;
    }
    FILE_DISPOSITION_INFO atClose{TRUE};
    return ::SetFileInformationByHandle(file, FileDispositionInfo, &atClose, sizeof(atClose)) != 0;
}

} // namespace

RuntimeError FromSystem(unsigned long code)
{
    switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_BUFFER_OVERFLOW:
    case ERROR_DIRECTORY: // a file in place of a folder
        return {FileError::kPathNotFound};
    case ERROR_ACCESS_DENIED: // a folder, the read-only attribute, no right
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_DRIVE_LOCKED:
    case ERROR_DELETE_PENDING:
        return {FileError::kPathFileAccess};
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case kQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
        return {FileError::kDiskFull};
    case ERROR_NOT_READY:
    case ERROR_BAD_UNIT:
    case ERROR_WRONG_DISK:
    case ERROR_NOT_DOS_DISK:
    case ERROR_UNRECOGNIZED_VOLUME:
    case ERROR_UNRECOGNIZED_MEDIA:
    case ERROR_MEDIA_CHANGED:
    case ERROR_NO_MEDIA_IN_DRIVE:
    case ERROR_DEV_NOT_EXIST:
    case ERROR_DEVICE_NOT_CONNECTED:
    case kNoSuchDevice:
        return {FileError::kDiskNotReady};
    case ERROR_CRC:
    case ERROR_SEEK:
    case ERROR_SECTOR_NOT_FOUND:
    case ERROR_WRITE_FAULT:
    case ERROR_READ_FAULT:
    case ERROR_GEN_FAILURE:
    case ERROR_IO_DEVICE:
    case ERROR_NET_WRITE_FAULT:
    case ERROR_DISK_CORRUPT:
    case ERROR_FILE_CORRUPT:
        return {FileError::kDeviceInputOutput};
    default:
        return {FileError::kOther};
    }
}

WinFiles::WinFiles()
{
    // A drive without its disk is to fail with its error; Windows would ask for the disk in a box of its own.
    ::SetErrorMode(::GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

void WinFiles::KeepWhole(const std::string &programFolder)
{
    kept_ = std::make_unique<KeptFiles>(programFolder);
}

RuntimeError WinFiles::Open(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenWith(GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS, path, kept_.get(), file);
}

RuntimeError WinFiles::OpenToRead(const std::string &path, std::unique_ptr<RandomAccessFile> &file)
{
    return OpenWith(GENERIC_READ, OPEN_EXISTING, path, nullptr, file);
}

RuntimeError WinFiles::Delete(const std::string &path)
{
    const std::optional<std::wstring> name = SystemPath(path);
    if (!name) {
        return {FileError::kPathNotFound};
    }
    // Open follows a link, and so does this: it is the file that goes, and a save through a link reaches its target.
    const std::optional<disk::Place> place = kept_ ? disk::PlaceOf(path) : std::nullopt;
    if (place && kept_->PutAside(place->path)) {
        return {};
    }
    const Handle file(::CreateFileW(name->c_str(), DELETE, kShared, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file) {
        return FromSystemWithoutMaking(::GetLastError());
    }
    return TakeAway(file.get()) ? RuntimeError{} : FromSystem(::GetLastError());
}

std::unique_ptr<WritingUnderWay> WinFiles::BeginReplacing(const std::string &path, const ByteRuns &bytes)
{
    return kept_ ? kept_->BeginReplacing(path, bytes) : nullptr;
}

std::unique_ptr<WritingUnderWay> WinFiles::BeginChanging(const std::string &path)
{
    return kept_ ? kept_->BeginChanging(path) : nullptr;
}

std::string WinFiles::CurrentFolder()
{
    std::wstring folder(::GetCurrentDirectoryW(0, nullptr), L'\0'); // with its zero
    folder.resize(::GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return Utf8Of(folder);
}

} // namespace velluto
