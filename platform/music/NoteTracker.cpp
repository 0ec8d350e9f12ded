#include "platform/music/NoteTracker.h"

namespace velluto {

void NoteTracker::Passed(std::span<const std::uint8_t> message)
{
    if (message.size() == 1 && message[0] == MidiStatus::kReset) {
        Clear();
    }
    if (message.size() != 3 || (message[1] | message[2]) >= kFirstStatus) {
        return;
    }
    const std::size_t channel = MidiStatus::ChannelOf(message[0]);
    switch (MidiStatus::KindOf(message[0])) {
    case MidiStatus::kNoteOff:
        sounding_[channel].reset(message[1]);
        break;
    case MidiStatus::kNoteOn:
        sounding_[channel].set(message[1], message[2] != 0);
        break;
    case MidiStatus::kControlChange:
        if (message[1] == MidiController::kSustain) {
            sustained_.set(channel, message[2] >= kPedalDown);
        } else if (message[1] == MidiController::kAllNotesOff || message[1] == MidiController::kAllSoundOff) {
            sounding_[channel].reset();
        } else if (message[1] == MidiController::kResetAll) {
            sustained_.reset(channel);
        }
        break;
    default:
        break;
    }
}

std::vector<ShortMessage> NoteTracker::Releases() const
{
    std::vector<ShortMessage> messages;
    for (std::size_t at = 0; at < sounding_.size(); ++at) {
        const int channel = static_cast<int>(at);
        for (std::size_t note = 0; note < kNotes; ++note) {
            if (sounding_[at].test(note)) {
                messages.emplace_back(MidiStatus::kNoteOff, channel, static_cast<int>(note), kReleaseVelocity);
            }
        }
        if (sustained_.test(at)) {
            messages.emplace_back(MidiStatus::kControlChange, channel, MidiController::kSustain);
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
    for (std::size_t channel = 0; channel < sounding_.size(); ++channel) {
        sounding_[channel] |= other.sounding_[channel];
    }
    sustained_ |= other.sustained_;
}

} // namespace velluto
