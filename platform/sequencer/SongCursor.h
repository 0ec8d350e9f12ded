// Walks the messages of a song in the order of their time: those of one tick track by track, as the tracks have them.
// Used by SongPlayer.
#pragma once

#include "platform/sequencer/Song.h"
#include "platform/sequencer/TrackReader.h"

namespace velluto {

class SongCursor {
public:
    SongCursor() = default; // at the end of no song
    // The song outlives the cursor.
    explicit SongCursor(const Song &song);

    // The tick of the next message; only where not AtEnd.
    [[nodiscard]] std::int64_t Tick() const { return static_cast<std::int64_t>(order_.front() / kMostTracks); }
    [[nodiscard]] bool AtEnd() const { return order_.empty(); }
    // Takes it: a channel message or a whole system exclusive one, valid until the next is taken. What else a file may hold
    // is no message, and is passed over: meta events, and exclusive messages that are not well formed.
    std::span<const std::uint8_t> Take();

private:
    struct Track {
        TrackReader reader;
        std::int64_t tick = 0; // of the message found
        TrackEvent found;
        std::vector<std::uint8_t> exclusive; // the exclusive message found, or the parts of one that have come
    };

    static bool Find(Track &track);
    static bool TakePart(Track &track);

    std::vector<Track> tracks_;
    std::vector<std::uint64_t> order_; // heap of the tracks that have a message: its tick times kMostTracks plus the track
    std::vector<std::uint8_t> taken_;
    ShortMessage message_;
};

} // namespace velluto
