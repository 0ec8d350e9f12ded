// Icons drawn in code: crisp at every size, and no image file to load.
#pragma once

#include <QIcon>

namespace velluto {

// The program's own, as velluto.svg draws it.
[[nodiscard]] QIcon ProgramIcon();
// The same with a dot: the window's file has been changed.
[[nodiscard]] QIcon ChangedIcon();
// For message boxes.
[[nodiscard]] QIcon WarningIcon();
// On the button for the menus that a narrow frame has no room for; in the colour of the words beside it.
[[nodiscard]] QIcon MoreIcon();

} // namespace velluto
