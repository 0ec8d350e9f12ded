#include "platform/SharedBytes.h"

#include <algorithm>
#include <new>

namespace velluto {

namespace {

// A large block begins where a large page of memory can, so that it always has as many of them as it is long.
std::shared_ptr<std::uint8_t[]> RoomFor(std::size_t size)
{
    constexpr auto kLargePage = std::size_t{1} << 21;
    if (size < kLargePage) {
        return std::make_shared_for_overwrite<std::uint8_t[]>(size);
    }
    const auto release = [](std::uint8_t *block) { ::operator delete[](block, std::align_val_t{kLargePage}); };
    return {static_cast<std::uint8_t *>(::operator new[](size, std::align_val_t{kLargePage})), release};
}

} // namespace

SharedBytes::SharedBytes(std::size_t size) : data_(RoomFor(size)), size_(size) {}

SharedBytes::SharedBytes(std::span<const std::uint8_t> bytes) : SharedBytes(bytes.size())
{
    std::ranges::copy(bytes, data_.get());
}

} // namespace velluto
