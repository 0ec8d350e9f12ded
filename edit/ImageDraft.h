// A file image while an edit puts it together: head and directory, then the bodies, then the index that closes it. The
// directory is small and written to; the bodies are quoted from the images that they come from.
#pragma once

#include "edit/Directory.h"
#include "edit/ItemTables.h"

#include <string>

namespace velluto {

class ImageDraft {
public:
    // Begins with the head that every file begins with.
    ImageDraft() { BuildHeader(directory_); }
    // Begins with the head and the first entries of another image.
    ImageDraft(const ImagePieces &image, int entries) : directory_(image.Text(1, FirstBody(entries) - 1)) {}

    // Copies count entries of an image from a 1-based one on.
    void AppendEntries(const ImagePieces &from, int entry, int count);
    // Copies one entry and gives it another slot: the 0-based row that the item goes to.
    void AppendEntry(const ImagePieces &from, int entry, int row);
    // Quotes what lies between two 1-based positions, both included.
    void AppendBytes(const ImagePieces &from, std::int64_t first, std::int64_t last) { bodies_.Append(from, first, last - first + 1); }
    void AppendBody(const ImagePieces &from, const Items &items, int item)
    {
        bodies_.Append(from, items.Position(item), items.Length(item));
    }
    // Quotes the bodies of items first to last in one piece; none where last comes before first.
    void AppendBodies(const ImagePieces &from, const Items &items, int first, int last);

    // The finished image: its index tells the positions of the first count items of the table. The draft is used up.
    [[nodiscard]] ImagePieces Close(const ItemTable &table, int count);

private:
    std::string directory_;
    ImagePieces bodies_;
};

} // namespace velluto
