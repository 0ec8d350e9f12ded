#include "files/Banks.h"

#include "app/ViewKind.h"
#include "files/Documents.h"
#include "files/Opening.h"
#include "files/frmPrfUserAll.h"
#include "files/frmStyUserAll.h"

namespace velluto {

namespace {

// Reads the file that the slot is tied to and shows the slot's window. entry is the command, which is off while the
// window is there.
void OpenBank(FilesState &files, const DocumentType &type, int slot, MenuEntry &entry)
{
    files.*type.current = slot;
    TakeSlot(files, type, slot);
    if (ReadInstrumentFile(files, (files.*type.work).Path.Trimmed()) != ReadStatus::Good) {
        return;
    }
    type.show(files, slot);
    entry.enabled = false;
}

void ShowStyleOverview(FilesState &files, MenuEntry &entry, int kind)
{
    entry.enabled = false;
    files.app.ViewKind = kind;
    ShowStyUserAllWindow(files, kind);
}

} // namespace

void mnuPcgUser_Click(FilesState &files, int index)
{
    if (index >= kFirstPcgUserSlot && index <= kLastPcgUserSlot) {
        OpenBank(files, ProgramType(), index, files.app.frame.mnuPcgUser[index]); // ViewKind stays what it was
    }
}

void mnuStyUser_Click(FilesState &files, int index)
{
    if (index >= kFirstStyUserSlot && index <= kLastStyUserSlot) {
        files.app.ViewKind = ViewKind::StyleFile;
        OpenBank(files, StyleType(), index, files.app.frame.mnuStyUser[index]);
    }
}

void mnuStyDirectHD_Click(FilesState &files, int index)
{
    const int slot = index + kFirstDirectHdSlot - 1;
    if (slot >= kFirstDirectHdSlot && slot <= kLastDirectHdSlot) {
        files.app.ViewKind = ViewKind::StyleFile;
        OpenBank(files, StyleType(), slot, files.app.frame.mnuStyDirectHD[index]);
    }
}

void mnuPrfUser_Click(FilesState &files, int index)
{
    const int slot = index + kFirstPrfUserSlot - 1;
    if (slot >= kFirstPrfUserSlot && slot <= kLastPrfUserSlot) {
        files.app.ViewKind = ViewKind::PerformanceFile;
        OpenBank(files, PerformanceType(), slot, files.app.frame.mnuPrfUser[index]);
    }
}

void mnuStyUserAll_Click(FilesState &files)
{
    ShowStyleOverview(files, files.app.frame.mnuStyUserAll, ViewKind::StyleOverview);
}

void mnuStyDirectHD123_Click(FilesState &files)
{
    ShowStyleOverview(files, files.app.frame.mnuStyDirectHD123, ViewKind::StyleOverview + 1);
}

void mnuStyDirectHD456_Click(FilesState &files)
{
    ShowStyleOverview(files, files.app.frame.mnuStyDirectHD456, ViewKind::StyleOverview + 2);
}

void mnuStyDirectHD789_Click(FilesState &files)
{
    ShowStyleOverview(files, files.app.frame.mnuStyDirectHD789, ViewKind::StyleOverviewLast);
}

void mnuPrfUserAll_Click(FilesState &files)
{
    files.app.frame.mnuPrfUserAll.enabled = false;
    ShowPrfUserAllWindow(files);
}

} // namespace velluto
