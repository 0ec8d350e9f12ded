#include "edit/ImagePieces.h"

namespace velluto {

void ImagePieces::Demand(std::int64_t position, std::int64_t length) const
{
    if (length < 0 || position < 1 || position > size() || length > size() - position + 1) {
        throw OutsideImage();
    }
}

int ImagePieces::At(std::int64_t position) const
{
    Demand(position, 1);
    return image_[static_cast<std::size_t>(position - 1)];
}

std::string ImagePieces::Text(std::int64_t position, std::int64_t length) const
{
    if (length == 0) {
        return {};
    }
    Demand(position, length);
    return image_.Text(static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length));
}

void ImagePieces::Append(const std::string &bytes)
{
    const FileImage block(std::span(reinterpret_cast<const std::uint8_t *>(bytes.data()), bytes.size()));
    image_.Append(block, 0, block.size());
}

void ImagePieces::Append(const ImagePieces &source, std::int64_t position, std::int64_t length)
{
    if (length != 0) {
        source.Demand(position, length);
        image_.Append(source.image_, static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length));
    }
}

} // namespace velluto
