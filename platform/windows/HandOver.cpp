#include "platform/HandOver.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"

#include <aclapi.h>
#include <array>
#include <cstring>
#include <sddl.h>
#include <utility>

namespace velluto {

namespace {

// On the pipe: the length of what follows, as it lies in memory; the activation, then each path, each with a zero byte behind it. The
// taker answers one byte, and the sender closes.
using Length = std::uint32_t;
constexpr DWORD kSenderWaits = 10'000; // ms
constexpr DWORD kTakerWaits = 500;     // ms
constexpr DWORD kBuffer = 4096;

struct FreeLocal {
    void operator()(void *memory) const { ::LocalFree(memory); }
};
template <class T>
using Local = std::unique_ptr<T, FreeLocal>;

// The user of this process, as a text (S-1-5-...); nothing where the system does not say.
std::wstring OurUser()
{
    HANDLE found = INVALID_HANDLE_VALUE;
    if (::OpenProcessToken(::GetCurrentProcess(), TOKEN_QUERY, &found) == 0) {
        return {};
    }
    const Handle token(found);
    alignas(TOKEN_USER) std::array<char, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> about{};
    DWORD length = 0;
    LPWSTR text = nullptr;
    if (::GetTokenInformation(token.get(), TokenUser, about.data(), static_cast<DWORD>(about.size()), &length) == 0 ||
        ::ConvertSidToStringSidW(reinterpret_cast<const TOKEN_USER *>(about.data())->User.Sid, &text) == 0) {
        return {};
    }
    const Local<wchar_t> kept(text);
    return text;
}

// Whoever has made the other end is this user.
bool IsOurs(HANDLE pipe)
{
    PSID owner = nullptr;
    PSECURITY_DESCRIPTOR about = nullptr;
    if (::GetSecurityInfo(pipe, SE_KERNEL_OBJECT, OWNER_SECURITY_INFORMATION, &owner, nullptr, nullptr, nullptr, &about) != ERROR_SUCCESS) {
        return false;
    }
    const Local<void> kept(about);
    LPWSTR text = nullptr;
    if (owner == nullptr || ::ConvertSidToStringSidW(owner, &text) == 0) {
        return false;
    }
    const Local<wchar_t> name(text);
    return OurUser() == name.get();
}

// A moment until which to wait.
class Patience {
public:
    explicit Patience(DWORD milliseconds) : end_(::GetTickCount64() + milliseconds) {}
    [[nodiscard]] DWORD Left() const
    {
        const ULONGLONG now = ::GetTickCount64();
        return now < end_ ? static_cast<DWORD>(end_ - now) : 0;
    }

private:
    ULONGLONG end_;
};

// An event that stays raised until the next call with it begins.
Handle NewEvent()
{
    const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return Handle(event != nullptr ? event : INVALID_HANDLE_VALUE);
}

// Reads or writes as many bytes as there are, and gives up when the time is over.
template <class Call>
bool Transfer(Call call, HANDLE pipe, char *bytes, std::size_t size, const Patience &patience)
{
    const Handle event = NewEvent();
    while (size > 0) {
        OVERLAPPED how{};
        how.hEvent = event.get();
        DWORD done = 0;
        if (!call(pipe, bytes, static_cast<DWORD>(size), nullptr, &how) && ::GetLastError() != ERROR_IO_PENDING) {
            return false;
        }
        const bool inTime = ::WaitForSingleObject(event.get(), patience.Left()) == WAIT_OBJECT_0;
        if (!inTime) {
            ::CancelIo(pipe);
        }
        // Also after it was called off: until this returns the system may still write there.
        if (::GetOverlappedResult(pipe, &how, &done, TRUE) == 0 || done == 0) {
            return false;
        }
        bytes += done;
        size -= done;
    }
    return true;
}

bool ReadBytes(HANDLE pipe, char *bytes, std::size_t size, const Patience &patience)
{
    return Transfer([](auto... all) { return ::ReadFile(all...) != 0; }, pipe, bytes, size, patience);
}

bool WriteBytes(HANDLE pipe, std::string bytes, const Patience &patience)
{
    return Transfer([](auto... all) { return ::WriteFile(all...) != 0; }, pipe, bytes.data(), bytes.size(), patience);
}

// The other end of the line, when it is free.
Handle Connect(const std::wstring &name, const Patience &patience)
{
    for (;;) {
        Handle pipe(::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING,
                                  FILE_FLAG_OVERLAPPED | SECURITY_SQOS_PRESENT | SECURITY_IDENTIFICATION, nullptr));
        if (pipe || ::GetLastError() != ERROR_PIPE_BUSY || ::WaitNamedPipeW(name.c_str(), patience.Left()) == 0) {
            return pipe;
        }
    }
}

} // namespace

std::string HandOverAddress()
{
    std::wstring here(::GetCurrentDirectoryW(0, nullptr), L'\0'); // with its zero
    here.resize(::GetCurrentDirectoryW(static_cast<DWORD>(here.size()), here.data()));
    const Handle folder(::CreateFileW(here.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                      FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    BY_HANDLE_FILE_INFORMATION about{};
    const std::wstring user = OurUser();
    if (user.empty() || !folder || ::GetFileInformationByHandle(folder.get(), &about) == 0) {
        return {};
    }
    std::string address = R"(\\.\pipe\velluto-)" + Utf8Of(user);
    for (const DWORD number : {about.dwVolumeSerialNumber, about.nFileIndexHigh, about.nFileIndexLow}) {
        address += "-" + std::to_string(number);
    }
    return address;
}

bool HandOver(const std::string &address, const HandedFiles &files)
{
    const std::optional<std::wstring> name = address.empty() ? std::nullopt : WideOf(address);
    if (!name) {
        return false;
    }
    const Patience patience(kSenderWaits);
    const Handle pipe = Connect(*name, patience);
    if (!pipe || !IsOurs(pipe.get())) {
        return false;
    }
    ULONG taker = 0;
    if (::GetNamedPipeServerProcessId(pipe.get(), &taker) != 0) {
        ::AllowSetForegroundWindow(taker);
    }
    const std::string bytes = BytesOf(files);
    const auto length = static_cast<Length>(bytes.size());
    std::string front(sizeof(length), '\0');
    std::memcpy(front.data(), &length, sizeof(length));
    char answer = 0;
    return WriteBytes(pipe.get(), front + bytes, patience) && ReadBytes(pipe.get(), &answer, 1, patience) && answer == kHandedTaken;
}

struct HandOverInbox::Line {
    Handle pipe{INVALID_HANDLE_VALUE};
    Handle event = NewEvent();
    OVERLAPPED waiting{}; // the system writes there while it waits for somebody

    // The event is raised when somebody is there.
    void Wait()
    {
        waiting = {};
        waiting.hEvent = event.get();
        ::ResetEvent(event.get());
        if (::ConnectNamedPipe(pipe.get(), &waiting) == 0 && ::GetLastError() == ERROR_PIPE_CONNECTED) {
            ::SetEvent(event.get());
        }
    }
    [[nodiscard]] std::optional<HandedFiles> Take() const
    {
        const Patience patience(kTakerWaits);
        Length length = 0;
        std::string bytes(sizeof(length), '\0');
        if (!ReadBytes(pipe.get(), bytes.data(), bytes.size(), patience)) {
            return std::nullopt;
        }
        std::memcpy(&length, bytes.data(), sizeof(length));
        if (length > kMostHanded) {
            return std::nullopt;
        }
        bytes.resize(length);
        if (!ReadBytes(pipe.get(), bytes.data(), bytes.size(), patience)) {
            return std::nullopt;
        }
        std::optional<HandedFiles> files = HandedIn(bytes);
        if (files && WriteBytes(pipe.get(), std::string(1, kHandedTaken), patience)) {
            char none = 0;
            ReadBytes(pipe.get(), &none, 1, patience); // until the sender has gone: what it has not read yet would be lost
        }
        return files;
    }
};

HandOverInbox::HandOverInbox(const std::string &address) : line_(std::make_unique<Line>())
{
    const std::optional<std::wstring> name = address.empty() ? std::nullopt : WideOf(address);
    const std::wstring user = OurUser();
    PSECURITY_DESCRIPTOR found = nullptr;
    // This user's, who alone may do anything with it.
    if (!name || !line_->event ||
        ::ConvertStringSecurityDescriptorToSecurityDescriptorW((L"O:" + user + L"D:P(A;;GA;;;" + user + L")").c_str(), SDDL_REVISION_1,
                                                               &found, nullptr) == 0) {
        return;
    }
    const Local<void> rights(found);
    SECURITY_ATTRIBUTES attributes{sizeof(SECURITY_ATTRIBUTES), found, FALSE};
    line_->pipe = Handle(::CreateNamedPipeW(name->c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED | FILE_FLAG_FIRST_PIPE_INSTANCE,
                                            PIPE_TYPE_BYTE | PIPE_WAIT | PIPE_REJECT_REMOTE_CLIENTS, 1, kBuffer, kBuffer, 0, &attributes));
    if (line_->pipe) {
        line_->Wait();
    }
}

HandOverInbox::~HandOverInbox()
{
    if (line_->pipe) {
        DWORD none = 0;
        ::CancelIo(line_->pipe.get());
        ::GetOverlappedResult(line_->pipe.get(), &line_->waiting, &none, TRUE);
    }
}

std::intptr_t HandOverInbox::Descriptor() const
{
    return line_->pipe ? reinterpret_cast<std::intptr_t>(line_->event.get()) : -1;
}

std::optional<HandedFiles> HandOverInbox::Take()
{
    std::optional<HandedFiles> files = line_->Take();
    ::DisconnectNamedPipe(line_->pipe.get());
    line_->Wait();
    return files;
}

} // namespace velluto
