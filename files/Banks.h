// The commands of the View menu that show the banks of the instrument: a bank's own window, read from the file that it
// is tied to, and the overviews of several banks side by side.
#pragma once

#include "files/Files.h"

namespace velluto {

// A file that has gone is told to nobody: the command then has no effect.
void mnuPcgUser_Click(FilesState &files, int index);     // 9 or 10
void mnuStyUser_Click(FilesState &files, int index);     // 9 to 11
void mnuStyDirectHD_Click(FilesState &files, int index); // 1 to 9
void mnuPrfUser_Click(FilesState &files, int index);     // 1 to 20

void ShowStyleOverview(FilesState &files, int kind); // 25 to 28: the commands mnuStyUserAll, mnuStyDirectHD123 and so on
void mnuPrfUserAll_Click(FilesState &files);

} // namespace velluto
