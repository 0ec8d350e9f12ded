// MIDI messages as bytes: the names of statuses and controllers, and the short message. Used by whoever makes, sends, follows or
// plays one.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velluto {

inline constexpr int kMidiChannels = 16;
inline constexpr std::uint8_t kFirstStatus = 0x80; // data bytes lie below

// Those below kExclusive have the channel, 0 to 15, in their low half.
namespace MidiStatus {
inline constexpr std::uint8_t kNoteOff = 0x80;
inline constexpr std::uint8_t kNoteOn = 0x90;
inline constexpr std::uint8_t kKeyPressure = 0xA0;
inline constexpr std::uint8_t kControlChange = 0xB0;
inline constexpr std::uint8_t kProgramChange = 0xC0;
inline constexpr std::uint8_t kChannelPressure = 0xD0;
inline constexpr std::uint8_t kPitchBend = 0xE0;
inline constexpr std::uint8_t kExclusive = 0xF0;
inline constexpr std::uint8_t kQuarterFrame = 0xF1;
inline constexpr std::uint8_t kSongPosition = 0xF2;
inline constexpr std::uint8_t kSongSelect = 0xF3;
inline constexpr std::uint8_t kTuneRequest = 0xF6;
inline constexpr std::uint8_t kExclusiveEnd = 0xF7;
inline constexpr std::uint8_t kStart = 0xFA;
inline constexpr std::uint8_t kContinue = 0xFB;
inline constexpr std::uint8_t kStop = 0xFC;
inline constexpr std::uint8_t kActiveSensing = 0xFE;
inline constexpr std::uint8_t kReset = 0xFF;

[[nodiscard]] constexpr bool IsChannel(std::uint8_t status)
{
    return status >= kFirstStatus && status < kExclusive;
}
// What a channel message does, whatever its channel.
[[nodiscard]] constexpr std::uint8_t KindOf(std::uint8_t status)
{
    return status & 0xF0U;
}
[[nodiscard]] constexpr std::uint8_t ChannelOf(std::uint8_t status)
{
    return status & 0x0FU;
}
} // namespace MidiStatus

namespace MidiController {
inline constexpr std::uint8_t kBankMsb = 0;
inline constexpr std::uint8_t kModulation = 1;
inline constexpr std::uint8_t kBreath = 2;
inline constexpr std::uint8_t kDataMsb = 6;
inline constexpr std::uint8_t kVolume = 7;
inline constexpr std::uint8_t kPan = 10;
inline constexpr std::uint8_t kExpression = 11;
inline constexpr std::uint8_t kBankLsb = 32;
inline constexpr std::uint8_t kDataLsb = 38;
inline constexpr std::uint8_t kSustain = 64;
inline constexpr std::uint8_t kPortamento = 65;
inline constexpr std::uint8_t kSostenuto = 66;
inline constexpr std::uint8_t kSoft = 67;
inline constexpr std::uint8_t kHold2 = 69;
inline constexpr std::uint8_t kReleaseTime = 72;
inline constexpr std::uint8_t kAttackTime = 73;
inline constexpr std::uint8_t kReverb = 91;
inline constexpr std::uint8_t kChorus = 93;
inline constexpr std::uint8_t kDataIncrement = 96;
inline constexpr std::uint8_t kDataDecrement = 97;
inline constexpr std::uint8_t kOtherLsb = 98; // choice of a non-registered parameter
inline constexpr std::uint8_t kOtherMsb = 99;
inline constexpr std::uint8_t kRegisteredLsb = 100;
inline constexpr std::uint8_t kRegisteredMsb = 101;
inline constexpr std::uint8_t kAllSoundOff = 120;
inline constexpr std::uint8_t kResetAll = 121;
inline constexpr std::uint8_t kAllNotesOff = 123; // as do those above it, on top of what they set
} // namespace MidiController

inline constexpr std::uint8_t kPedalDown = 64;       // values from here on hold a pedal
inline constexpr std::uint8_t kReleaseVelocity = 64; // of a note that nobody lets go by hand

// The number of data bytes of a channel message.
[[nodiscard]] constexpr std::size_t DataLength(std::uint8_t status)
{
    const bool one = (status & 0xE0U) == MidiStatus::kProgramChange; // or channel pressure
    return one ? 1 : 2;
}

// Bytes of a short message with this status byte; 0 where it starts none.
[[nodiscard]] constexpr std::size_t ShortLength(std::uint8_t status)
{
    if (status < kFirstStatus) {
        return 0;
    }
    if (status < MidiStatus::kExclusive) {
        return 1 + DataLength(status);
    }
    switch (status) {
    case MidiStatus::kQuarterFrame:
    case MidiStatus::kSongSelect:
        return 2;
    case MidiStatus::kSongPosition:
        return 3;
    case MidiStatus::kExclusive:
    case 0xF4: // nobody's
    case 0xF5:
    case MidiStatus::kExclusiveEnd:
    case 0xF9:
    case 0xFD:
        return 0;
    default:
        return 1;
    }
}

// A status byte and up to two data bytes; those that its status has no use for are 0.
struct ShortMessage {
    std::array<std::uint8_t, 3> bytes{};

    constexpr ShortMessage() = default;
    // channel 0 to 15; of each number the low byte counts.
    constexpr ShortMessage(std::uint8_t kind, int channel, int data1, int data2 = 0)
        : bytes{static_cast<std::uint8_t>(kind | static_cast<std::uint8_t>(channel)), static_cast<std::uint8_t>(data1),
                static_cast<std::uint8_t>(data2)}
    {
    }
    // The bytes as they came, at most three.
    explicit constexpr ShortMessage(std::span<const std::uint8_t> from)
    {
        for (std::size_t i = 0; i < from.size() && i < bytes.size(); ++i) {
            bytes.at(i) = from[i];
        }
    }
    // The status in bits 0 to 7, the data bytes in bits 8 to 15 and 16 to 23.
    explicit constexpr ShortMessage(std::uint32_t packed)
        : bytes{static_cast<std::uint8_t>(packed), static_cast<std::uint8_t>(packed >> 8U), static_cast<std::uint8_t>(packed >> 16U)}
    {
    }
    [[nodiscard]] constexpr std::uint32_t Packed() const
    {
        return bytes[0] | static_cast<std::uint32_t>(bytes[1]) << 8U | static_cast<std::uint32_t>(bytes[2]) << 16U;
    }
    // The bytes that go over the line; none where the first is no status of a short message.
    [[nodiscard]] constexpr std::span<const std::uint8_t> View() const { return std::span(bytes).first(ShortLength(bytes[0])); }

    bool operator==(const ShortMessage &) const = default;
};

} // namespace velluto
