#include "edit/EditMenu.h"

#include "edit/ItemWindow.h"
#include "files/WindowRole.h"

#include <algorithm>
#include <optional>

namespace velluto {

namespace {

constexpr int kKindLeftAlone = 70; // a window of this kind gets neither natural size nor roles
constexpr int kOneCharacter = 1;

template <class Table>
auto *EntryOf(Table &table, int entry)
{
    return entry >= 0 && entry < static_cast<int>(table.size()) ? &table[static_cast<std::size_t>(entry)] : nullptr;
}

bool HasNaturalPlacement(int kind)
{
    return IsFactoryPrograms(kind) || IsFactoryStyles(kind) || kind == ViewKind::PerformanceOverview || IsStyleOverview(kind) ||
           kind == ViewKind::Keyboard || kind == ViewKind::Monitor || kind == ViewKind::Notebook || kind == ViewKind::Player;
}

template <class Record>
std::optional<Size> NaturalSizeIn(const Record *record)
{
    return record != nullptr ? std::optional<Size>({record->MinWidth, record->MinHeight}) : std::nullopt;
}

// Nothing for windows that have no natural size of their own.
std::optional<Size> NaturalSize(Settings &settings, int kind, int slot)
{
    switch (kind) {
    case ViewKind::ProgramFile:
    case ViewKind::NewProgram64:
    case ViewKind::NewProgram128:
        return NaturalSizeIn(EntryOf(settings.PcgDocTable, slot));
    case ViewKind::StyleFile:
    case ViewKind::NewStyle:
        return NaturalSizeIn(EntryOf(settings.StyDocTable, slot));
    case ViewKind::PerformanceFile:
    case ViewKind::NewPerformance:
        return NaturalSizeIn(EntryOf(settings.PrfDocTable, slot));
    default:
        return HasNaturalPlacement(kind) ? NaturalSizeIn(EntryOf(settings.PlacementTable, kind - 1)) : std::nullopt;
    }
}

void OfferNaturalSize(FilesState &files, const Form &window)
{
    const std::optional<Size> natural = NaturalSize(files.app.settings, window.Tag.Kind(), window.Tag.Slot());
    if (natural && *natural != Size{window.Width(), window.Height()}) {
        files.app.frame.mnuIngrandisci.enabled = true;
    }
}

// The first run of selected rows, 0-based; nothing where no row is selected.
struct SelectedRun {
    int first;
    int last;
};

std::optional<SelectedRun> FindSelectedRun(const ItemRows &rows)
{
    int first = 0;
    while (first < rows.rules.rows && !rows.IsSelected(first)) {
        ++first;
    }
    if (first == rows.rules.rows) {
        return std::nullopt;
    }
    int last = first;
    while (last + 1 < rows.rules.rows && rows.IsSelected(last + 1)) {
        ++last;
    }
    return SelectedRun{first, last};
}

// May what the clipboard holds go to a window of this kind and state? A value that is no file window's is not tested.
bool FitsClipboard(const ItemClipboard &clipboard, const WindowTag &tag)
{
    const int kind = tag.Kind();
    const bool styles = kind == ViewKind::StyleFile || kind == ViewKind::NewStyle;
    const bool sameSts = tag.At(TagPosition::HasSts) == clipboard.ClipHasSts;
    switch (clipboard.ClipKind) {
    case ViewKind::ProgramFile:
    case ViewKind::NewProgram64:
    case ViewKind::NewProgram128:
        return kind == ViewKind::ProgramFile || kind == ViewKind::NewProgram64 || kind == ViewKind::NewProgram128;
    case ViewKind::StyleFile:
        // A new Style file that nothing was pasted into yet takes Styles with STS and without.
        return styles && (sameSts || (kind == ViewKind::NewStyle && tag.At(TagPosition::PasteFixed) != 1));
    case ViewKind::NewStyle:
        return styles && sameSts;
    case ViewKind::PerformanceFile:
    case ViewKind::NewPerformance:
        return kind == ViewKind::PerformanceFile || kind == ViewKind::NewPerformance;
    default:
        return true;
    }
}

// A run without an empty row can be copied and cut, one without an item can be pasted to. The first user bank of each type
// can only be copied from: it stands in slot 9.
void OfferItems(FilesState &files, Form &window)
{
    constexpr int kFirstUserBankSlot = 9;
    const std::optional<RowRules> rules = RowRulesOf(window.Tag);
    const ListBox *list = ListOf(window);
    const int kind = window.Tag.Kind();
    const bool styles = kind == ViewKind::StyleFile || kind == ViewKind::NewStyle;
    if (!rules || list == nullptr || (styles && window.Tag.At(TagPosition::ListShows) == 0)) {
        return; // STS are never moved by themselves
    }
    const ItemRows rows{*list, *rules};
    const std::optional<SelectedRun> run = FindSelectedRun(rows);
    if (!run) {
        return;
    }
    bool hasEmpty = false;
    bool hasItem = false;
    for (int row = run->first; row <= run->last; ++row) {
        hasEmpty = hasEmpty || rows.IsEmpty(row);
        hasItem = hasItem || rows.IsOccupied(row);
    }
    frmMain &frame = files.app.frame;
    const bool editable = window.Tag.Slot() != kFirstUserBankSlot;
    if (!hasEmpty) {
        frame.mnuCopia.enabled = true;
        frame.mnuTaglia.enabled = editable;
    }
    if (files.clipboard.ClipValid != 0 && FitsClipboard(files.clipboard, window.Tag) && !hasItem) {
        frame.mnuIncolla.enabled = editable;
    }
}

void WithdrawRoles(frmMain &frame)
{
    for (MenuEntry &entry : frame.mnuMIDIStp) {
        entry.checked = false;
        entry.enabled = false;
    }
}

// The window's role is checked, and the roles that some channel carries may be chosen.
void OfferRoles(FilesState &files, const Form &window)
{
    frmMain &frame = files.app.frame;
    const RolePlace place = RolePlaceOf(window, kOneCharacter);
    if (place.table == RolePlace::Table::None) {
        return;
    }
    const int role = ReadRole(files, place);
    if (role < kRoleCount) {
        frame.mnuMIDIStp[role].checked = true;
    }
    for (int code = 0; code < kRoleCount; ++code) {
        frame.mnuMIDIStp[code].enabled = std::ranges::find(files.app.settings.ChannelRole, code) != files.app.settings.ChannelRole.end();
    }
}

} // namespace

void mnuModifica_Click(FilesState &files)
{
    frmMain &frame = files.app.frame;
    Form *window = files.app.children.Active();
    frame.mnuIngrandisci.enabled = false;
    frame.mnuCopia.enabled = false;
    frame.mnuIncolla.enabled = false;
    frame.mnuTaglia.enabled = false;
    if (window == nullptr) {
        return;
    }
    files.app.ViewKind = window->Tag.Kind();
    if (files.app.ViewKind == ViewKind::ChannelSetup) {
        WithdrawRoles(frame);
        return;
    }
    if (files.app.ViewKind == kKindLeftAlone) {
        return;
    }
    OfferItems(files, *window);
    OfferNaturalSize(files, *window);
    WithdrawRoles(frame);
    OfferRoles(files, *window);
}

void mnuMIDIStp_Click(FilesState &files, int index)
{
    frmMain &frame = files.app.frame;
    const Form *window = files.app.children.Active();
    if (window == nullptr || index < 0 || index >= kRoleCount) {
        return;
    }
    // Entry 0 is left out on purpose: its mark stays until the menu drops again.
    for (int other = 1; other < kRoleCount; ++other) {
        frame.mnuMIDIStp[other].checked = false;
    }
    frame.mnuMIDIStp[index].checked = true;

    files.app.ViewKind = window->Tag.Kind();
    files.app.slot = window->Tag.Slot();
    const RolePlace place = RolePlaceOf(*window);
    if (place.table != RolePlace::Table::None) {
        StoreRole(files, place, index);
    }
}

} // namespace velluto
