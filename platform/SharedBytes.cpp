#include "platform/SharedBytes.h"

#include <algorithm>

namespace velluto {

SharedBytes::SharedBytes(std::span<const std::uint8_t> bytes) : SharedBytes(bytes.size())
{
    std::ranges::copy(bytes, data_.get());
}

} // namespace velluto
