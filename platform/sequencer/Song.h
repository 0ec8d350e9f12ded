// A MIDI file that was read, and its time: ticks as the file counts them, nanoseconds from the song's
// beginning, and the positions that the sequencer shows. Made by ReadMidiFile; played by SongCursor and SongPlayer.
#pragma once

#include "platform/SharedBytes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace velluto {

using Nanoseconds = std::int64_t;

inline constexpr Nanoseconds kSecond = 1'000'000'000;
inline constexpr std::size_t kMostTracks = 1024;
inline constexpr Nanoseconds kLongestSong = 24 * 3600 * kSecond;

// A quotient of whole numbers, both above 0.
struct Ratio {
    std::int64_t above = 1;
    std::int64_t below = 1;
};

// From a tick on, each tick lasts so many nanoseconds.
struct TempoStretch {
    std::int64_t tick = 0;
    Nanoseconds begin = 0;
    Ratio tickLength;
};

struct SongTrack {
    std::span<const std::uint8_t> events; // whole ones, within the file's bytes
    std::int64_t begin = 0;               // the tick from which their times count
};

struct Song {
    SharedBytes file;
    std::vector<SongTrack> tracks;
    std::vector<TempoStretch> tempo; // at least one, the first at tick 0; ticks only rise
    Ratio positions;                 // for one tick
    std::int64_t endTick = 0;        // of the last end of a track
    Nanoseconds duration = 0;
    std::int32_t length = 0; // in positions
};

// A position is a sixteenth note (a quarter of a beat), or a tenth of a second in a file that counts in frames. The song is
// at a position from its first tick on. Its length is rounded up: while it plays the position stays below the length.
std::int64_t PositionOf(const Song &song, std::int64_t tick);
// The first tick of the position.
std::int64_t TickOf(const Song &song, std::int32_t position);
Nanoseconds TimeOf(const Song &song, std::int64_t tick);
// The last tick that has come at that time.
std::int64_t TickAt(const Song &song, Nanoseconds time);

// A tempo as the file sets it: from the tick on, a beat lasts so long.
struct TempoChange {
    std::int64_t tick = 0;
    std::uint32_t microsecondsPerBeat = 0;
};

inline constexpr std::uint32_t kTempoAtStart = 500'000; // 120 beats a minute, until the file says otherwise

// How a file counts its time.
struct TimeDivision {
    bool inFrames = false;
    std::int64_t ticksPerBeat = 1; // of a file that counts in beats
    Ratio ticksPerSecond;          // of a file that counts in frames
};

// Sets tempo, positions, endTick, duration and length. The changes are in the order in which they count: of several at one
// tick the last. False where the song is longer than kLongestSong or its length is no 32-bit number.
bool SetTime(Song &song, const TimeDivision &division, const std::vector<TempoChange> &changes, std::int64_t endTick);

} // namespace velluto
