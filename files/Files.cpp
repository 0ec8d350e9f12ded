#include "files/Files.h"

#include "files/ItemRows.h"

#include <algorithm>

namespace velluto {

namespace {

DocumentType Programs(Modulo1 &app)
{
    return {.kind = ViewKind::ProgramFile,
            .firstNewKind = ViewKind::NewProgram64,
            .lastNewKind = ViewKind::NewProgram128,
            .lastBank = kLastPcgUserSlot,
            .filterIndex = 1,
            .chainCode = ChooseOutcome::Program,
            .extension = "PCG",
            .rows = {0, kProgramPlacesLarge, 4}, // a file of 64 places, too, is copied from as if it had 128
            .remembersKnown = true,
            .flagBeforeShow = false,
            .freesSlot = true,
            .table = app.settings.PcgDocTable,
            .openCommand = app.frame.mnuPcgApri};
}

DocumentType Styles(Modulo1 &app)
{
    return {.kind = ViewKind::StyleFile,
            .firstNewKind = ViewKind::NewStyle,
            .lastNewKind = ViewKind::NewStyle,
            .lastBank = kLastDirectHdSlot,
            .filterIndex = 2,
            .chainCode = ChooseOutcome::Style,
            .extension = "STY",
            .rows = {kStyleRows, kStyleRows, 3},
            .remembersKnown = false,
            .flagBeforeShow = true,
            .freesSlot = false,
            .table = app.settings.StyDocTable,
            .openCommand = app.frame.mnuStyApri};
}

DocumentType Performances(Modulo1 &app)
{
    return {.kind = ViewKind::PerformanceFile,
            .firstNewKind = ViewKind::NewPerformance,
            .lastNewKind = ViewKind::NewPerformance,
            .lastBank = kLastPrfUserSlot,
            .filterIndex = 3,
            .chainCode = ChooseOutcome::Performance,
            .extension = "PRF",
            .rows = {kPerformancePlaces, kPerformancePlaces, 2},
            .remembersKnown = false,
            .flagBeforeShow = true,
            .freesSlot = true,
            .table = app.settings.PrfDocTable,
            .openCommand = app.frame.mnuPrfApri};
}

} // namespace

FilesState::FilesState(Modulo1 &core) : app(core), types{Programs(core), Styles(core), Performances(core)} {}

DocumentType *TypeOfKind(FilesState &files, int kind)
{
    auto *const found = std::ranges::find_if(files.types, [kind](const DocumentType &type) { return type.Has(kind); });
    return found == files.types.end() ? nullptr : &*found;
}

void NameFile(FilesState &files, std::string_view path)
{
    files.FilePath = std::string(RightTrimmed(path));
    files.FileFolder = FolderOf(path);
    files.FileName = FileNameOf(path);
}

} // namespace velluto
