// A document's file image: a row of pieces, each quoted from a block of bytes that it keeps alive. Handing it to another owner and
// putting one together from others moves no byte of the bodies, so that windows, clipboard and edits share what they have in common.
#pragma once

#include "platform/SharedBytes.h"

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velluto {

class ImageView;

class FileImage {
public:
    FileImage() = default;
    explicit FileImage(const SharedBytes &block) { Quote(block, 0, block.size()); }
    explicit FileImage(std::span<const std::uint8_t> bytes) : FileImage(SharedBytes(bytes)) {}

    [[nodiscard]] std::size_t size() const { return pieces_.empty() ? 0 : pieces_.back().end; }
    [[nodiscard]] bool empty() const { return pieces_.empty(); }
    // The byte at a 0-based offset below size().
    [[nodiscard]] std::uint8_t operator[](std::size_t offset) const;
    // A copy of the bytes from a 0-based offset on. They must all be there.
    [[nodiscard]] std::string Text(std::size_t offset, std::size_t length) const;
    // What readers go by. Good while this image lives and is not added to.
    [[nodiscard]] ImageView View() const;
    // What is written to a file. Good for as long.
    [[nodiscard]] ByteRuns Runs() const;

    // Quotes length bytes of an image from a 0-based offset on. They must all be there.
    void Append(const FileImage &source, std::size_t offset, std::size_t length);
    // Where more than half of what the pieces keep alive is not the image's own, a copy that keeps only that alive; else the image.
    [[nodiscard]] FileImage Thrifty() const;

private:
    struct Piece {
        SharedBytes block;
        std::size_t offset = 0; // in the block
        std::size_t length = 0; // never 0
        std::size_t end = 0;    // bytes of the image up to the piece's end
        [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return block.View().subspan(offset, length); }
    };
    [[nodiscard]] std::vector<Piece>::const_iterator PieceWith(std::size_t offset) const;
    // Calls take(piece, offset in its block, length) for each stretch of the wanted bytes.
    template <class Take>
    void Walk(std::size_t offset, std::size_t length, Take take) const;
    void Quote(const SharedBytes &block, std::size_t offset, std::size_t length);
    [[nodiscard]] std::size_t KeptAlive() const;

    std::vector<Piece> pieces_;
};

// The bytes of an image for those who read it: one block, or the pieces of a FileImage. Holds neither.
class ImageView {
public:
    ImageView() = default;
    template <std::convertible_to<std::span<const std::uint8_t>> Block>
    ImageView(const Block &block) : block_(block), size_(block_.size()) // NOLINT(google-explicit-constructor): as a span is
    {
    }
    explicit ImageView(const FileImage &image) : pieces_(&image), size_(image.size()) {}

    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    // The byte at a 0-based offset below size().
    [[nodiscard]] std::uint8_t operator[](std::size_t offset) const { return pieces_ == nullptr ? block_[offset] : (*pieces_)[offset]; }
    // A copy of the bytes from a 0-based offset on. They must all be there.
    [[nodiscard]] std::string Text(std::size_t offset, std::size_t length) const;

private:
    std::span<const std::uint8_t> block_;
    const FileImage *pieces_ = nullptr; // instead of the block
    std::size_t size_ = 0;
};

} // namespace velluto
