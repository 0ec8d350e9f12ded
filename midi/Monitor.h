// The monitor of what is sent, as hexadecimal bytes in the window frmMsgEx.
#pragma once

#include <string_view>

namespace velluto {

struct MidiState;

// Appends the bytes as one line and an empty line; an empty text clears the monitor. Does nothing without a window.
void MonitorReport(MidiState &midi, std::string_view bytes);
// The three bytes of ShortMsg in place of what was there.
void ReportShortMsg(MidiState &midi);

} // namespace velluto
