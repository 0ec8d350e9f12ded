// The monitor of what is sent, as hexadecimal bytes in the window frmMsgEx. Nothing here does anything without a window.
#pragma once

#include <cstdint>
#include <span>

namespace velluto {

struct MidiState;

// Appends the bytes as one line and an empty line; no bytes clear the monitor.
void MonitorReport(MidiState &midi, std::span<const std::uint8_t> bytes);
// The bytes of a message, or of the three of a click, nine at most, as one line in place of what was there.
void MonitorShow(MidiState &midi, std::span<const std::uint8_t> bytes);

} // namespace velluto
