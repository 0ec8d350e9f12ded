#include "edit/Copy.h"

#include "edit/ItemWindow.h"
#include "view/Form.h"

namespace velluto {

void mnuCopia_Click(FilesState &files)
{
    constexpr int kNoRow = 256;
    Form *window = files.app.children.Active();
    const ListBox *list = window != nullptr ? ListOf(*window) : nullptr;
    const std::optional<RowRules> rules = list != nullptr ? RowRulesOf(files, window->Tag) : std::nullopt;
    if (!rules) {
        return;
    }
    ItemClipboard &clipboard = files.clipboard;
    clipboard.ClipSlot = window->Tag.Slot();
    clipboard.ClipKind = window->Tag.Kind();
    clipboard.ClipHasSts = window->Tag.At(TagPosition::HasSts);
    clipboard.ClipFirstRow = kNoRow;
    clipboard.ClipCount = 0;
    clipboard.ClipImage = window->Tag.image;

    const ItemRows rows{*list, *rules};
    for (int i = 0; i < rules->copied; ++i) {
        if (rows.IsOccupied(i) && rows.IsSelected(i)) {
            if (clipboard.ClipFirstRow == kNoRow) {
                clipboard.ClipFirstRow = i;
            }
            ++clipboard.ClipCount;
        } else if (clipboard.ClipFirstRow < kNoRow) {
            break; // rows selected beyond a gap are left out
        }
    }
    ++clipboard.ClipFirstRow; // counts from 1; 257 where nothing was selected
    clipboard.ClipValid = 1;
}

} // namespace velluto
