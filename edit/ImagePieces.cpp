#include "edit/ImagePieces.h"

#include <algorithm>

namespace velluto {

std::vector<ImagePieces::Piece>::const_iterator ImagePieces::PieceWith(std::int64_t position) const
{
    return std::ranges::lower_bound(pieces_, position, {}, &Piece::end);
}

int ImagePieces::At(std::int64_t position) const
{
    if (position < 1 || position > size_) {
        throw OutsideImage();
    }
    const Piece &piece = *PieceWith(position);
    return piece.block.View()[piece.offset + piece.length - 1 - static_cast<std::size_t>(piece.end - position)];
}

template <class Take>
void ImagePieces::Walk(std::int64_t position, std::int64_t length, Take take) const
{
    if (length == 0) {
        return;
    }
    if (length < 0 || position < 1 || position > size_ || length > size_ - position + 1) {
        throw OutsideImage();
    }
    for (auto piece = PieceWith(position); length > 0; ++piece) {
        const std::int64_t left = piece->end - position + 1;
        const std::int64_t taken = std::min(left, length);
        take(*piece, piece->offset + piece->length - static_cast<std::size_t>(left), static_cast<std::size_t>(taken));
        position += taken;
        length -= taken;
    }
}

std::string ImagePieces::Text(std::int64_t position, std::int64_t length) const
{
    std::string text;
    Walk(position, length, [&](const Piece &piece, std::size_t offset, std::size_t count) {
        const ImageView bytes = piece.block.View().subspan(offset, count);
        text.append(bytes.begin(), bytes.end());
    });
    return text;
}

void ImagePieces::Append(const FileImage &block)
{
    Quote(block, 0, block.size());
}

void ImagePieces::Append(const ImagePieces &source, std::int64_t position, std::int64_t length)
{
    source.Walk(position, length, [&](const Piece &piece, std::size_t offset, std::size_t count) { Quote(piece.block, offset, count); });
}

void ImagePieces::Quote(const FileImage &block, std::size_t offset, std::size_t length)
{
    if (length == 0) {
        return;
    }
    size_ += static_cast<std::int64_t>(length);
    if (!pieces_.empty()) {
        Piece &last = pieces_.back();
        if (last.block.View().data() == block.View().data() && last.offset + last.length == offset) {
            last.length += length;
            last.end = size_;
            return;
        }
    }
    pieces_.push_back({block, offset, length, size_});
}

FileImage ImagePieces::Whole() const
{
    FileImage whole(static_cast<std::size_t>(size_));
    auto to = whole.Writable().begin();
    for (const Piece &piece : pieces_) {
        to = std::ranges::copy(piece.block.View().subspan(piece.offset, piece.length), to).out;
    }
    return whole;
}

} // namespace velluto
