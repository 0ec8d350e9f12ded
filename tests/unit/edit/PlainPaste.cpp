// Paste in the plain editor.
#include "unit/edit/PlainEditor.h"

#include <algorithm>

namespace velluto::test {

namespace {

// Values that the steps of one Paste share.
struct Job {
    PlainGlobals &globals;
    PlainDocument &document;
    std::string T;
    int rows = 0;
    int last = 0; // 1-based, 0 where no row is occupied
    int dest = 0; // 0-based
    int take = 0;
    int first = 0; // rows of the clipboard, 1-based
    int stop = 0;

    [[nodiscard]] const std::string &Clip() const { return globals.clipboard.ClipImage; }
    [[nodiscard]] int NewRow(int r) const { return dest + r - first; }
};

void Measure(Job &job)
{
    const PlainDocument &document = job.document;
    job.rows = PlainRowCount(document);
    job.last = job.rows;
    while (job.last > 0 && !PlainOccupied(document, job.last - 1)) {
        job.last = job.last - 1;
    }
    job.dest = 0;
    while (job.dest < job.rows && !(PlainExactlyEmpty(document, job.dest) && document.Selected(job.dest))) {
        job.dest = job.dest + 1;
    }
    int gap = 0;
    while (job.dest + gap < job.rows && !PlainOccupied(document, job.dest + gap)) {
        gap = gap + 1;
    }
    job.take = std::min(gap, job.globals.clipboard.ClipCount);
    job.first = job.globals.clipboard.ClipFirstRow;
    job.stop = job.first + job.take - 1;
}

std::string NameOf(const std::string &image, int entry)
{
    return PlainSlice(image, 37 + (entry - 1) * 24, 16);
}

// From the end down to the fifth character, zeros become blanks.
std::string Blanked(std::string name)
{
    for (std::size_t i = name.size(); i >= 5; --i) {
        if (name[i - 1] == '\0') {
            name[i - 1] = ' ';
        }
    }
    return name;
}

void SetModified(Job &job)
{
    job.document.Set(6, 1);
    job.document.image = job.globals.BuildImage; // that of an earlier command where no pass was made
}

void StyleRowsOf(Job &job)
{
    const std::string &clip = job.Clip();
    PlainIndex(clip, job.globals.ItemIndex);
    const int s = PlainCount(clip);
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = PlainFind(clip, r, s);
        const std::string name = Blanked(NameOf(clip, e));
        const std::string size = PlainSize(job.globals.ItemIndex.Length(e));
        job.document.SetRow(job.NewRow(r), job.document.Row(job.NewRow(r)).substr(0, 4) + name + size);
    }
}

// Into a Style file of no items.
void EmptyTarget(Job &job)
{
    const std::string &clip = job.Clip();
    PlainTable &index = job.globals.ItemIndex;
    PlainTable &building = job.globals.BuildItemIndex;
    const int a = PlainLayout(clip);
    const int s = PlainCount(clip);
    PlainIndex(clip, index);
    std::string built = PlainHeader();
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = PlainFind(clip, r, s);
        built += PlainEntries(clip, e, 1);
        PlainRenumber(built, job.NewRow(r));
        if (a > 0) {
            built += PlainEntries(clip, a == 2 ? e + s / 2 : e + 1, 1);
            PlainRenumber(built, job.NewRow(r));
        }
    }
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = PlainFind(clip, r, s);
        const int place = 1 + 2 * (r - job.first); // also where there are no STS
        built += PlainBodies(clip, index, e, e);
        building.Length(place) = index.Length(e);
        if (a > 0) {
            const int partner = a == 2 ? e + s / 2 : e + 1;
            built += PlainBodies(clip, index, partner, partner);
            building.Length(place + 1) = index.Length(partner);
        }
    }
    if (a > 0) {
        job.take = 2 * job.take;
    }
    PlainCumulate(building, job.take);
    job.globals.BuildImage = PlainFinished(built, building, job.take);
    job.document.stsEnabled = a != 0;
    job.document.Set(8, a == 0 ? 0 : 1);
    job.document.Set(9, 1);
    SetModified(job);
}

// One Style and its STS into a grouped file.
void GroupedPass(Job &job, int r, bool adjacent)
{
    const std::string &clip = job.Clip();
    const std::string &T = job.T;
    PlainTable &index = job.globals.ItemIndex;
    PlainTable &saved = job.globals.SavedItemIndex;
    PlainTable &building = job.globals.BuildItemIndex;
    std::string built = PlainHeader();
    const int n = PlainCount(T);
    const int h = n / 2;
    PlainIndex(T, index);
    std::copy_n(index.positions.begin(), 32, saved.positions.begin());
    std::copy_n(index.lengths.begin(), 32, saved.lengths.begin());
    PlainIndex(clip, index);
    const int s = PlainCount(clip);
    const int e = PlainFind(clip, r, s);

    int p = PlainFindBehind(T, job.NewRow(r), n);
    if (p == n + 1) {
        p = h + 1;
    }

    if (p > 1) {
        built += PlainEntries(T, 1, p - 1);
    }
    built += PlainEntries(clip, e, 1);
    PlainRenumber(built, job.NewRow(r));
    built += PlainEntries(T, p, h);
    const bool pairs = PlainSlice(clip, 57, 1) == PlainSlice(clip, 81, 1);
    built += PlainEntries(clip, pairs ? e + 1 : e + s / 2, 1);
    PlainRenumber(built, job.NewRow(r));
    if (p < h) {
        built += PlainEntries(T, p + h, h - p + 1);
    }

    int next = 1;
    for (int place = 1; place <= n + 2; ++place) {
        if (place != p && place != p + h + 1) {
            building.Length(place) = saved.Length(next);
            next = next + 1;
        }
    }

    if (p > 1) {
        built += PlainBodies(T, saved, 1, p - 1);
    }
    built += PlainBodies(clip, index, e, e);
    building.Length(p) = index.Length(e);
    built += PlainBodies(T, saved, p, p + h - 1);
    const int partner = adjacent ? e + 1 : e + s / 2;
    built += PlainBodies(clip, index, partner, partner);
    building.Length(p + h + 1) = index.Length(partner);
    if (p < h) {
        built += PlainBodies(T, saved, p + h, n);
    }

    PlainCumulate(building, n + 2);
    job.globals.BuildImage = PlainFinished(built, building, n + 2);
    job.T = job.globals.BuildImage;
}

// Behind everything that a Style file holds.
void AppendedTarget(Job &job, int t, bool adjacent)
{
    const std::string &clip = job.Clip();
    const std::string &T = job.T;
    PlainTable &index = job.globals.ItemIndex;
    PlainTable &saved = job.globals.SavedItemIndex;
    PlainTable &building = job.globals.BuildItemIndex;
    const int n = PlainCount(T);
    const int stride = t == 0 ? 1 : 2;
    std::string built = PlainHeader();
    PlainIndex(T, index);
    std::copy_n(index.positions.begin(), 32, saved.positions.begin());
    std::copy_n(index.lengths.begin(), 32, saved.lengths.begin());
    PlainIndex(clip, index);

    built += PlainEntries(T, 1, n);
    const int s = PlainCount(clip);
    for (int i = 1; i <= n; ++i) {
        building.Position(i) = saved.Position(i);
        building.Length(i) = saved.Length(i);
    }
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = PlainFind(clip, r, s);
        built += PlainEntries(clip, e, 1);
        PlainRenumber(built, job.NewRow(r));
        if (t > 0) {
            built += PlainEntries(clip, adjacent ? e + 1 : e + s / 2, 1);
            PlainRenumber(built, job.NewRow(r));
        }
    }
    built += PlainBodies(T, saved, 1, n);
    for (int r = job.first; r <= job.stop; ++r) {
        const int e = PlainFind(clip, r, s);
        built += PlainBodies(clip, index, e, e);
        building.Length(n + 1 + (r - job.first) * stride) = index.Length(e);
        if (t > 0) {
            const int partner = adjacent ? e + 1 : e + s / 2;
            built += PlainBodies(clip, index, partner, partner);
            building.Length(n + 1 + (r - job.first) * 2 + 1) = index.Length(partner);
        }
    }
    job.take = n + job.take * stride;
    PlainCumulate(building, job.take);
    job.globals.BuildImage = PlainFinished(built, building, job.take);
}

void PasteStyles(Job &job)
{
    StyleRowsOf(job);
    if (PlainCount(job.T) == 0) {
        EmptyTarget(job);
        return;
    }
    const int a = PlainLayout(job.Clip());
    const bool adjacent = a == 1;
    const int t = PlainLayout(job.T);
    if (t == 2) {
        for (int r = job.first; r <= job.stop; ++r) {
            GroupedPass(job, r, adjacent);
        }
    } else {
        AppendedTarget(job, t, adjacent);
    }
    SetModified(job);
}

// The entries of the run, one by one with their new slots.
std::string RunEntries(const Job &job, int clipEntry)
{
    std::string entries;
    for (int k = 0; k < job.take; ++k) {
        entries += PlainEntries(job.Clip(), clipEntry + k, 1);
        PlainRenumber(entries, job.dest + k);
    }
    return entries;
}

// The new rows lie behind all that are occupied.
std::string AppendItems(Job &job, int n, int clipEntry, std::int64_t blockStart, std::int64_t blockLength)
{
    PlainTable &building = job.globals.BuildItemIndex;
    std::string built = PlainSlice(job.T, 1, 36 + n * 24);
    built += std::string(static_cast<std::size_t>(24 * job.take), '\0');
    if (n > 0) { // a Cut that found nothing may have left rows without items
        built += PlainBodies(job.T, building, 1, n);
    }
    built += PlainSlice(job.Clip(), blockStart, blockLength);
    for (int i = 1; i <= n; ++i) {
        building.Position(i) = building.Position(i) + job.take * 24;
    }
    for (int i = n + 1; i <= n + job.take; ++i) {
        building.Position(i) = building.End(i - 1);
        building.Length(i) = job.globals.ItemIndex.Length(clipEntry + i - n - 1);
    }
    built.replace(static_cast<std::size_t>(36 + n * 24), static_cast<std::size_t>(24 * job.take), RunEntries(job, clipEntry));
    job.take = n + job.take;
    return built;
}

// Occupied rows follow: places and bodies are shifted in an order of which each step sees what the one before left.
std::string InsertItems(Job &job, int n, int clipEntry, std::int64_t blockStart, std::int64_t blockLength)
{
    PlainTable &building = job.globals.BuildItemIndex;
    const int p = PlainFindBehind(job.T, job.dest, n);
    std::string built = PlainSlice(job.T, 1, 36 + (p - 1) * 24);
    built += RunEntries(job, clipEntry);
    built += PlainEntries(job.T, p, n - p + 1);

    for (int k = 0; k <= job.take - 1; ++k) {
        building.Position(n + 1 + k) = building.Position(p + k);
        building.Length(n + 1 + k) = building.Length(p + k);
    }
    for (int k = 0; k <= job.take - 1; ++k) {
        if (p + k == 1) {
            building.Position(1) = 37 + (n + job.take) * 24;
        } else {
            building.Position(p + k) = building.End(p + k - 1);
        }
        building.Length(p + k) = job.globals.ItemIndex.Length(job.globals.clipboard.ClipFirstRow + k);
    }
    for (int k = 0; k <= job.take - 1; ++k) {
        building.Position(n + 1 + k) = building.End(n + k);
    }

    if (p > 1) {
        built += PlainBodies(job.T, building, 1, p - 1);
    }
    built += PlainSlice(job.Clip(), blockStart, blockLength);
    built += PlainBodies(job.T, building, p, n);
    n = n + job.take;
    for (int i = 1; i <= n; ++i) {
        building.Position(i) = building.Position(i) + job.take * 24;
    }
    job.take = n;
    return built;
}

// Into a file of no items, or a new one that has no image yet.
std::string FirstItems(Job &job, int clipEntry, std::int64_t blockStart, std::int64_t blockLength)
{
    PlainTable &building = job.globals.BuildItemIndex;
    std::string built = PlainHeader();
    built += RunEntries(job, clipEntry);
    PlainPut(built, 35, job.take * 24 / 256);
    PlainPut(built, 36, job.take * 24 % 256);
    std::int32_t running = 37 + job.take * 24;
    for (int i = 1; i <= job.take; ++i) {
        building.Position(i) = running;
        building.Length(i) = job.globals.ItemIndex.Length(clipEntry + i - 1);
        running = running + building.Length(i);
    }
    return built + PlainSlice(job.Clip(), blockStart, blockLength);
}

// Programs and Performances.
void PasteItems(Job &job)
{
    const std::string &clip = job.Clip();
    PlainTable &index = job.globals.ItemIndex;
    const int s = PlainByte(PlainSlice(clip, static_cast<std::int64_t>(clip.size()), 1), 1) - 1;
    const int clipEntry = PlainFind(clip, job.first, s);
    PlainIndex(clip, index);
    const auto head = static_cast<std::size_t>(PlainEmptyLength(job.document) + 1);
    for (int k = 0; k < job.take; ++k) {
        const std::string name = Blanked(PlainTrimmed(NameOf(clip, clipEntry + k)));
        job.document.SetRow(job.dest + k, job.document.Row(job.dest + k).substr(0, head) + name);
    }
    const std::int64_t blockStart = index.Position(clipEntry);
    const std::int64_t blockLength = index.End(clipEntry + job.globals.clipboard.ClipCount - 1) - blockStart;

    std::string built;
    if (job.last == 0) {
        built = FirstItems(job, clipEntry, blockStart, blockLength);
    } else {
        const int n = PlainCount(job.T);
        PlainIndex(job.T, job.globals.BuildItemIndex);
        built = job.dest + 1 > job.last ? AppendItems(job, n, clipEntry, blockStart, blockLength)
                                        : InsertItems(job, n, clipEntry, blockStart, blockLength);
    }
    job.globals.BuildImage = PlainFinished(built, job.globals.BuildItemIndex, job.take);
    SetModified(job);
}

} // namespace

std::string PlainPaste(PlainGlobals &globals, PlainDocument &document)
{
    const PlainDocument before = document;
    const PlainClipboard clipBefore = globals.clipboard;
    try {
        Job job{globals, document, document.image};
        Measure(job);
        if (document.At(1) == 20 || document.At(1) == 21) {
            PasteStyles(job);
        } else {
            PasteItems(job);
        }
        return "";
    } catch (const PlainStop &stop) {
        document = before;
        globals.clipboard = clipBefore;
        return stop.why;
    }
}

} // namespace velluto::test
