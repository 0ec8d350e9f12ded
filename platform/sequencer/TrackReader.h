// Reads the events of one track of a MIDI file, one after the other. Used by ReadMidiFile, which looks at every event
// once, and by SongCursor, which plays them.
#pragma once

#include "platform/Refusal.h"
#include "platform/ShortMessage.h"

#include <algorithm>

namespace velluto {

// What is wrong with a track; None where nothing is.
using TrackFault = Refusal::Why;

struct TrackEvent {
    enum class Kind : std::uint8_t {
        Channel,   // message
        Exclusive, // data: a system exclusive message, or its first part, without its F0
        Escape,    // data: a further part of one, or bytes as they are
        Meta,      // type; data: its content
        Nothing,   // to be passed over: its time counts
        End,       // of the track
    };
    Kind kind = Kind::End;
    TrackFault flaw = TrackFault::None; // what is wrong with an event that is taken all the same, other than high data of a message
    ShortMessage message;
    std::uint8_t type = 0;
    std::span<const std::uint8_t> data;
};

namespace MetaType {
inline constexpr std::uint8_t kEndOfTrack = 0x2F;
inline constexpr std::uint8_t kTempo = 0x51;
} // namespace MetaType

// Never reads outside its bytes. The status of a channel message stays in force behind meta events and system exclusive
// messages: the format says otherwise, but writers of files in use rely on it. Of what is not well formed it makes this:
// - A data byte of a channel message above 127 counts as 127.
// - Where no status has come that could be shared, two bytes are passed over, as many as most messages have.
// - A tempo that is none is passed over, and so is whatever an end of track holds.
// All else breaks the track: a fault is returned, and nothing more is to be read.
class TrackReader {
public:
    TrackReader() = default;
    explicit TrackReader(std::span<const std::uint8_t> bytes) : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    // The two halves of an event, in turn: the time that goes before it, and the event.
    TrackFault ReadDelta(std::uint32_t &ticks);
    TrackFault ReadEvent(TrackEvent &event);

    // Passes over well-formed channel messages, from the time before one to the end of one, and adds up what it passes. Stops
    // at whatever is out of the ordinary and leaves it to the two above; a look at a whole file is several times as fast with it.
    void PassChannelMessages(std::int64_t &ticks, std::int64_t &events);

    // What has not been read yet, and another end of it.
    [[nodiscard]] const std::uint8_t *At() const { return at_; }
    void EndAt(const std::uint8_t *end) { end_ = end; }

private:
    TrackFault ReadNumber(std::uint32_t &value);
    TrackFault ReadData(std::span<const std::uint8_t> &data);
    TrackFault ReadOther(std::uint8_t status, TrackEvent &event);
    TrackFault ReadMeta(TrackEvent &event);

    const std::uint8_t *at_ = nullptr;
    const std::uint8_t *end_ = nullptr;
    std::uint8_t running_ = 0; // the status that an event may leave out; 0 for none
};

inline TrackFault TrackReader::ReadDelta(std::uint32_t &ticks)
{
    if (at_ == end_) {
        return TrackFault::EndMissing;
    }
    if (*at_ < kFirstStatus) {
        ticks = *at_++;
        return TrackFault::None;
    }
    return ReadNumber(ticks);
}

inline TrackFault TrackReader::ReadEvent(TrackEvent &event)
{
    constexpr std::uint8_t kHighest = kFirstStatus - 1;
    if (at_ == end_) {
        return TrackFault::EndsInEvent;
    }
    std::uint8_t status = running_;
    if (*at_ >= kFirstStatus) {
        status = *at_++;
        if (status >= MidiStatus::kExclusive) {
            return ReadOther(status, event);
        }
        running_ = status;
    }
    const std::size_t count = DataLength(status);
    if (static_cast<std::size_t>(end_ - at_) < count) {
        return TrackFault::EndsInEvent;
    }
    event.kind = status != 0 ? TrackEvent::Kind::Channel : TrackEvent::Kind::Nothing;
    event.flaw = status != 0 ? TrackFault::None : TrackFault::NoStatus;
    event.message.bytes = {status, std::min(at_[0], kHighest), count == 2 ? std::min(at_[1], kHighest) : std::uint8_t{0}};
    at_ += count;
    return TrackFault::None;
}

} // namespace velluto
