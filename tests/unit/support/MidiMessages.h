// Short messages as the device gets them: status in the low byte, then the data bytes. Channels count from 0.
#pragma once

#include <cstdint>
#include <vector>

namespace velluto::test {

using Sent = std::vector<std::uint32_t>;

[[nodiscard]] inline std::uint32_t Message(std::uint32_t status, std::uint32_t first, std::uint32_t second)
{
    return status | first << 8U | second << 16U;
}
[[nodiscard]] inline std::uint32_t NoteOn(std::uint32_t note, std::uint32_t velocity = 64, std::uint32_t channel = 0)
{
    return Message(0x90 | channel, note, velocity);
}
[[nodiscard]] inline std::uint32_t NoteOff(std::uint32_t note, std::uint32_t velocity = 64, std::uint32_t channel = 0)
{
    return Message(0x80 | channel, note, velocity);
}
[[nodiscard]] inline std::uint32_t AllNotesOff(std::uint32_t channel = 0)
{
    return Message(0xB0 | channel, 123, 0);
}
[[nodiscard]] inline std::uint32_t Controller(std::uint32_t number, std::uint32_t value, std::uint32_t channel = 0)
{
    return Message(0xB0 | channel, number, value);
}
[[nodiscard]] inline std::uint32_t PitchBend(std::uint32_t value, std::uint32_t channel = 0)
{
    return Message(0xE0 | channel, 127, value);
}

} // namespace velluto::test
