#include "platform/sequencer/TrackReader.h"
#include "platform/sequencer/HighBits.h"

#include <bit>

namespace velluto {

namespace {

// A place in a block, between two messages.
struct Place {
    const std::uint8_t *at = nullptr;
    std::uint64_t high = 0; // HighBits from there on
    std::uint8_t status = 0;
    std::int64_t ticks = 0;
};

// Goes on behind a well-formed message of so many data bytes with a time of one or two bytes; false, and no further, where
// there is none. The way from one message to the next goes through the high bits alone, which are in a register, and has no
// branch that depends on the length of the time: music has short and long ones in no order that a processor could guess, and
// a wait for each byte in memory would be most of the work.
template <std::size_t Data>
bool Pass(Place &place)
{
    constexpr std::uint64_t kLow = (std::uint64_t{2} << Data) - 1; // the last byte of a time, and data behind it
    constexpr std::uint64_t kWithStatus = kLow << 1 | 1U;
    constexpr std::uint64_t kStatus = 2;
    const unsigned isLong = place.high & 1U;
    std::uint64_t high = place.high >> isLong;
    const std::uint8_t *last = place.at + isLong; // byte of the time
    if ((high & kLow) != 0) {
        const std::uint8_t status = last[1];
        if (!MidiStatus::IsChannel(status) || DataLength(status) != Data || (high & kWithStatus) != kStatus) {
            return false;
        }
        place.status = status;
        high >>= 1;
        ++last;
    }
    place.ticks += (place.at[0] & 0x7FU) << (7 * isLong) | (place.at[1] & (0U - isLong));
    place.high = high >> (1 + Data);
    place.at = last + 1 + Data;
    return true;
}

constexpr int kMessages = 12; // of at most five bytes: as many as a block holds in any case

// Returns how many messages were passed.
template <std::size_t Data>
int PassSome(Place &place)
{
    int passed = 0;
#pragma GCC unroll 12
    for (; passed < kMessages; ++passed) {
        if (!Pass<Data>(place)) {
            break;
        }
    }
    return passed;
}

} // namespace

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

void TrackReader::PassChannelMessages(std::int64_t &ticks, std::int64_t &events)
{
    if constexpr (std::endian::native != std::endian::little) {
        return; // slower, and the same in the end
    }
    for (int passed = kMessages; passed == kMessages && running_ != 0 && end_ - at_ >= kBlock;) {
        Place place{at_, HighBits(at_), running_};
        passed = DataLength(running_) == 2 ? PassSome<2>(place) : PassSome<1>(place);
        at_ = place.at;
        running_ = place.status;
        ticks += place.ticks;
        events += passed;
    }
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
    event.flaw = TrackFault::None;
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
    event.kind = TrackEvent::Kind::Meta;
    event.flaw = event.type < kFirstStatus ? TrackFault::None : TrackFault::HighData;
    if (const TrackFault fault = ReadData(event.data); fault != TrackFault::None) {
        return fault;
    }
    const std::span<const std::uint8_t> data = event.data;
    if (event.type == MetaType::kTempo && (data.size() != kTempoLength || (data[0] | data[1] | data[2]) == 0)) {
        event.kind = TrackEvent::Kind::Nothing;
        event.flaw = TrackFault::BadTempo;
    } else if (event.type == MetaType::kEndOfTrack) {
        event.kind = TrackEvent::Kind::End;
        event.flaw = data.empty() ? TrackFault::None : TrackFault::BadEnd;
    }
    return TrackFault::None;
}

} // namespace velluto
