#include "files/DocumentWindows.h"

#include "files/frmPcgUN.h"
#include "files/frmPrfUN.h"
#include "files/frmStyUN.h"

namespace velluto {

void ShowDocument(FilesState &files, DocumentType &type, int slot)
{
    std::unique_ptr<ChildForm> &home = type.windows.at(static_cast<std::size_t>(slot));
    if (&type == &files.programs) {
        ShowChild<frmPcgUN>(home, files, slot);
    } else if (&type == &files.styles) {
        ShowChild<frmStyUN>(home, files, slot);
    } else {
        ShowChild<frmPrfUN>(home, files, slot);
    }
}

} // namespace velluto
