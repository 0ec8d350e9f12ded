#include "files/NaturalSize.h"

#include "files/WindowRole.h"

namespace velluto {

namespace {

bool HasNaturalPlacement(int kind)
{
    return IsFactoryPrograms(kind) || IsFactoryStyles(kind) || kind == ViewKind::PerformanceOverview || IsStyleOverview(kind) ||
           kind == ViewKind::Keyboard || kind == ViewKind::Monitor || kind == ViewKind::Notebook || kind == ViewKind::Player;
}

} // namespace

std::optional<Size> NaturalSize(FilesState &files, int kind, int slot)
{
    if (const DocumentType *type = TypeOfKind(files, kind)) {
        if (slot < 0 || slot >= static_cast<int>(type->table.size())) {
            return std::nullopt;
        }
        const DocRecord &record = type->table[static_cast<std::size_t>(slot)];
        return Size{record.MinWidth, record.MinHeight};
    }
    if (!HasNaturalPlacement(kind)) {
        return std::nullopt;
    }
    const WindowPlacement &entry = files.app.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1));
    return Size{entry.MinWidth, entry.MinHeight};
}

void mnuIngrandisci_Click(FilesState &files)
{
    Form *window = files.app.children.Active();
    if (window == nullptr) {
        return;
    }
    int kind = window->Tag.Kind();
    int slot = window->Tag.Slot();
    if (kind == ViewKind::NewProgram128) {
        return; // left out on purpose: no window is of this kind once it is loaded
    }
    if (kind == ViewKind::PerformanceOverview) {
        kind = ViewKind::NewPerformance; // it takes the size of a new Performance file, on purpose
        slot = kNewPrfSlot;
    }
    if (const std::optional<Size> size = NaturalSize(files, kind, slot)) {
        window->place = Place{window->Left(), window->Top(), size->width, size->height};
    }
}

} // namespace velluto
