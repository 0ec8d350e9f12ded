#include "platform/sequencer/TrackReader.h"

namespace velluto {

TrackFault TrackReader::ReadNumber(std::uint32_t &value)
{
    constexpr int kMostBytes = 4;
    value = 0;
    for (int i = 0; i < kMostBytes; ++i) {
        if (at_ == end_) {
            return TrackFault::EndsInEvent;
        }
        const std::uint8_t byte = *at_++;
        value = value << 7 | (byte & 0x7FU);
        if (byte < kFirstStatus) {
            return TrackFault::None;
        }
    }
    return TrackFault::NumberTooLong;
}

// The way from one message to the next has no branch that depends on the length of the time between them: music has short
// and long ones in no order that a processor could guess.
void TrackReader::PassChannelMessages(std::int64_t &ticks, std::int64_t &events)
{
    constexpr std::ptrdiff_t kLongest = 5; // two bytes of time, then a message with its status
    const std::uint8_t *at = at_;
    const std::uint8_t *const end = end_;
    std::uint8_t status = running_;
    std::int64_t passedTicks = 0;
    std::int64_t passed = 0;
    while (end - at >= kLongest) {
        const unsigned first = at[0];
        const unsigned second = at[1];
        if ((first & second & 0x80U) != 0) {
            break;
        }
        const unsigned isLong = first >> 7;
        const std::uint8_t *message = at + 1 + isLong;
        std::uint8_t here = status;
        if (*message >= kFirstStatus) {
            here = *message++;
        }
        if (!MidiStatus::IsChannel(here)) {
            break;
        }
        const std::size_t count = DataLength(here);
        const unsigned data = count == 2 ? message[0] | message[1] : message[0];
        if (data >= kFirstStatus) {
            break;
        }
        status = here;
        passedTicks += (first & 0x7FU) << (7 * isLong) | (second & (0U - isLong));
        ++passed;
        at = message + count;
    }
    at_ = at;
    running_ = status;
    ticks += passedTicks;
    events += passed;
}

TrackFault TrackReader::ReadData(std::span<const std::uint8_t> &data)
{
    std::uint32_t length = 0;
    if (const TrackFault fault = ReadNumber(length); fault != TrackFault::None) {
        return fault;
    }
    if (static_cast<std::size_t>(end_ - at_) < length) {
        return TrackFault::EndsInEvent;
    }
    data = {at_, length};
    at_ += length;
    return TrackFault::None;
}

TrackFault TrackReader::ReadOther(std::uint8_t status, TrackEvent &event)
{
    constexpr std::uint8_t kMetaEvent = 0xFF; // on a cable a reset
    switch (status) {
    case MidiStatus::kExclusive:
        event.kind = TrackEvent::Kind::Exclusive;
        return ReadData(event.data);
    case MidiStatus::kExclusiveEnd:
        event.kind = TrackEvent::Kind::Escape;
        return ReadData(event.data);
    case kMetaEvent:
        return ReadMeta(event);
    default:
        return TrackFault::UnknownStatus;
    }
}

TrackFault TrackReader::ReadMeta(TrackEvent &event)
{
    constexpr std::size_t kTempoLength = 3;
    if (at_ == end_) {
        return TrackFault::EndsInEvent;
    }
    event.type = *at_++;
    if (event.type >= kFirstStatus) {
        return TrackFault::HighData;
    }
    event.kind = TrackEvent::Kind::Meta;
    if (const TrackFault fault = ReadData(event.data); fault != TrackFault::None) {
        return fault;
    }
    if (event.type == MetaType::kTempo) {
        const std::span<const std::uint8_t> tempo = event.data;
        return tempo.size() == kTempoLength && (tempo[0] | tempo[1] | tempo[2]) != 0 ? TrackFault::None : TrackFault::BadTempo;
    }
    if (event.type == MetaType::kEndOfTrack) {
        event.kind = TrackEvent::Kind::End;
        if (!event.data.empty()) {
            return TrackFault::BadEnd;
        }
        return at_ == end_ ? TrackFault::None : TrackFault::EndEarly;
    }
    return TrackFault::None;
}

} // namespace velluto
