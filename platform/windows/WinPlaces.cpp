#include "platform/windows/WinPlaces.h"

#include "platform/windows/Handle.h"
#include "platform/windows/WinPaths.h"

#include <array>
#include <memory>
#include <shlobj.h>

namespace velluto {

std::string ProgramFolder()
{
    constexpr std::size_t kLongestPath = 32768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(::GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    const std::size_t end = path.rfind(L'\\');
    return end == std::wstring::npos ? std::string() : Utf8Of(path.substr(0, end));
}

std::string RoamingFolder()
{
    PWSTR found = nullptr;
    const HRESULT result = ::SHGetKnownFolderPath(FOLDERID_RoamingAppData, KF_FLAG_CREATE, nullptr, &found);
    const std::unique_ptr<wchar_t, decltype(&::CoTaskMemFree)> path(found, &::CoTaskMemFree);
    return SUCCEEDED(result) ? Utf8Of(path.get()) : std::string();
}

bool IsWritableFolder(const std::string &folder)
{
    const std::optional<std::wstring> name = SystemPath(folder + "\\velluto-" + std::to_string(::GetCurrentProcessId()) + ".tmp");
    return name && Handle(::CreateFileW(name->c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                        FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
}

} // namespace velluto
