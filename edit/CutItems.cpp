#include "edit/CutSteps.h"
#include "edit/ImageDraft.h"

namespace velluto {

void CutItems(Assembly &assembly, const ImagePieces &source, int first)
{
    FilesState &files = assembly.files;
    const Items items(files.ItemIndex);
    const Items built(files.BuildItemIndex);
    const int count = files.CutCount;
    const int n = CountItems(source);
    ImageDraft draft;
    IndexItems(source, files.ItemIndex);
    const int e = FindEntry(source, n, first - 1);
    if (e > n) {
        // Nothing was selected: the file is left with no items at all, though its rows stay.
        assembly.image = draft.Close(files.BuildItemIndex, 0);
        return;
    }
    const int after = e + count;
    const bool followed = after - 1 < n;

    draft.AppendEntries(source, 1, e - 1);
    if (followed) {
        // Not the rest of the directory: e - 1 entries too many, taken from the first bodies. They end up between
        // directory and bodies, and neither the count nor the positions below know of them. Files in use have them.
        draft.AppendEntries(source, after, n - count);
    }
    draft.AppendBodies(source, items, 1, e - 1);
    draft.AppendBodies(source, items, after, n);

    int place = 0;
    for (int item = 1; item < e; ++item) {
        built.SetLength(++place, items.Length(item));
    }
    for (int item = after; item <= n; ++item) {
        built.SetLength(++place, items.Length(item));
    }
    const int m = n - count;
    built.Cumulate(FirstBody(m), m);
    assembly.image = draft.Close(files.BuildItemIndex, m);
}

} // namespace velluto
