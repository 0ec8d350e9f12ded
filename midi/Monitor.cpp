#include "midi/Monitor.h"

#include "midi/MIDI.h"
#include "midi/frmMsgEx.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace velluto {

namespace {

constexpr std::size_t kWorkBufferLength = 65000;
constexpr std::size_t kCharactersPerByte = 3;
constexpr std::size_t kMostBytes = kWorkBufferLength / kCharactersPerByte;
constexpr std::string_view kLineEnd = "\r\n\r\n"; // each report ends in an empty line

// Nothing while the monitor is closed. The menu entry is disabled while the window is open: its state is the test for that.
TextBox *Display(MidiState &midi)
{
    const bool open = midi.MonitorEnabled && !midi.app.frame.mnuMsgEx.enabled && midi.monitor != nullptr;
    return open ? &midi.monitor->Text1 : nullptr;
}

// A line of the bytes behind what goes before it.
std::string WithLine(std::string_view before, std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    const std::span<const std::uint8_t> shown = bytes.first(std::min(bytes.size(), kMostBytes));
    std::string text(before.size() + shown.size() * kCharactersPerByte + kLineEnd.size(), ' ');
    char *at = std::ranges::copy(before, text.data()).out;
    for (const std::uint8_t byte : shown) {
        at[0] = kHex[byte / 16U];
        at[1] = kHex[byte & 15U];
        at += kCharactersPerByte;
    }
    std::ranges::copy(kLineEnd, at);
    return text;
}

} // namespace

void MonitorReport(MidiState &midi, std::span<const std::uint8_t> bytes)
{
    if (TextBox *const display = Display(midi)) {
        display->text = bytes.empty() ? std::string() : WithLine(display->text.Get(), bytes);
    }
}

void MonitorShow(MidiState &midi, std::span<const std::uint8_t> bytes)
{
    if (TextBox *const display = Display(midi)) {
        display->text = WithLine({}, bytes);
    }
}

} // namespace velluto
