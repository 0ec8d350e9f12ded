// What a user has asked of the colours of programs, in Windows' own settings. Used by the desktop's start.
#pragma once

#include <string_view>

namespace velluto {

// Colours that stand out, which a program must leave as they are.
[[nodiscard]] bool WantsHighContrast();
// Dark programs: a setting that Windows' own table of colours knows nothing of. False where Windows is too old to have it.
[[nodiscard]] bool WantsDarkPrograms();
// What that makes of the program's theme, "dark" or "light"; empty where the system's colours are to stay. Elsewhere those are not taken:
// they are the same whatever was chosen, and a row that is marked in an idle list is as good as white in them.
[[nodiscard]] constexpr std::string_view ThemeFor(bool highContrast, bool dark)
{
    return highContrast ? "" : (dark ? "dark" : "light");
}

} // namespace velluto
