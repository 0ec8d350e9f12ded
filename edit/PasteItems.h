// The image of a Paste into a Program or Performance window.
#pragma once

#include "edit/PasteJob.h"

namespace velluto {

// target is the window's image; a new window has none.
void PasteItems(Assembly &assembly, PasteJob &job, const FileImage &target);

} // namespace velluto
