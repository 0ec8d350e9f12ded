// A block of bytes that never changes once it is shared. Files that are read whole are these: handing one to another
// owner copies a pointer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace velluto {

// The bytes of one file, in runs that follow one another. Holds none of them.
using ByteRuns = std::vector<std::span<const std::uint8_t>>;

// Bytes of a large page of memory. A block that is no shorter begins where one can, so that it has as many of them as it is long.
inline constexpr std::size_t kLargePage = std::size_t{1} << 21;

class SharedBytes {
public:
    SharedBytes() = default;
    // Room for size bytes, not cleared. The maker fills it through Writable() before anybody else holds it.
    explicit SharedBytes(std::size_t size);
    explicit SharedBytes(std::span<const std::uint8_t> bytes);

    [[nodiscard]] std::size_t size() const { return size_; }
    [[nodiscard]] bool empty() const { return size_ == 0; }
    [[nodiscard]] std::span<const std::uint8_t> View() const { return {data_.get(), size_}; }
    [[nodiscard]] std::span<std::uint8_t> Writable() { return {data_.get(), size_}; }

private:
    std::shared_ptr<std::uint8_t[]> data_;
    std::size_t size_ = 0;
};

} // namespace velluto
