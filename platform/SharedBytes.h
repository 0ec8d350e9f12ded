// A block of bytes that never changes once it is shared. A document's file image is one of these: handing it to
// another owner copies a pointer, and an edit makes a new block of its final size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

namespace velluto {

class SharedBytes {
public:
    SharedBytes() = default;
    // Room for size bytes, not cleared. The maker fills it through Writable() before anybody else holds it.
    explicit SharedBytes(std::size_t size) : data_(std::make_shared_for_overwrite<std::uint8_t[]>(size)), size_(size) {}
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
