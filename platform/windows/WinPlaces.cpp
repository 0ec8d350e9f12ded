#include "platform/windows/WinPlaces.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"

#include <memory>
#include <shlobj.h>

namespace velluto {

namespace {

constexpr const char *kShipped = "\\data";
constexpr const char *kUnpackedMark = "\\portable.txt";
constexpr const char *kUnpackedFiles = "\\files";
constexpr const char *kInstalledFiles = "\\Velluto";

bool Exists(const std::string &path)
{
    const std::optional<std::wstring> name = SystemPath(path);
    return name && ::GetFileAttributesW(name->c_str()) != INVALID_FILE_ATTRIBUTES;
}

// Tried out, since the rights that Windows tells of are not all that count. Makes the folder.
bool CanHaveFiles(const std::string &folder)
{
    const std::optional<std::wstring> name = SystemPath(folder);
    const std::optional<std::wstring> trial = SystemPath(folder + "\\velluto-" + std::to_string(::GetCurrentProcessId()) + ".tmp");
    if (!name || !trial) {
        return false;
    }
    ::CreateDirectoryW(name->c_str(), nullptr);
    return static_cast<bool>(Handle(::CreateFileW(trial->c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr)));
}

std::string RoamingFolder()
{
    PWSTR found = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &found);
    const std::unique_ptr<wchar_t, decltype(&::CoTaskMemFree)> path(found, &::CoTaskMemFree);
    return SUCCEEDED(result) ? Utf8Of(path.get()) : std::string();
}

} // namespace

std::string ProgramFolder()
{
    constexpr std::size_t kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::size_t end = path.rfind(L'\\');
    return end == std::wstring::npos ? std::string() : Utf8Of(path.substr(0, end));
}

std::string UserFolder()
{
    const std::string program = ProgramFolder();
    if (program.empty() || !Exists(program + kShipped)) {
        return {};
    }
    if (Exists(program + kUnpackedMark) && CanHaveFiles(program + kUnpackedFiles)) {
        return program + kUnpackedFiles;
    }
    const std::string roaming = RoamingFolder();
    return roaming.empty() ? std::string() : roaming + kInstalledFiles;
}

} // namespace velluto
