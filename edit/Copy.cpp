#include "edit/Copy.h"

#include "edit/ItemWindow.h"
#include "view/Form.h"

namespace velluto {

void mnuCopia_Click(FilesState &files)
{
    constexpr int kNoRow = 256;
    const std::optional<ItemWindow> window = ActiveItemWindow(files);
    if (!window) {
        return;
    }
    const WindowTag &tag = window->form.Tag;
    ItemClipboard &clipboard = files.clipboard;
    clipboard.ClipSlot = tag.Slot();
    clipboard.ClipKind = tag.Kind();
    clipboard.ClipHasSts = tag.At(TagPosition::HasSts);
    clipboard.ClipFirstRow = kNoRow;
    clipboard.ClipCount = 0;
    clipboard.ClipImage = tag.image;

    for (int i = 0; i < window->rules.copied; ++i) {
        if (window->IsOccupied(i) && window->IsSelected(i)) {
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
