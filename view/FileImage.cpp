#include "view/FileImage.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace velluto {

std::vector<FileImage::Piece>::const_iterator FileImage::PieceWith(std::size_t offset) const
{
    return std::ranges::upper_bound(pieces_, offset, {}, &Piece::end);
}

std::uint8_t FileImage::operator[](std::size_t offset) const
{
    const Piece &piece = *PieceWith(offset);
    return piece.Bytes()[piece.length - (piece.end - offset)];
}

template <class Take>
void FileImage::Walk(std::size_t offset, std::size_t length, Take take) const
{
    for (auto piece = PieceWith(offset); length > 0; ++piece) {
        const std::size_t left = piece->end - offset;
        const std::size_t taken = std::min(left, length);
        take(*piece, piece->offset + piece->length - left, taken);
        offset += taken;
        length -= taken;
    }
}

std::string FileImage::Text(std::size_t offset, std::size_t length) const
{
    std::string text;
    text.reserve(length);
    Walk(offset, length, [&text](const Piece &piece, std::size_t from, std::size_t count) {
        const auto bytes = piece.block.View().subspan(from, count);
        text.append(bytes.begin(), bytes.end());
    });
    return text;
}

ImageView FileImage::View() const
{
    return pieces_.size() == 1 ? ImageView(pieces_.front().Bytes()) : ImageView(*this);
}

ByteRuns FileImage::Runs() const
{
    ByteRuns runs;
    runs.reserve(pieces_.size());
    std::ranges::transform(pieces_, std::back_inserter(runs), &Piece::Bytes);
    return runs;
}

void FileImage::Append(const FileImage &source, std::size_t offset, std::size_t length)
{
    source.Walk(offset, length, [this](const Piece &piece, std::size_t from, std::size_t count) { Quote(piece.block, from, count); });
}

void FileImage::Quote(const SharedBytes &block, std::size_t offset, std::size_t length)
{
    if (length == 0) {
        return;
    }
    const std::size_t end = size() + length;
    if (!pieces_.empty()) {
        Piece &last = pieces_.back();
        if (last.block.View().data() == block.View().data() && last.offset + last.length == offset) {
            last.length += length;
            last.end = end;
            return;
        }
    }
    pieces_.push_back({block, offset, length, end});
}

std::size_t FileImage::KeptAlive() const
{
    std::set<const std::uint8_t *> seen;
    std::size_t kept = 0;
    for (const Piece &piece : pieces_) {
        kept += seen.insert(piece.block.View().data()).second ? piece.block.size() : 0;
    }
    return kept;
}

FileImage FileImage::Thrifty() const
{
    if (KeptAlive() / 2 <= size()) {
        return *this;
    }
    SharedBytes own(size());
    auto to = own.Writable().begin();
    for (const Piece &piece : pieces_) {
        to = std::ranges::copy(piece.Bytes(), to).out;
    }
    return FileImage(own);
}

std::string ImageView::Text(std::size_t offset, std::size_t length) const
{
    if (pieces_ != nullptr) {
        return pieces_->Text(offset, length);
    }
    const auto bytes = block_.subspan(offset, length);
    return {bytes.begin(), bytes.end()};
}

} // namespace velluto
