#include "edit/CutSteps.h"

#include "edit/ImageDraft.h"
#include "files/StyleRows.h"

#include <algorithm>
#include <initializer_list>

namespace velluto {

namespace {

// Entries that go, side by side.
struct Taken {
    int first; // 1-based
    int width;
};

// The lengths of n items, less those that go, follow one another in the new table.
void KeepLengths(const Items &from, const Items &to, int n, std::initializer_list<Taken> taken)
{
    int place = 0;
    for (int item = 1; item <= n; ++item) {
        if (std::ranges::none_of(taken, [item](Taken gone) { return item >= gone.first && item < gone.first + gone.width; })) {
            to.SetLength(++place, from.Length(item));
        }
    }
}

// Takes out entry e and its STS, which stands half the directory further on.
int CutGrouped(ImageDraft &draft, const ImagePieces &source, FilesState &files, int n, int e)
{
    const Items items(files.ItemIndex);
    const int half = n / 2;
    draft.AppendEntries(source, 1, e - 1);
    draft.AppendEntries(source, e + 1, half - 1);
    draft.AppendEntries(source, e + half + 1, n - (e + half));
    draft.AppendBodies(source, items, 1, e - 1);
    draft.AppendBodies(source, items, e + 1, e + half - 1);
    if (e < half) {
        draft.AppendBodies(source, items, e + half + 1, n);
    }
    KeepLengths(items, Items(files.BuildItemIndex), n, {{e, 1}, {e + half, 1}});
    return n - 2;
}

// Takes out width entries from e on: a Style alone, or with the STS that follows it.
int CutAdjacent(ImageDraft &draft, const ImagePieces &source, FilesState &files, int n, int e, int width)
{
    const Items items(files.ItemIndex);
    draft.AppendEntries(source, 1, e - 1);
    if (e + width - 1 < n) {
        draft.AppendEntries(source, e + width, n - e - width + 1);
    }
    draft.AppendBodies(source, items, 1, e - 1);
    draft.AppendBodies(source, items, e + width, n);
    KeepLengths(items, Items(files.BuildItemIndex), n, {{e, width}});
    return n - width;
}

} // namespace

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

    KeepLengths(items, built, n, {{e, count}});
    const int m = n - count;
    built.Cumulate(FirstBody(m), m);
    assembly.image = draft.Close(files.BuildItemIndex, m);
}

void CutStyles(Assembly &assembly, const FileImage &source, int first)
{
    FilesState &files = assembly.files;
    const int layout = ClassifyStyleLayout(source.View());
    ImagePieces image(source);
    for (int pass = 0; pass < files.CutCount; ++pass, ++first) {
        const int n = CountItems(image);
        IndexItems(image, files.ItemIndex);
        ImageDraft draft;
        const int e = FindEntry(image, n, first - 1); // where there is none: the entry behind the last one
        const int m = layout == StyleLayout::Grouped ? CutGrouped(draft, image, files, n, e)
                                                     : CutAdjacent(draft, image, files, n, e, layout == StyleLayout::Interleaved ? 2 : 1);
        Items(files.BuildItemIndex).Cumulate(FirstBody(m), m);
        image = draft.Close(files.BuildItemIndex, m);
        assembly.image = image;
    }
}

} // namespace velluto
