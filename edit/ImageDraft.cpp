#include "edit/ImageDraft.h"

namespace velluto {

void ImageDraft::AppendEntries(const ImagePieces &from, int entry, int count)
{
    directory_ += from.Text(EntryPosition(entry), std::int64_t{count} * Korf::kEntryLength);
}

void ImageDraft::AppendEntry(const ImagePieces &from, int entry, int row)
{
    AppendEntries(from, entry, 1);
    directory_[directory_.size() - Korf::kEntryLength + Korf::kEntrySlot] = static_cast<char>(row);
}

void ImageDraft::AppendBodies(const ImagePieces &from, const Items &items, int first, int last)
{
    if (first <= last) {
        AppendBytes(from, items.Position(first), items.End(last));
    }
}

ImagePieces ImageDraft::Close(const ItemTable &table, int count)
{
    if (count < 0) {
        throw OutsideImage();
    }
    const std::int64_t length = static_cast<std::int64_t>(directory_.size()) + bodies_.size();
    const std::string index = BuildIndex(directory_, length, table, count);
    ImagePieces image;
    image.Append(directory_);
    image.Append(bodies_, 1, bodies_.size());
    image.Append(index);
    return image;
}

} // namespace velluto
