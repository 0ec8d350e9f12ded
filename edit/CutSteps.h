// The new image of a Cut. Both take the image in one piece and the 1-based row of the first item; files.CutCount says how
// many rows go. Both leave the finished image in the assembly.
#pragma once

#include "edit/Assembly.h"

namespace velluto {

// Programs and Performances.
void CutItems(Assembly &assembly, const ImagePieces &source, int first);
// Styles, each with its STS, one after the other. No rows leave the assembly without an image, and so the window gets
// whatever the last edit built.
void CutStyles(Assembly &assembly, const FileImage &source, int first);

} // namespace velluto
