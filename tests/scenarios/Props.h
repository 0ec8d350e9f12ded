// What a scenario puts on the disk and looks up there: the lines that begin with "!".
#pragma once

#include "driver/Words.h"

namespace velluto::scenarios {

// Carries out one such line, in the current folder. Throws driver::BadCommand where it cannot or what it looks for is
// not so.
//   pcg NAME SLOT:ITEM...     a Program file with these items, in this order ("_" in an item stands for a blank)
//   pcg NAME full PLACES      a Program file with an item in every place
//   sty ..., prf ...          the same for files of Styles and Performances; their bodies are 40, 41, 42 ... bytes long
//   file NAME HEX...          a file of these bytes; without any an empty one
//   patch NAME OFFSET HEX...  writes these bytes over those at the 0-based offset
//   folder NAME, copy FROM TO, remove NAME
//   bytes NAME OFFSET HEX...  the file has these bytes there
//   length NAME BYTES, same NAME NAME, missing NAME
void UseProps(const driver::Words &words);

} // namespace velluto::scenarios
