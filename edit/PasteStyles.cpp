#include "edit/PasteStyles.h"

#include "edit/ImageDraft.h"
#include "files/StyleRows.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kRowHead = 4; // characters of a row in front of its name

// The clipboard's file, indexed once for the whole Paste.
struct Clip {
    explicit Clip(const PasteJob &job)
        : image(job.files.clipboard.ClipImage), layout(ClassifyStyleLayout(job.files.clipboard.ClipImage.View())), count(CountItems(image))
    {
        IndexItems(image, job.files.ItemIndex);
        index = job.files.ItemIndex;
    }

    ImagePieces image;
    int layout; // a StyleLayout
    int count;
    ItemTable index{};

    [[nodiscard]] int EntryFor(int row) const { return FindEntry(image, count, row - 1); }
    // Where the STS of an entry stands, by the layout: its entry and its item.
    [[nodiscard]] int PartnerOf(int entry) const { return layout == StyleLayout::Interleaved ? entry + 1 : entry + count / 2; }
    // Puts the items over what the table holds. Those behind the last one stay, and are read where an entry is not found.
    void LayOver(ItemTable &table) const
    {
        const auto items = static_cast<std::size_t>(std::min(count, Korf::kMostItems));
        std::copy_n(index.begin(), items, table.begin());
        std::copy_n(index.begin() + Korf::kMostItems, items, table.begin() + Korf::kMostItems);
    }
};

// What the list is to show: the Styles by name and size, each behind the number of its new row.
void ComposeRows(PasteJob &job, const Clip &clip)
{
    const Items items(job.files.ItemIndex);
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = clip.EntryFor(r);
        job.ShowInRow(job.RowOf(r), kRowHead, StyleText(clip.image.Text(EntryPosition(e), Korf::kNameLength), items.Length(e)));
    }
}

// The entries of the run, each with that of its STS behind it where pairs come in.
void AppendRunEntries(ImageDraft &draft, const PasteJob &job, const Clip &clip, bool pairs)
{
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = clip.EntryFor(r);
        draft.AppendEntry(clip.image, e, job.RowOf(r));
        if (pairs) {
            draft.AppendEntry(clip.image, clip.PartnerOf(e), job.RowOf(r));
        }
    }
}

// The bodies likewise. Their lengths go to BuildItemIndex, from a place on and so many places apart for each Style.
void AppendRunBodies(ImageDraft &draft, const PasteJob &job, const Clip &clip, bool pairs, int place, int stride)
{
    const Items items(job.files.ItemIndex);
    const Items built(job.files.BuildItemIndex);
    for (int r = job.first; r <= job.stop; ++r, place += stride) {
        const int e = clip.EntryFor(r);
        draft.AppendBody(clip.image, items, e);
        built.SetLength(place, items.Length(e));
        if (pairs) {
            draft.AppendBody(clip.image, items, clip.PartnerOf(e));
            built.SetLength(place + 1, items.Length(clip.PartnerOf(e)));
        }
    }
}

// Each Style and its STS side by side, however they stood in the source.
void PasteIntoEmpty(Assembly &assembly, const PasteJob &job, const Clip &clip)
{
    // Two places for each Style even where it has no STS: the second one then keeps what an earlier edit left there, and
    // the positions are reckoned by it all the same.
    constexpr int kStride = 2;
    const bool pairs = clip.layout != StyleLayout::StylesOnly;
    ImageDraft draft;
    AppendRunEntries(draft, job, clip, pairs);
    AppendRunBodies(draft, job, clip, pairs, 1, kStride);
    const int all = pairs ? 2 * job.take : job.take;
    Items(job.files.BuildItemIndex).Cumulate(FirstBody(all), all);
    assembly.image = draft.Close(job.files.BuildItemIndex, all);
}

// Puts each Style among the Styles and its STS among the STS. Every Style builds a whole image, from which the next one
// starts.
void PasteIntoGrouped(Assembly &assembly, const PasteJob &job, const Clip &clip, ImagePieces target)
{
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
        clip.LayOver(files.ItemIndex);
        const int e = clip.EntryFor(r);
        const int above = FindEntryAbove(target, n, row);
        const int p = above != 0 ? above : h + 1;
        const int q = p + h + 1; // the place of the STS
        // Entry and body of the partner are looked for by two tests, and agree in every file that has STS.
        const bool adjacent = SlotOf(clip.image, 1) == SlotOf(clip.image, 2);
        const int partnerEntry = adjacent ? e + 1 : e + clip.count / 2;
        const int partnerBody = clip.PartnerOf(e);
        const bool followed = p < h; // one short where the Style goes before the last one: files in use are made so

        ImageDraft draft;
        draft.AppendEntries(target, 1, p - 1);
        draft.AppendEntry(clip.image, e, row);
        draft.AppendEntries(target, p, h);
        draft.AppendEntry(clip.image, partnerEntry, row);
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
        draft.AppendBody(clip.image, items, e);
        built.SetLength(p, items.Length(e));
        draft.AppendBodies(target, saved, p, p + h - 1);
        draft.AppendBody(clip.image, items, partnerBody);
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
void AppendStyles(Assembly &assembly, const PasteJob &job, const Clip &clip, const ImagePieces &target, int targetLayout)
{
    FilesState &files = job.files;
    const Items saved(files.SavedItemIndex);
    const Items built(files.BuildItemIndex);
    const int n = CountItems(target);
    const bool pairs = targetLayout != StyleLayout::StylesOnly; // elsewhere a Style loses its STS
    const int stride = pairs ? 2 : 1;
    IndexItems(target, files.ItemIndex);
    Items(files.ItemIndex).CopyTo(saved);
    clip.LayOver(files.ItemIndex);

    ImageDraft draft;
    draft.AppendEntries(target, 1, n);
    for (int item = 1; item <= n; ++item) {
        built.SetPosition(item, saved.Position(item));
        built.SetLength(item, saved.Length(item));
    }
    AppendRunEntries(draft, job, clip, pairs);
    draft.AppendBodies(target, saved, 1, n);
    AppendRunBodies(draft, job, clip, pairs, n + 1, stride);
    const int all = n + job.take * stride;
    built.Cumulate(FirstBody(all), all);
    assembly.image = draft.Close(files.BuildItemIndex, all);
}

} // namespace

PasteOutcome PasteStyles(Assembly &assembly, PasteJob &job, const FileImage &target)
{
    const Clip clip(job);
    ComposeRows(job, clip);
    const ImagePieces pieces(target);
    if (CountItems(pieces) == 0) {
        PasteIntoEmpty(assembly, job, clip);
        return clip.layout == StyleLayout::StylesOnly ? PasteOutcome::Began : PasteOutcome::BeganWithSts;
    }
    const int targetLayout = ClassifyStyleLayout(target.View());
    if (targetLayout == StyleLayout::Grouped) {
        PasteIntoGrouped(assembly, job, clip, pieces);
    } else {
        AppendStyles(assembly, job, clip, pieces, targetLayout);
    }
    return PasteOutcome::Filled;
}

} // namespace velluto
