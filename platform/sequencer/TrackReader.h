// Reads the events of one track of a MIDI file, one after the other. Used by ReadMidiFile, which looks at every event
// once, and by SongCursor, which plays them.
#pragma once

#include "platform/sequencer/Refusal.h"

#include <array>
#include <cstdint>
#include <span>

namespace velluto {

// What is wrong with a track; None where nothing is.
using TrackFault = Refusal::Why;

struct TrackEvent {
    enum class Kind : std::uint8_t {
        Channel,   // bytes: status and one or two data bytes
        Exclusive, // data: a system exclusive message, or its first part, without its F0
        Escape,    // data: a further part of one, or bytes as they are
        Meta,      // bytes[1]: its type; data: its content
        End,       // of the track
    };
    Kind kind = Kind::End;
    std::array<std::uint8_t, 3> bytes{};
    std::uint8_t length = 0; // of a channel message: 2 or 3
    std::span<const std::uint8_t> data;
};

namespace MetaType {
inline constexpr std::uint8_t kEndOfTrack = 0x2F;
inline constexpr std::uint8_t kTempo = 0x51;
} // namespace MetaType

// Never reads outside its bytes. After a fault nothing more is to be read. The status of a channel message stays in force
// behind meta events and system exclusive messages: the format says otherwise, but writers of files in use rely on it.
class TrackReader {
public:
    TrackReader() = default;
    explicit TrackReader(std::span<const std::uint8_t> bytes) : at_(bytes.data()), end_(bytes.data() + bytes.size()) {}

    // The two halves of an event, in turn: the time that goes before it, and the event.
    TrackFault ReadDelta(std::uint32_t &ticks);
    TrackFault ReadEvent(TrackEvent &event);

    // Passes over well-formed channel messages, from the time before one to the end of one, and adds up what it passes. Stops
    // at whatever is out of the ordinary and leaves it to the two above; a look at a whole file is twice as fast with it.
    void PassChannelMessages(std::int64_t &ticks, std::int64_t &events);

private:
    TrackFault ReadNumber(std::uint32_t &value);
    TrackFault ReadData(std::span<const std::uint8_t> &data);
    TrackFault ReadOther(std::uint8_t status, TrackEvent &event);
    TrackFault ReadMeta(TrackEvent &event);

    const std::uint8_t *at_ = nullptr;
    const std::uint8_t *end_ = nullptr;
    std::uint8_t running_ = 0; // the status that an event may leave out; 0 for none
};

// The number of data bytes of a channel message.
inline std::size_t DataLength(std::uint8_t status)
{
    const bool one = (status & 0xE0) == 0xC0; // program change and channel pressure
    return one ? 1 : 2;
}

inline TrackFault TrackReader::ReadDelta(std::uint32_t &ticks)
{
    if (at_ == end_) {
        return TrackFault::EndMissing;
    }
    if (*at_ < 0x80) {
        ticks = *at_++;
        return TrackFault::None;
    }
    return ReadNumber(ticks);
}

inline TrackFault TrackReader::ReadEvent(TrackEvent &event)
{
    if (at_ == end_) {
        return TrackFault::EndsInEvent;
    }
    std::uint8_t status = running_;
    if (*at_ >= 0x80) {
        status = *at_++;
        if (status >= 0xF0) {
            return ReadOther(status, event);
        }
        running_ = status;
    } else if (status == 0) {
        return TrackFault::NoStatus;
    }
    const std::size_t count = DataLength(status);
    if (static_cast<std::size_t>(end_ - at_) < count) {
        return TrackFault::EndsInEvent;
    }
    event.kind = TrackEvent::Kind::Channel;
    event.bytes = {status, at_[0], count == 2 ? at_[1] : std::uint8_t{0}};
    event.length = static_cast<std::uint8_t>(1 + count);
    at_ += count;
    return ((event.bytes[1] | event.bytes[2]) & 0x80) == 0 ? TrackFault::None : TrackFault::HighData;
}

} // namespace velluto
