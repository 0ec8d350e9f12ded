#include "edit/Cut.h"

#include "edit/CutSteps.h"
#include "edit/ItemWindow.h"
#include "view/Form.h"

namespace velluto {

namespace {

// The 1-based first selected row with an item; rules.rows + 1 for none.
int FirstSelectedItem(const ItemWindow &rows)
{
    int r = 1;
    while (r <= rows.rules.rows && !(rows.IsOccupied(r - 1) && rows.IsSelected(r - 1))) {
        ++r;
    }
    return r;
}

int CountRun(const ItemWindow &rows, int first)
{
    int count = 0;
    for (int r = first; r <= rows.rules.rows && !rows.IsEmpty(r - 1) && rows.IsSelected(r - 1); ++r) {
        ++count;
    }
    return count;
}

void FillClipboard(FilesState &files, const WindowTag &tag, int first)
{
    ItemClipboard &clipboard = files.clipboard;
    clipboard.ClipImage = tag.image;
    clipboard.ClipFirstRow = first;
    clipboard.ClipCount = files.CutCount;
    clipboard.ClipSlot = tag.Slot();
    clipboard.ClipKind = tag.Kind();
    // ClipHasSts stays that of the last Copy, on purpose: the Edit menu compares it.
    clipboard.ClipValid = 1;
}

void BlankRows(const ItemWindow &window, int first, int count)
{
    constexpr std::size_t kBlanks = 16;
    for (int r = first; r < first + count; ++r) {
        window.list.SetRow(r - 1, window.list.Row(r - 1).substr(0, window.rules.emptyLength + 1) + std::string(kBlanks, ' '));
    }
}

} // namespace

void mnuTaglia_Click(FilesState &files)
{
    const std::optional<ItemWindow> window = ActiveItemWindow(files);
    if (!window || window->form.Tag.image.empty()) {
        return;
    }
    WindowTag &tag = window->form.Tag;
    const int first = FirstSelectedItem(*window);
    if (first <= window->rules.rows) {
        files.CutCount = CountRun(*window, first); // where nothing is selected the count of the Cut before stays
    }

    Assembly assembly{files, std::nullopt};
    const bool followed = assembly.Follow([&] {
        if (files.styles.Has(tag.Kind())) {
            CutStyles(assembly, tag.image, first);
        } else {
            CutItems(assembly, ImagePieces(tag.image), first);
        }
    });
    if (!followed) {
        return;
    }
    FillClipboard(files, tag, first);
    BlankRows(*window, first, files.CutCount);
    tag.Set(TagPosition::Modified, 1);
    if (tag.Kind() == ViewKind::NewStyle && CountItems(files.BuildImage.View()) == 0) {
        tag.Set(TagPosition::PasteFixed, 0);
    }
    files.BuildPrefix = tag.prefix;
    tag.image = files.BuildImage;
}

} // namespace velluto
