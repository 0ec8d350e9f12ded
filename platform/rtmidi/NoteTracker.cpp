#include "platform/rtmidi/NoteTracker.h"

#include "platform/MidiDevices.h"
#include "platform/rtmidi/MidiPorts.h"

namespace velluto {

namespace {

constexpr std::uint8_t kStatusMask = 0xF0;
constexpr std::uint8_t kNoteOff = 0x80;
constexpr std::uint8_t kNoteOn = 0x90;
constexpr std::uint8_t kControlChange = 0xB0;
constexpr std::uint8_t kSystemReset = 0xFF;
constexpr std::uint8_t kSustain = 64;
constexpr std::uint8_t kPedalDown = 64; // values from here on hold the pedal
constexpr std::uint8_t kAllSoundOff = 120;
constexpr std::uint8_t kResetAllControllers = 121;
constexpr std::uint8_t kAllNotesOff = 123;

} // namespace

void NoteTracker::Passed(std::span<const std::uint8_t> message)
{
    if (message.size() == 1 && message[0] == kSystemReset) {
        Clear();
    }
    if (message.size() != 3 || ((message[1] | message[2]) & 0x80) != 0) {
        return;
    }
    const std::size_t channel = message[0] & 0x0F;
    switch (message[0] & kStatusMask) {
    case kNoteOff:
        sounding_[channel].reset(message[1]);
        break;
    case kNoteOn:
        sounding_[channel].set(message[1], message[2] != 0);
        break;
    case kControlChange:
        if (message[1] == kSustain) {
            sustained_.set(channel, message[2] >= kPedalDown);
        } else if (message[1] == kAllNotesOff || message[1] == kAllSoundOff) {
            sounding_[channel].reset();
        } else if (message[1] == kResetAllControllers) {
            sustained_.reset(channel);
        }
        break;
    default:
        break;
    }
}

std::vector<std::array<std::uint8_t, 3>> NoteTracker::Releases() const
{
    constexpr std::uint8_t kReleaseVelocity = 64;
    std::vector<std::array<std::uint8_t, 3>> messages;
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        for (std::size_t note = 0; note < kNotes; ++note) {
            if (sounding_[channel].test(note)) {
                messages.push_back({static_cast<std::uint8_t>(kNoteOff | channel), static_cast<std::uint8_t>(note), kReleaseVelocity});
            }
        }
        if (sustained_.test(channel)) {
            messages.push_back({static_cast<std::uint8_t>(kControlChange | channel), kSustain, 0});
        }
    }
    return messages;
}

bool NoteTracker::Silent() const
{
    for (const auto &notes : sounding_) {
        if (notes.any()) {
            return false;
        }
    }
    return sustained_.none();
}

void NoteTracker::Clear()
{
    sounding_ = {};
    sustained_.reset();
}

void NoteTracker::Add(const NoteTracker &other)
{
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
        sounding_[channel] |= other.sounding_[channel];
    }
    sustained_ |= other.sustained_;
}

bool Silence(OutputPort &port, NoteTracker &notes)
{
    for (const auto &message : notes.Releases()) {
        if (port.Send(message) != MidiCode::kSuccess) {
            return false;
        }
    }
    notes.Clear();
    return true;
}

} // namespace velluto
