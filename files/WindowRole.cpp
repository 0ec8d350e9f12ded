#include "files/WindowRole.h"

#include "files/ItemRows.h"
#include "files/OverviewForm.h"
#include "view/NumberedLists.h"

namespace velluto {

namespace {

std::optional<RolePlace> InPrfOverview(FilesState &files, const Form &window, int shorterRows)
{
    const int list = NumberedLists<kPrfOverviewLists>(window, "List1").FirstSelected(kPerformancePlaces, shorterRows);
    // The entry with the list's own number, eight below the bank's slot: the overview keeps roles of its own.
    return list == 0 ? std::nullopt : std::optional(RolePlace{&files.performances, list});
}

std::optional<RolePlace> InStyOverview(FilesState &files, const Form &window, int kind)
{
    const int list = NumberedLists<kStyOverviewLists>(window, "List1").FirstSelected(kStyleRows);
    const int firstSlot = kFirstBankSlot + kStyOverviewLists * (kind - ViewKind::StyleOverview);
    return list == 0 ? std::nullopt : std::optional(RolePlace{&files.styles, firstSlot + list - 1});
}

// Calls `use` with the place's entry and the working record of its type.
template <class Use>
void WithEntry(FilesState &files, RolePlace place, Use use)
{
    const auto entry = static_cast<std::size_t>(place.entry);
    if (place.type != nullptr) {
        use(place.type->table[entry], place.type->work);
    } else {
        use(files.app.settings.PlacementTable.at(entry), files.WorkPlacement);
    }
}

} // namespace

std::optional<RolePlace> RolePlaceOf(FilesState &files, const Form &window, int shorterRows)
{
    const int kind = window.Tag.Kind();
    const int slot = window.Tag.Slot();
    if (IsFactoryPrograms(kind) || IsFactoryStyles(kind)) {
        return RolePlace{nullptr, kind - 1};
    }
    if (IsStyleOverview(kind)) {
        return InStyOverview(files, window, kind);
    }
    if (kind == ViewKind::PerformanceOverview) {
        return InPrfOverview(files, window, shorterRows);
    }
    DocumentType *type = TypeOfKind(files, kind);
    if (type != nullptr && type->kind == kind && IsBankSlot(slot, type->lastBank)) {
        return RolePlace{type, slot};
    }
    return std::nullopt;
}

int ReadRole(FilesState &files, RolePlace place)
{
    int role = 0;
    WithEntry(files, place, [&role](auto &entry, auto &work) {
        work = entry;
        role = work.Role;
    });
    return role;
}

void StoreRole(FilesState &files, RolePlace place, int role)
{
    WithEntry(files, place, [role](auto &entry, auto &work) {
        work = entry;
        work.Role = static_cast<std::uint8_t>(role);
        entry = work;
    });
}

} // namespace velluto
