#include "edit/PasteItems.h"

#include "app/FixedText.h"
#include "edit/ImageDraft.h"

#include <algorithm>

namespace velluto {

namespace {

// The run in the clipboard's image.
struct Block {
    ImagePieces clip;
    int ClipEntry;               // the first item of the run
    std::int64_t ClipBlockStart; // 1-based positions of its first and last byte
    std::int64_t ClipBlockEnd;
};

constexpr int kKeptZeros = 4; // characters at the beginning of a name that keep their zeros

std::string RowName(std::string name)
{
    name = RightTrimmed(name);
    if (name.size() > kKeptZeros) {
        std::replace(name.begin() + kKeptZeros, name.end(), '\0', ' ');
    }
    return name;
}

void ComposeRows(PasteJob &job, const Block &block)
{
    for (int k = 0; k < job.take; ++k) {
        const std::string name = RowName(block.clip.Text(EntryPosition(block.ClipEntry + k), Korf::kNameLength));
        job.ShowInRow(job.dest + k, job.window.rules.emptyLength + 1, name);
    }
}

Block TakeBlock(PasteJob &job)
{
    FilesState &files = job.files;
    Block block{ImagePieces(files.clipboard.ClipImage), 0, 0, 0};
    const int s = block.clip.At(block.clip.size()) - 1; // the count that ends the file, not that of its head
    block.ClipEntry = FindEntry(block.clip, s, job.first - 1);
    IndexItems(block.clip, files.ItemIndex);
    ComposeRows(job, block);
    const Items items(files.ItemIndex);
    block.ClipBlockStart = items.Position(block.ClipEntry);
    // By the whole run, not by what fits: where the gap cuts the run short all its bodies come in, and the surplus
    // stays in the file as part of the last body or of those that follow. Files in use hold such bodies.
    block.ClipBlockEnd = items.End(block.ClipEntry + files.clipboard.ClipCount - 1);
    return block;
}

void AppendTakenEntries(ImageDraft &draft, const PasteJob &job, const Block &block)
{
    for (int k = 0; k < job.take; ++k) {
        draft.AppendEntry(block.clip, block.ClipEntry + k, job.dest + k);
    }
}

void MoveAll(const Items &items, int count, std::int64_t by)
{
    for (int item = 1; item <= count; ++item) {
        items.SetPosition(item, items.Position(item) + by);
    }
}

// Into a window without items, also a new one without an image.
ImagePieces BeginItems(const PasteJob &job, const Block &block)
{
    const Items items(job.files.ItemIndex);
    const Items built(job.files.BuildItemIndex);
    ImageDraft draft;
    AppendTakenEntries(draft, job, block);
    std::int64_t position = FirstBody(job.take);
    for (int item = 1; item <= job.take; ++item) {
        built.SetPosition(item, position);
        built.SetLength(item, items.Length(block.ClipEntry + item - 1));
        position += built.Length(item);
    }
    draft.AppendBytes(block.clip, block.ClipBlockStart, block.ClipBlockEnd);
    return draft.Close(job.files.BuildItemIndex, job.take);
}

// Behind all occupied rows. The table holds the target's index.
ImagePieces AppendItems(const PasteJob &job, const Block &block, const ImagePieces &target, int n)
{
    const Items items(job.files.ItemIndex);
    const Items built(job.files.BuildItemIndex);
    ImageDraft draft(target, n);
    draft.AppendBodies(target, built, 1, n);
    draft.AppendBytes(block.clip, block.ClipBlockStart, block.ClipBlockEnd);
    MoveAll(built, n, std::int64_t{job.take} * Korf::kEntryLength);
    for (int item = n + 1; item <= n + job.take; ++item) {
        built.SetPosition(item, built.End(item - 1) + 1);
        built.SetLength(item, items.Length(block.ClipEntry + item - n - 1));
    }
    AppendTakenEntries(draft, job, block);
    return draft.Close(job.files.BuildItemIndex, n + job.take);
}

// The table's part of an insert before item p. The order matters, since later writes read earlier ones, and the lengths
// that come in are looked up by row, not by entry. Directory and bodies fit only in the simple cases; it stays as it is,
// for files made so are in use.
void ShiftTable(const PasteJob &job, int n, int p)
{
    const Items items(job.files.ItemIndex);
    const Items built(job.files.BuildItemIndex);
    const int take = job.take;
    for (int k = 0; k < take; ++k) {
        built.SetPosition(n + 1 + k, built.Position(p + k));
        built.SetLength(n + 1 + k, built.Length(p + k));
    }
    for (int k = 0; k < take; ++k) {
        built.SetPosition(p + k, p + k == 1 ? FirstBody(n + take) : built.End(p + k - 1) + 1);
        built.SetLength(p + k, items.Length(job.first + k));
    }
    for (int k = 0; k < take; ++k) {
        built.SetPosition(n + 1 + k, built.End(n + k) + 1);
    }
}

// Before the occupied rows that follow.
ImagePieces InsertItems(const PasteJob &job, const Block &block, const ImagePieces &target, int n)
{
    const Items built(job.files.BuildItemIndex);
    const int above = FindEntryAbove(target, n, job.dest);
    const int p = above != 0 ? above : n + 1;
    ImageDraft draft(target, p - 1);
    AppendTakenEntries(draft, job, block);
    draft.AppendEntries(target, p, n - p + 1);
    ShiftTable(job, n, p);
    if (p > 1) {
        draft.AppendBytes(target, built.Position(1), built.End(p - 1));
    }
    draft.AppendBytes(block.clip, block.ClipBlockStart, block.ClipBlockEnd);
    draft.AppendBytes(target, built.Position(p), built.End(n)); // by the shifted table, though the target never moved
    const int all = n + job.take;
    MoveAll(built, all, std::int64_t{job.take} * Korf::kEntryLength);
    return draft.Close(job.files.BuildItemIndex, all);
}

} // namespace

void PasteItems(Assembly &assembly, PasteJob &job, const FileImage &target)
{
    const Block block = TakeBlock(job);
    if (job.last == 0) {
        assembly.image = BeginItems(job, block);
        return;
    }
    const ImagePieces t(target);
    const int n = CountItems(t);
    IndexItems(t, job.files.BuildItemIndex); // ItemIndex holds the source
    assembly.image = job.dest + 1 > job.last ? AppendItems(job, block, t, n) : InsertItems(job, block, t, n);
}

} // namespace velluto
