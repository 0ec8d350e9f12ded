#include "edit/EditMenu.h"

#include "edit/ItemWindow.h"
#include "files/NaturalSize.h"
#include "files/WindowRole.h"

#include <algorithm>
#include <optional>

namespace velluto {

namespace {

constexpr int kKindLeftAlone = 70; // a window of this kind gets neither natural size nor roles
constexpr int kOneCharacter = 1;

void OfferNaturalSize(FilesState &files, const Form &window)
{
    const std::optional<Size> natural = NaturalSize(files, window.Tag.Kind(), window.Tag.Slot());
    if (natural && *natural != Size{window.Width(), window.Height()}) {
        files.app.frame.mnuIngrandisci.enabled = true;
    }
}

// The first run of selected rows, 0-based; nothing where no row is selected.
struct SelectedRun {
    int first;
    int last;
};

std::optional<SelectedRun> FindSelectedRun(const ItemWindow &rows)
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
bool FitsClipboard(FilesState &files, const WindowTag &tag)
{
    const ItemClipboard &clipboard = files.clipboard;
    const DocumentType *type = TypeOfKind(files, clipboard.ClipKind);
    if (type == nullptr) {
        return true;
    }
    if (type != TypeOfKind(files, tag.Kind())) {
        return false;
    }
    // A new Style file that nothing was pasted into yet takes Styles with STS and without, but for those of a new one.
    return type != &files.styles || tag.At(TagPosition::HasSts) == clipboard.ClipHasSts ||
           (clipboard.ClipKind == ViewKind::StyleFile && tag.Kind() == ViewKind::NewStyle && tag.At(TagPosition::PasteFixed) != 1);
}

// A run without an empty row can be copied and cut, one without an item can be pasted to. The first user bank of each type
// can only be copied from: it stands in slot 9.
void OfferItems(FilesState &files)
{
    const std::optional<ItemWindow> rows = ActiveItemWindow(files);
    if (!rows) {
        return;
    }
    const WindowTag &tag = rows->form.Tag;
    const bool styles = files.styles.Has(tag.Kind());
    if (styles && tag.At(TagPosition::ListShows) == 0) {
        return; // STS are never moved by themselves
    }
    const std::optional<SelectedRun> run = FindSelectedRun(*rows);
    if (!run) {
        return;
    }
    bool hasEmpty = false;
    bool hasItem = false;
    for (int row = run->first; row <= run->last; ++row) {
        hasEmpty = hasEmpty || rows->IsEmpty(row);
        hasItem = hasItem || rows->IsOccupied(row);
    }
    frmMain &frame = files.app.frame;
    const bool editable = tag.Slot() != kFirstBankSlot;
    if (!hasEmpty) {
        frame.mnuCopia.enabled = true;
        frame.mnuTaglia.enabled = editable;
    }
    if (files.clipboard.ClipValid != 0 && FitsClipboard(files, tag) && !hasItem) {
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
    const std::optional<RolePlace> place = RolePlaceOf(files, window, kOneCharacter);
    if (!place) {
        return;
    }
    const int role = ReadRole(files, *place);
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
    const Form *window = files.app.children.Active();
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
    OfferItems(files);
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
    const std::optional<RolePlace> place = RolePlaceOf(files, *window);
    if (place) {
        StoreRole(files, *place, index);
    }
}

} // namespace velluto
