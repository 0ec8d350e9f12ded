#include "platform/sequencer/SongCursor.h"

#include <algorithm>
#include <functional>

namespace velluto {

namespace {

using MidiStatus::kExclusive;
using MidiStatus::kExclusiveEnd;

// Orders the tracks: by the tick of their message, then by their number.
std::uint64_t Place(std::int64_t tick, std::size_t track)
{
    return static_cast<std::uint64_t>(tick) * kMostTracks + track;
}

bool IsWhole(std::span<const std::uint8_t> message)
{
    return message.size() >= 2 && message.front() == kExclusive && message.back() == kExclusiveEnd &&
           std::all_of(message.begin() + 1, message.end() - 1, [](std::uint8_t byte) { return byte < kFirstStatus; });
}

} // namespace

SongCursor::SongCursor(const Song &song)
{
    tracks_.reserve(song.tracks.size());
    for (const SongTrack &from : song.tracks) {
        Track track;
        track.reader = TrackReader(from.events);
        track.tick = from.begin;
        if (Find(track)) {
            order_.push_back(Place(track.tick, tracks_.size()));
        }
        tracks_.push_back(std::move(track));
    }
    std::ranges::make_heap(order_, std::greater());
}

// Adds the event's data to the track's exclusive message. True where that is whole now.
bool SongCursor::TakePart(Track &track)
{
    std::vector<std::uint8_t> &message = track.exclusive;
    if (track.found.kind == TrackEvent::Kind::Exclusive) {
        message = {kExclusive};
    }
    message.insert(message.end(), track.found.data.begin(), track.found.data.end());
    const bool goesOn = !message.empty() && message.front() == kExclusive && message.back() != kExclusiveEnd;
    if (goesOn || IsWhole(message)) {
        return !goesOn;
    }
    message.clear();
    return false;
}

// Reads on to the track's next message. False at its end.
bool SongCursor::Find(Track &track)
{
    for (;;) {
        std::uint32_t delta = 0;
        if (track.reader.ReadDelta(delta) != TrackFault::None || track.reader.ReadEvent(track.found) != TrackFault::None) {
            return false;
        }
        track.tick += delta;
        switch (track.found.kind) {
        case TrackEvent::Kind::Channel:
            track.exclusive.clear(); // one that was begun is broken off
            return true;
        case TrackEvent::Kind::Exclusive:
        case TrackEvent::Kind::Escape:
            if (TakePart(track)) {
                return true;
            }
            break;
        case TrackEvent::Kind::Meta:
        case TrackEvent::Kind::Nothing:
            break;
        case TrackEvent::Kind::End:
            return false;
        }
    }
}

std::span<const std::uint8_t> SongCursor::Take()
{
    std::ranges::pop_heap(order_, std::greater());
    const std::size_t number = order_.back() % kMostTracks;
    Track &track = tracks_[number];
    std::span<const std::uint8_t> message;
    if (track.found.kind == TrackEvent::Kind::Channel) {
        message_ = track.found.message;
        message = message_.View();
    } else {
        taken_.swap(track.exclusive);
        track.exclusive.clear();
        message = taken_;
    }
    if (Find(track)) {
        order_.back() = Place(track.tick, number);
        std::ranges::push_heap(order_, std::greater());
    } else {
        order_.pop_back();
    }
    return message;
}

} // namespace velluto
