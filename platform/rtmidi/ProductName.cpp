#include "platform/rtmidi/ProductName.h"

#include "platform/rtmidi/MidiPorts.h"

#include <algorithm>
#include <cstddef>

namespace velluto {

namespace {

std::uint8_t ByteAt(std::string_view text, std::size_t at)
{
    return static_cast<std::uint8_t>(text[at]);
}

// Length in bytes of the well-formed character at the position, or 0.
std::size_t CharacterLength(std::string_view text, std::size_t at)
{
    struct Form {
        std::uint8_t low, high; // range of the first byte
        std::uint8_t secondLow, secondHigh;
        std::size_t length;
    };
    static constexpr Form kForms[] = {{0x20, 0x7E, 0, 0, 1},       {0xC2, 0xDF, 0x80, 0xBF, 2}, {0xE0, 0xE0, 0xA0, 0xBF, 3},
                                      {0xE1, 0xEC, 0x80, 0xBF, 3}, {0xED, 0xED, 0x80, 0x9F, 3}, {0xEE, 0xEF, 0x80, 0xBF, 3},
                                      {0xF0, 0xF0, 0x90, 0xBF, 4}, {0xF1, 0xF3, 0x80, 0xBF, 4}, {0xF4, 0xF4, 0x80, 0x8F, 4}};
    const std::uint8_t first = ByteAt(text, at);
    for (const Form &form : kForms) {
        if (first < form.low || first > form.high) {
            continue;
        }
        if (at + form.length > text.size()) {
            return 0;
        }
        for (std::size_t i = 1; i < form.length; ++i) {
            const std::uint8_t byte = ByteAt(text, at + i);
            if (byte < (i == 1 ? form.secondLow : 0x80) || byte > (i == 1 ? form.secondHigh : 0xBF)) {
                return 0;
            }
        }
        return form.length;
    }
    return 0;
}

// What is no UTF-8 and no character to be shown replaced.
std::string Cleaned(std::string_view text)
{
    std::string clean;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = CharacterLength(text, at);
        if (length == 0) {
            clean += '?';
            ++at;
        } else {
            clean += text.substr(at, length);
            at += length;
        }
    }
    return clean;
}

bool IsInsideCharacter(const std::string &text, std::size_t at)
{
    return (ByteAt(text, at) & 0xC0U) == 0x80U;
}

// At most so many bytes of whole characters, with what tells ports apart: not twice the client's name, but the end.
std::string Shortened(std::string name, std::size_t most)
{
    constexpr std::string_view kLeftOut = "...";
    const std::size_t colon = name.find(':');
    const bool isRepeated = colon != std::string::npos && name.compare(colon + 1, colon, name, 0, colon) == 0;
    if (name.size() > most && isRepeated) {
        name.erase(0, colon + 1);
    }
    if (name.size() <= most) {
        return name;
    }
    std::size_t tail = name.size() - most / 2;
    while (IsInsideCharacter(name, tail)) {
        ++tail;
    }
    std::size_t head = most - most / 2 - kLeftOut.size();
    while (IsInsideCharacter(name, head)) {
        --head;
    }
    return name.substr(0, head).append(kLeftOut).append(name, tail);
}

} // namespace

MidiDeviceCaps ProductName(std::string_view portName)
{
    MidiDeviceCaps caps;
    std::ranges::copy(Shortened(Cleaned(portName), caps.name.size()), caps.name.begin());
    return caps;
}

bool IsOwnPort(std::string_view portName)
{
    const std::string_view own = kMidiClientName;
    if (!portName.starts_with(own)) {
        return false;
    }
    portName.remove_prefix(own.size());
    const std::size_t colon = portName.find(':');
    if (colon == 0 || colon == std::string_view::npos) {
        return colon == 0;
    }
    const std::string_view number = portName.substr(0, colon);
    return number.size() > 1 && number.front() == '-' && std::ranges::all_of(number.substr(1), [](char c) { return c >= '0' && c <= '9'; });
}

} // namespace velluto
