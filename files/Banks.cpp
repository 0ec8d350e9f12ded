#include "files/Banks.h"

#include "app/ViewKind.h"
#include "files/DocumentWindows.h"
#include "files/ReadInstrumentFile.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUserAll.h"

namespace velluto {

namespace {

// Reads the file that the slot is tied to and shows the slot's window. entry is the command, which is off while the
// window is there.
void OpenBank(FilesState &files, DocumentType &type, int slot, MenuEntry &entry)
{
    type.current = slot;
    TakeSlot(type, slot);
    if (ReadInstrumentFile(files, type.work.Path.Trimmed()) != ReadStatus::Good) {
        return;
    }
    ShowDocument(files, type, slot);
    entry.enabled = false;
}

std::unique_ptr<ChildForm> &HomeOf(FilesState &files, int kind)
{
    return files.overviews.at(static_cast<std::size_t>(kind - ViewKind::PerformanceOverview));
}

} // namespace

void mnuPcgUser_Click(FilesState &files, int index)
{
    if (index >= kFirstPcgUserSlot && index <= kLastPcgUserSlot) {
        OpenBank(files, files.programs, index, files.app.frame.mnuPcgUser[index]); // ViewKind stays what it was
    }
}

void mnuStyUser_Click(FilesState &files, int index)
{
    if (index >= kFirstStyUserSlot && index <= kLastStyUserSlot) {
        files.app.ViewKind = ViewKind::StyleFile;
        OpenBank(files, files.styles, index, files.app.frame.mnuStyUser[index]);
    }
}

void mnuStyDirectHD_Click(FilesState &files, int index)
{
    const int slot = index + kFirstDirectHdSlot - 1;
    if (slot >= kFirstDirectHdSlot && slot <= kLastDirectHdSlot) {
        files.app.ViewKind = ViewKind::StyleFile;
        OpenBank(files, files.styles, slot, files.app.frame.mnuStyDirectHD[index]);
    }
}

void mnuPrfUser_Click(FilesState &files, int index)
{
    const int slot = index + kFirstPrfUserSlot - 1;
    if (slot >= kFirstPrfUserSlot && slot <= kLastPrfUserSlot) {
        files.app.ViewKind = ViewKind::PerformanceFile;
        OpenBank(files, files.performances, slot, files.app.frame.mnuPrfUser[index]);
    }
}

void ShowStyleOverview(FilesState &files, int kind)
{
    StyleOverviewEntry(files.app.frame, kind).enabled = false;
    files.app.ViewKind = kind;
    ShowChild<frmStyUserAll>(HomeOf(files, kind), files, kind);
}

void mnuPrfUserAll_Click(FilesState &files)
{
    files.app.frame.mnuPrfUserAll.enabled = false;
    ShowChild<frmPrfUserAll>(HomeOf(files, ViewKind::PerformanceOverview), files);
}

} // namespace velluto
