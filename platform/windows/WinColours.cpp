#include "platform/windows/WinColours.h"

#include "platform/windows/Windows.h"

namespace velluto {

bool WantsHighContrast()
{
    HIGHCONTRASTW told{};
    told.cbSize = sizeof(told);
    return ::SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(told), &told, 0) != 0 && (told.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool WantsDarkPrograms()
{
    DWORD light = 1;
    DWORD size = sizeof(light);
    return ::RegGetValueW(HKEY_CURRENT_USER, L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize", L"AppsUseLightTheme",
                          RRF_RT_REG_DWORD, nullptr, &light, &size) == ERROR_SUCCESS &&
           light == 0;
}

} // namespace velluto
