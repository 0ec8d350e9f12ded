// A file image that an edit reads from or puts together: a row of pieces, each quoted from a block of bytes that it keeps
// alive. Quoting moves no byte, so an edit may rebuild an image many times over and copy the bodies once, at its end.
#pragma once

#include "files/Korf.h"
#include "view/Tag.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velluto {

// Thrown where a step would read outside the image or outside a table: there is nothing there to go on with, and
// the command that meets it leaves its documents as they were. Never leaves the room.
struct OutsideImage {};

class ImagePieces {
public:
    ImagePieces() = default;
    explicit ImagePieces(const FileImage &image) { Append(image); }

    [[nodiscard]] std::int64_t size() const { return size_; }
    // The byte at a 1-based position. Throws OutsideImage.
    [[nodiscard]] int At(std::int64_t position) const;
    // A copy of the bytes from a 1-based position on. Throws OutsideImage where they are not all there and where length
    // is negative; no bytes at all are there at any position.
    [[nodiscard]] std::string Text(std::int64_t position, std::int64_t length) const;

    void Append(const FileImage &block);
    void Append(const std::string &bytes) { Append(FileImage(Bytes(bytes))); }
    // Quotes length bytes of another image from a 1-based position on. Throws as Text does.
    void Append(const ImagePieces &source, std::int64_t position, std::int64_t length);

    // The whole image in one block: a single copy of each byte.
    [[nodiscard]] FileImage Whole() const;

private:
    struct Piece {
        FileImage block;
        std::size_t offset = 0;
        std::size_t length = 0;
        std::int64_t end = 0; // how much of the image lies before the piece's end
    };
    static ImageView Bytes(const std::string &text) { return {reinterpret_cast<const std::uint8_t *>(text.data()), text.size()}; }
    [[nodiscard]] std::vector<Piece>::const_iterator PieceWith(std::int64_t position) const;
    void Quote(const FileImage &block, std::size_t offset, std::size_t length);
    // Calls take(piece, offset in its block, length) for each stretch of the wanted bytes.
    template <class Take>
    void Walk(std::int64_t position, std::int64_t length, Take take) const;

    std::vector<Piece> pieces_;
    std::int64_t size_ = 0;
};

} // namespace velluto
