#include "midi/Monitor.h"

#include "midi/MIDI.h"
#include "midi/frmMsgEx.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace velluto {

namespace {

constexpr std::size_t kWorkBufferLength = 65000;
constexpr std::size_t kCharactersPerByte = 3;
constexpr std::size_t kMostBytes = kWorkBufferLength / kCharactersPerByte;
constexpr std::size_t kMostShown = 9;             // the three messages of a click
constexpr std::string_view kLineEnd = "\r\n\r\n"; // each report ends in an empty line

// Nothing while the monitor is closed. The menu entry is disabled while the window is open: its state is the test for that.
TextBox *Display(MidiState &midi)
{
    const bool open = midi.MonitorEnabled && !midi.app.frame.mnuMsgEx.enabled && midi.monitor != nullptr;
    return open ? &midi.monitor->Text1 : nullptr;
}

constexpr std::size_t LineLength(std::size_t bytes)
{
    return bytes * kCharactersPerByte + kLineEnd.size();
}

// Writes LineLength characters.
void WriteLine(char *at, std::span<const std::uint8_t> bytes)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    for (const std::uint8_t byte : bytes) {
        at[0] = kHex[byte / 16U];
        at[1] = kHex[byte & 15U];
        at[2] = ' ';
        at += kCharactersPerByte;
    }
    std::ranges::copy(kLineEnd, at);
}

// A line of the bytes behind what goes before it.
std::string WithLine(std::string_view before, std::span<const std::uint8_t> bytes)
{
    const std::span<const std::uint8_t> shown = bytes.first(std::min(bytes.size(), kMostBytes));
    std::string text(before.size() + LineLength(shown.size()), '\0');
    WriteLine(std::ranges::copy(before, text.data()).out, shown);
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
        std::array<char, LineLength(kMostShown)> line{};
        const std::span<const std::uint8_t> shown = bytes.first(std::min(bytes.size(), kMostShown));
        WriteLine(line.data(), shown);
        display->text.Copy(std::string_view(line.data(), LineLength(shown.size())));
    }
}

} // namespace velluto
