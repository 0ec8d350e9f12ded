// The image of a Paste into a Style window.
#pragma once

#include "edit/PasteJob.h"

namespace velluto {

// What a Paste changes of the window beside its image: a file that had no items now has Styles, or Styles with STS.
enum class PasteOutcome { Filled, Began, BeganWithSts };

// target is the window's image.
PasteOutcome PasteStyles(Assembly &assembly, PasteJob &job, const FileImage &target);

} // namespace velluto
