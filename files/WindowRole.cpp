#include "files/WindowRole.h"

#include "files/OverviewForm.h"
#include "files/PerformanceRows.h"
#include "files/Slots.h"
#include "view/NumberedLists.h"

namespace velluto {

namespace {

RolePlace InPrfOverview(const Form &window, int shorterRows)
{
    const int list = NumberedLists<kPrfOverviewLists>(window, "List1").FirstSelected(kPerformancePlaces, shorterRows);
    // The entry with the list's own number, eight below the bank's slot: the overview keeps roles of its own.
    return list == 0 ? RolePlace{} : RolePlace{RolePlace::Table::Prf, list};
}

RolePlace InStyOverview(const Form &window, int kind)
{
    const int list = NumberedLists<kStyOverviewLists>(window, "List1").FirstSelected(kStyleRows);
    const int firstSlot = kFirstBankSlot + kStyOverviewLists * (kind - ViewKind::StyleOverview);
    return list == 0 ? RolePlace{} : RolePlace{RolePlace::Table::Sty, firstSlot + list - 1};
}

// Calls `use` with the place's entry and the working record of its type.
template <class Use>
void WithEntry(FilesState &files, RolePlace place, Use use)
{
    Settings &settings = files.app.settings;
    const auto entry = static_cast<std::size_t>(place.entry);
    switch (place.table) {
    case RolePlace::Table::Placement:
        use(settings.PlacementTable.at(entry), files.WorkPlacement);
        break;
    case RolePlace::Table::Pcg:
        use(settings.PcgDocTable.at(entry), files.WorkPcgRecord);
        break;
    case RolePlace::Table::Sty:
        use(settings.StyDocTable.at(entry), files.WorkStyRecord);
        break;
    case RolePlace::Table::Prf:
        use(settings.PrfDocTable.at(entry), files.WorkPrfRecord);
        break;
    case RolePlace::Table::None:
        break;
    }
}

} // namespace

bool IsFactoryPrograms(int kind)
{
    return kind >= ViewKind::BankA && kind <= ViewKind::BankF;
}

bool IsFactoryStyles(int kind)
{
    return kind == ViewKind::FactoryStyles1 || kind == ViewKind::FactoryStyles2;
}

bool IsStyleOverview(int kind)
{
    return kind >= ViewKind::StyleOverview && kind <= ViewKind::StyleOverviewLast;
}

RolePlace RolePlaceOf(const Form &window, int shorterRows)
{
    const int kind = window.Tag.Kind();
    const int slot = window.Tag.Slot();
    if (IsFactoryPrograms(kind) || IsFactoryStyles(kind)) {
        return {RolePlace::Table::Placement, kind - 1};
    }
    if (IsStyleOverview(kind)) {
        return InStyOverview(window, kind);
    }
    if (kind == ViewKind::PerformanceOverview) {
        return InPrfOverview(window, shorterRows);
    }
    if (kind == ViewKind::ProgramFile && IsBankSlot(slot, kLastPcgUserSlot)) {
        return {RolePlace::Table::Pcg, slot};
    }
    if (kind == ViewKind::StyleFile && IsBankSlot(slot, kLastDirectHdSlot)) {
        return {RolePlace::Table::Sty, slot};
    }
    if (kind == ViewKind::PerformanceFile && IsBankSlot(slot, kLastPrfUserSlot)) {
        return {RolePlace::Table::Prf, slot};
    }
    return {};
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
