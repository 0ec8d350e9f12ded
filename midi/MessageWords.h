// MIDI messages in words, for who reads the monitor. Used by the desktop.
#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace velluto {

// What the bytes of one or more messages say, in the language of the run: channels from 1, programs from 0 as they are sent. Bytes
// that make no whole message are left out.
[[nodiscard]] std::string MessagesInWords(std::span<const std::uint8_t> bytes, int linguaBase);

} // namespace velluto
