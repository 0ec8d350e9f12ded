#include "edit/ImageDraft.h"
#include "edit/PasteSteps.h"
#include "files/StyleLayout.h"
#include "files/StyleRows.h"

namespace velluto {

namespace {

constexpr int kRowHead = 4; // characters of a row in front of its name

// What the list is to show: the Styles by name and size, each behind the number of its new row.
void ComposeRows(PasteJob &job, const ImagePieces &clip)
{
    const Items items(job.files.ItemIndex);
    const int s = CountItems(clip);
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = FindEntry(clip, s, r - 1);
        const int row = job.RowOf(r);
        const std::string text = StyleText(clip.Text(EntryPosition(e), Korf::kNameLength), items.Length(e));
        job.newRows.emplace_back(row, job.rows.list.Row(row).substr(0, kRowHead) + text);
    }
}

} // namespace

PasteOutcome PasteStyles(Assembly &assembly, PasteJob &job, const FileImage &target)
{
    const FileImage &clipImage = job.files.clipboard.ClipImage;
    const ImagePieces clip(clipImage);
    IndexItems(clip, job.files.ItemIndex);
    ComposeRows(job, clip);
    const ImagePieces t(target);
    const int clipLayout = ClassifyStyleLayout(clipImage.View());
    if (CountItems(t) == 0) {
        PasteIntoEmptyStyles(assembly, job, clip, clipLayout);
        return clipLayout == StyleLayout::StylesOnly ? PasteOutcome::Began : PasteOutcome::BeganWithSts;
    }
    const int targetLayout = ClassifyStyleLayout(target.View());
    if (targetLayout == StyleLayout::Grouped) {
        PasteIntoGroupedStyles(assembly, job, clip, clipLayout, t);
    } else {
        AppendStyles(assembly, job, clip, clipLayout, t, targetLayout);
    }
    return PasteOutcome::Filled;
}

// Each Style and its STS side by side, however they stood in the source.
void PasteIntoEmptyStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int layout)
{
    const Items items(job.files.ItemIndex);
    const Items built(job.files.BuildItemIndex);
    const int s = CountItems(clip);
    const bool pairs = layout != StyleLayout::StylesOnly;
    const auto partnerOf = [&](int e) { return layout == StyleLayout::Grouped ? e + s / 2 : e + 1; };
    IndexItems(clip, job.files.ItemIndex);
    ImageDraft draft;
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = FindEntry(clip, s, r - 1);
        draft.AppendEntry(clip, e, job.RowOf(r));
        if (pairs) {
            draft.AppendEntry(clip, partnerOf(e), job.RowOf(r));
        }
    }
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = FindEntry(clip, s, r - 1);
        // Two places for each Style even where it has no STS: the second one then keeps what an earlier edit left
        // there, and the positions are reckoned by it all the same.
        const int place = 1 + 2 * (r - job.first);
        draft.AppendBody(clip, items, e);
        built.SetLength(place, items.Length(e));
        if (pairs) {
            draft.AppendBody(clip, items, partnerOf(e));
            built.SetLength(place + 1, items.Length(partnerOf(e)));
        }
    }
    if (pairs) {
        job.take *= 2;
    }
    built.Cumulate(FirstBody(job.take), job.take);
    assembly.image = draft.Close(job.files.BuildItemIndex, job.take);
}

// Puts each Style among the Styles and its STS among the STS. Every Style builds a whole image, from which the next one
// starts.
void PasteIntoGroupedStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int clipLayout, ImagePieces target)
{
    constexpr int kFirstSlotByte = 57; // 1-based positions of the slot bytes of the first two entries
    constexpr int kSecondSlotByte = 81;
    FilesState &files = job.files;
    const Items items(files.ItemIndex);
    const Items saved(files.SavedItemIndex);
    const Items built(files.BuildItemIndex);
    for (int r = job.first; r <= job.stop; ++r) {
        const int row = job.RowOf(r);
        const int n = CountItems(target);
        const int h = n / 2;
        IndexItems(target, files.ItemIndex);
        items.CopyTo(saved);
        IndexItems(clip, files.ItemIndex);
        const int s = CountItems(clip);
        const int e = FindEntry(clip, s, r - 1);
        const int above = FindEntryAbove(target, n, row);
        const int p = above != 0 ? above : h + 1;
        const int q = p + h + 1; // the place of the STS
        // Entry and body of the partner are looked for by two tests, and agree in every file that has STS.
        const int partnerEntry = clip.At(kFirstSlotByte) == clip.At(kSecondSlotByte) ? e + 1 : e + s / 2;
        const int partnerBody = clipLayout == StyleLayout::Interleaved ? e + 1 : e + s / 2;
        const bool followed = p < h; // one short where the Style goes before the last one: files in use are made so

        ImageDraft draft;
        draft.AppendEntries(target, 1, p - 1);
        draft.AppendEntry(clip, e, row);
        draft.AppendEntries(target, p, h);
        draft.AppendEntry(clip, partnerEntry, row);
        if (followed) {
            draft.AppendEntries(target, p + h, h - p + 1);
        }
        int next = 0;
        for (int place = 1; place <= n + 2; ++place) {
            if (place != p && place != q) {
                built.SetLength(place, saved.Length(++next));
            }
        }
        draft.AppendBodies(target, saved, 1, p - 1);
        draft.AppendBody(clip, items, e);
        built.SetLength(p, items.Length(e));
        draft.AppendBodies(target, saved, p, p + h - 1);
        draft.AppendBody(clip, items, partnerBody);
        built.SetLength(q, items.Length(partnerBody));
        if (followed) {
            draft.AppendBodies(target, saved, p + h, n);
        }
        built.Cumulate(FirstBody(n + 2), n + 2);
        target = draft.Close(files.BuildItemIndex, n + 2);
        assembly.image = target;
    }
}

// New items go behind all others, whatever their slots.
void AppendStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int clipLayout, const ImagePieces &target, int targetLayout)
{
    FilesState &files = job.files;
    const Items items(files.ItemIndex);
    const Items saved(files.SavedItemIndex);
    const Items built(files.BuildItemIndex);
    const int n = CountItems(target);
    const bool pairs = targetLayout != StyleLayout::StylesOnly; // elsewhere a Style loses its STS
    const int stride = pairs ? 2 : 1;
    IndexItems(target, files.ItemIndex);
    items.CopyTo(saved);
    IndexItems(clip, files.ItemIndex);
    const int s = CountItems(clip);
    const auto partnerOf = [&](int e) { return clipLayout == StyleLayout::Interleaved ? e + 1 : e + s / 2; };

    ImageDraft draft;
    draft.AppendEntries(target, 1, n);
    for (int item = 1; item <= n; ++item) {
        built.SetPosition(item, saved.Position(item));
        built.SetLength(item, saved.Length(item));
    }
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = FindEntry(clip, s, r - 1);
        draft.AppendEntry(clip, e, job.RowOf(r));
        if (pairs) {
            draft.AppendEntry(clip, partnerOf(e), job.RowOf(r));
        }
    }
    draft.AppendBodies(target, saved, 1, n);
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = FindEntry(clip, s, r - 1);
        const int place = n + 1 + (r - job.first) * stride;
        draft.AppendBody(clip, items, e);
        built.SetLength(place, items.Length(e));
        if (pairs) {
            draft.AppendBody(clip, items, partnerOf(e));
            built.SetLength(place + 1, items.Length(partnerOf(e)));
        }
    }
    job.take = n + job.take * stride;
    built.Cumulate(FirstBody(job.take), job.take);
    assembly.image = draft.Close(files.BuildItemIndex, job.take);
}

} // namespace velluto
