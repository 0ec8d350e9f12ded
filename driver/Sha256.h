// The SHA-256 digest, so that a whole document can be compared in one line of the driver's answers.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace velluto::driver {

// 64 lower-case hexadecimal digits.
[[nodiscard]] std::string Sha256(std::span<const std::uint8_t> bytes);

} // namespace velluto::driver
