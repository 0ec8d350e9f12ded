// What a user has asked of the colours of programs, in Windows' own settings. Used by the desktop's start.
#pragma once

namespace velluto {

// Colours that stand out, which a program must leave as they are.
[[nodiscard]] bool WantsHighContrast();
// Dark programs: a setting that Windows' own table of colours knows nothing of. False where Windows is too old to have it.
[[nodiscard]] bool WantsDarkPrograms();

} // namespace velluto
