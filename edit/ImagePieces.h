// A file image as the editing steps read it and put it together, by 1-based positions. Whoever asks for bytes that are not there is
// told by an exception.
#pragma once

#include "view/FileImage.h"

#include <cstdint>
#include <string>
#include <utility>

namespace velluto {

// Thrown where a step would read outside the image or outside a table: there is nothing there to go on with, and
// the command that meets it leaves its documents as they were. Never leaves the room.
struct OutsideImage {};

class ImagePieces {
public:
    ImagePieces() = default;
    explicit ImagePieces(FileImage image) : image_(std::move(image)) {}

    [[nodiscard]] const FileImage &Image() const { return image_; }
    [[nodiscard]] std::int64_t size() const { return static_cast<std::int64_t>(image_.size()); }
    // The byte at a 1-based position. Throws OutsideImage.
    [[nodiscard]] int At(std::int64_t position) const;
    // A copy of the bytes from a 1-based position on. Throws OutsideImage where they are not all there and where length
    // is negative; no bytes at all are there at any position.
    [[nodiscard]] std::string Text(std::int64_t position, std::int64_t length) const;

    void Append(const std::string &bytes);
    // Quotes length bytes of another image from a 1-based position on. Throws as Text does.
    void Append(const ImagePieces &source, std::int64_t position, std::int64_t length);

private:
    void Demand(std::int64_t position, std::int64_t length) const;

    FileImage image_;
};

} // namespace velluto
