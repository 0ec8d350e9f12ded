#include "platform/sequencer/Song.h"

#include <algorithm>
#include <limits>

namespace velluto {

namespace {

constexpr std::int64_t kMicrosecond = 1000; // in nanoseconds

// An amount times a ratio, rounded down. No product leaves 64 bits where the result is at most kLongestSong.
std::int64_t Scaled(std::int64_t amount, Ratio by)
{
    return amount / by.below * by.above + amount % by.below * by.above / by.below;
}

std::int64_t ScaledUp(std::int64_t amount, Ratio by)
{
    return amount / by.below * by.above + (amount % by.below * by.above + by.below - 1) / by.below;
}

// Rounded up, so that the tick has come at its time.
Nanoseconds TimeIn(const TempoStretch &stretch, std::int64_t tick)
{
    return stretch.begin + ScaledUp(tick - stretch.tick, stretch.tickLength);
}

bool IsTooLong(std::int64_t ticks, Ratio tickLength)
{
    return ticks / tickLength.below > kLongestSong / tickLength.above;
}

// The time of a tick in or behind the last stretch; false where it is beyond kLongestSong.
bool Extend(const std::vector<TempoStretch> &tempo, std::int64_t tick, Nanoseconds &time)
{
    const TempoStretch &last = tempo.back();
    if (IsTooLong(tick - last.tick, last.tickLength)) {
        return false;
    }
    time = TimeIn(last, tick);
    return time <= kLongestSong;
}

} // namespace

bool SetTime(Song &song, const TimeDivision &division, const std::vector<TempoChange> &changes, std::int64_t endTick)
{
    constexpr std::int64_t kPositionsPerBeat = 4;
    constexpr std::int64_t kPositionsPerSecond = 10;
    const Ratio perSecond = division.ticksPerSecond;
    const auto beat = [&](std::uint32_t microseconds) { return Ratio{microseconds * kMicrosecond, division.ticksPerBeat}; };
    song.endTick = endTick;
    song.positions =
        division.inFrames ? Ratio{kPositionsPerSecond * perSecond.below, perSecond.above} : Ratio{kPositionsPerBeat, division.ticksPerBeat};
    song.tempo = {{0, 0, division.inFrames ? Ratio{kSecond * perSecond.below, perSecond.above} : beat(kTempoAtStart)}};
    for (const TempoChange &change : changes) {
        if (division.inFrames || change.tick >= endTick) {
            break;
        }
        TempoStretch next{change.tick, 0, beat(change.microsecondsPerBeat)};
        if (!Extend(song.tempo, change.tick, next.begin)) {
            return false;
        }
        if (song.tempo.back().tick == change.tick) {
            song.tempo.pop_back();
        }
        song.tempo.push_back(next);
    }
    if (!Extend(song.tempo, endTick, song.duration)) {
        return false;
    }
    const std::int64_t length = ScaledUp(endTick, song.positions);
    song.length = static_cast<std::int32_t>(length);
    return length <= std::numeric_limits<std::int32_t>::max();
}

std::int64_t PositionOf(const Song &song, std::int64_t tick)
{
    return Scaled(tick, song.positions);
}

std::int64_t TickOf(const Song &song, std::int32_t position)
{
    return ScaledUp(position, {song.positions.below, song.positions.above});
}

Nanoseconds TimeOf(const Song &song, std::int64_t tick)
{
    const auto next = std::ranges::upper_bound(song.tempo, tick, {}, &TempoStretch::tick);
    return TimeIn(*(next - 1), tick);
}

std::int64_t TickAt(const Song &song, Nanoseconds time)
{
    const auto next = std::ranges::upper_bound(song.tempo, time, {}, &TempoStretch::begin);
    const TempoStretch &stretch = *(next - 1);
    const Ratio length = stretch.tickLength;
    return stretch.tick + Scaled(time - stretch.begin, {length.below, length.above});
}

} // namespace velluto
