#include "files/Documents.h"

#include "app/ViewKind.h"
#include "files/Opening.h"
#include "files/frmPcgUN.h"
#include "files/frmPrfUN.h"
#include "files/frmStyUN.h"

namespace velluto {

namespace {

std::span<DocRecord> PcgTable(Settings &settings)
{
    return settings.PcgDocTable;
}

std::span<DocRecord> StyTable(Settings &settings)
{
    return settings.StyDocTable;
}

std::span<DocRecord> PrfTable(Settings &settings)
{
    return settings.PrfDocTable;
}

constexpr std::array<DocumentType, 3> kDocumentTypes{{
    {.kind = ViewKind::ProgramFile,
     .filterIndex = 1,
     .chainCode = ChooseOutcome::Program,
     .extension = "PCG",
     .firstNewKind = ViewKind::NewProgram64,
     .lastNewKind = ViewKind::NewProgram128,
     .remembersKnown = true,
     .flagBeforeShow = false,
     .freesSlot = true,
     .table = PcgTable,
     .work = &FilesState::WorkPcgRecord,
     .current = &FilesState::CurrentPcgSlot,
     .openFlags = &FilesState::PcgOpenFlags,
     .openCommand = &frmMain::mnuPcgApri,
     .show = ShowPcgWindow},
    {.kind = ViewKind::StyleFile,
     .filterIndex = 2,
     .chainCode = ChooseOutcome::Style,
     .extension = "STY",
     .firstNewKind = ViewKind::NewStyle,
     .lastNewKind = ViewKind::NewStyle,
     .remembersKnown = false,
     .flagBeforeShow = true,
     .freesSlot = false,
     .table = StyTable,
     .work = &FilesState::WorkStyRecord,
     .current = &FilesState::CurrentStySlot,
     .openFlags = &FilesState::StyOpenFlags,
     .openCommand = &frmMain::mnuStyApri,
     .show = ShowStyWindow},
    {.kind = ViewKind::PerformanceFile,
     .filterIndex = 3,
     .chainCode = ChooseOutcome::Performance,
     .extension = "PRF",
     .firstNewKind = ViewKind::NewPerformance,
     .lastNewKind = ViewKind::NewPerformance,
     .remembersKnown = false,
     .flagBeforeShow = true,
     .freesSlot = true,
     .table = PrfTable,
     .work = &FilesState::WorkPrfRecord,
     .current = &FilesState::CurrentPrfSlot,
     .openFlags = &FilesState::PrfOpenFlags,
     .openCommand = &frmMain::mnuPrfApri,
     .show = ShowPrfWindow},
}};

} // namespace

const DocumentType &ProgramType()
{
    return kDocumentTypes[0];
}

const DocumentType &StyleType()
{
    return kDocumentTypes[1];
}

const DocumentType &PerformanceType()
{
    return kDocumentTypes[2];
}

std::span<const DocumentType> DocumentTypes()
{
    return kDocumentTypes;
}

void TakeSlot(FilesState &files, const DocumentType &type, int slot)
{
    files.*type.work = type.table(files.app.settings)[static_cast<std::size_t>(slot)];
}

void StoreSlot(FilesState &files, const DocumentType &type, int slot)
{
    type.table(files.app.settings)[static_cast<std::size_t>(slot)] = files.*type.work;
}

bool FindOpen(FilesState &files, const DocumentType &type, std::string_view path)
{
    for (int slot = kFirstFileSlot; slot <= kLastFileSlot; ++slot) {
        TakeSlot(files, type, slot);
        const DocRecord &record = files.*type.work;
        if (record.State == StoredState::Normal && record.Path.Trimmed() == path) {
            return true;
        }
    }
    return false;
}

int FindKnown(FilesState &files, const DocumentType &type, std::string_view path)
{
    for (int slot = kFirstFileSlot; slot <= kLastFileSlot; ++slot) {
        TakeSlot(files, type, slot);
        if ((files.*type.work).Path.Trimmed() == path) {
            return slot;
        }
    }
    return 0;
}

int FindFree(const FilesState &files, const DocumentType &type)
{
    for (int slot = kFirstFileSlot; slot <= kLastFileSlot; ++slot) {
        if (!(files.*type.openFlags)[static_cast<std::size_t>(slot)]) {
            return slot;
        }
    }
    return 0;
}

void NameFile(FilesState &files, std::string_view path)
{
    files.FilePath = std::string(RightTrimmed(path));
    files.FileFolder = FolderOf(path);
    files.FileName = FileNameOf(path);
}

} // namespace velluto
