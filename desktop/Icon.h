// The program's icon, drawn here as velluto.svg draws it: crisp at every size, and no image file to load.
#pragma once

#include <QIcon>

namespace velluto {

[[nodiscard]] QIcon ProgramIcon();

} // namespace velluto
