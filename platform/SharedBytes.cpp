#include "platform/SharedBytes.h"

#include <algorithm>
#include <memory>

namespace velluto {

namespace {

// A large block is a part of a longer one, of which the rest is never touched: to ask the allocator for the place itself leaves holes that
// no other block of this size fits into.
std::shared_ptr<std::uint8_t[]> RoomFor(std::size_t size)
{
    if (size < kLargePage) {
        return std::make_shared_for_overwrite<std::uint8_t[]>(size);
    }
    std::size_t room = size + kLargePage;
    const auto whole = std::make_shared_for_overwrite<std::uint8_t[]>(room);
    void *begin = whole.get();
    return {whole, static_cast<std::uint8_t *>(std::align(kLargePage, size, begin, room))};
}

} // namespace

SharedBytes::SharedBytes(std::size_t size) : data_(RoomFor(size)), size_(size) {}

SharedBytes::SharedBytes(std::span<const std::uint8_t> bytes) : SharedBytes(bytes.size())
{
    std::ranges::copy(bytes, data_.get());
}

} // namespace velluto
