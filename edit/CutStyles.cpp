#include "edit/CutSteps.h"
#include "edit/ImageDraft.h"
#include "files/StyleLayout.h"

namespace velluto {

namespace {

// What one Style leaves behind: entries up to and from, and as many again around its STS where that stands apart.
struct Gap {
    int first; // 1-based entry
    int width; // entries side by side
};

void TakeLengths(const Items &from, const Items &to, int n, std::initializer_list<Gap> gaps)
{
    int place = 0;
    for (int item = 1; item <= n; ++item) {
        const bool left = std::ranges::none_of(gaps, [item](Gap gap) { return item >= gap.first && item < gap.first + gap.width; });
        if (left) {
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
    TakeLengths(items, Items(files.BuildItemIndex), n, {{e, 1}, {e + half, 1}});
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
    TakeLengths(items, Items(files.BuildItemIndex), n, {{e, width}});
    return n - width;
}

} // namespace

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
