#include "midi/Monitor.h"

#include "midi/MIDI.h"
#include "midi/frmMsgEx.h"

#include <algorithm>
#include <array>
#include <string>

namespace velluto {

namespace {

constexpr std::size_t kWorkBufferLength = 65000;
constexpr std::size_t kCharactersPerByte = 3;
constexpr std::size_t kMostBytes = kWorkBufferLength / kCharactersPerByte;
constexpr std::string_view kLineEnd = "\r\n\r\n"; // each report ends in an empty line

void AppendHex(std::string &text, char byte)
{
    constexpr std::string_view kHex = "0123456789ABCDEF";
    const auto value = static_cast<unsigned char>(byte);
    text += kHex[value / 16U];
    text += kHex[value & 15U];
    text += ' ';
}

} // namespace

void MonitorReport(MidiState &midi, std::string_view bytes)
{
    // The menu entry is disabled while the window is open: its state is the test for an open monitor.
    if (!midi.MonitorEnabled || midi.app.frame.mnuMsgEx.enabled || midi.monitor == nullptr) {
        return;
    }
    TextBox &display = midi.monitor->Text1;
    if (bytes.empty()) {
        display.text = "";
        return;
    }
    const std::string_view shown = bytes.substr(0, std::min(bytes.size(), kMostBytes));
    std::string text;
    text.reserve(display.text.Get().size() + shown.size() * kCharactersPerByte + kLineEnd.size());
    text = display.text.Get();
    for (const char byte : shown) {
        AppendHex(text, byte);
    }
    text += kLineEnd;
    display.text = std::move(text);
}

void ReportShortMsg(MidiState &midi)
{
    const auto byte = [&midi](unsigned number) { return static_cast<char>(midi.ShortMsg >> 8U * number & 255U); };
    const std::array<char, 3> bytes{byte(0), byte(1), byte(2)};
    MonitorReport(midi, {});
    MonitorReport(midi, {bytes.data(), bytes.size()});
}

} // namespace velluto
