#include "platform/sequencer/SongPlayer.h"

#include <algorithm>

namespace velluto {

void SongPlayer::Open(std::shared_ptr<const Song> song)
{
    song_ = std::move(song);
    cursor_ = SongCursor(*song_);
    wanted_ = {};
    stands_ = 0;
    mode_ = SequencerMode::kStopped;
}

void SongPlayer::Close(Moment now)
{
    Stop(now);
    cursor_ = {};
    song_.reset();
    mode_ = SequencerMode::kNotReady;
}

// Where the song stands, or stood last.
Nanoseconds SongPlayer::Elapsed(Moment now) const
{
    return mode_ == SequencerMode::kPlaying ? std::clamp<Nanoseconds>(now - begin_, 0, song_->duration) : stands_;
}

std::int32_t SongPlayer::Position(Moment now) const
{
    if (!song_) {
        return 0;
    }
    const Nanoseconds elapsed = Elapsed(now);
    const bool plays = mode_ == SequencerMode::kPlaying;
    const std::int64_t position = elapsed < song_->duration ? PositionOf(*song_, TickAt(*song_, elapsed)) : song_->length;
    return static_cast<std::int32_t>(std::min<std::int64_t>(position, plays ? std::max(song_->length - 1, 0) : song_->length));
}

void SongPlayer::Play(Moment now, std::optional<std::int32_t> from)
{
    if (!song_ || (mode_ == SequencerMode::kPlaying && !from)) {
        return;
    }
    if (from) {
        Halt(now, SequencerMode::kStopped);
        Jump(std::clamp(*from, 0, song_->length));
    }
    Restore(now, from.has_value());
    begin_ = now - stands_;
    mode_ = SequencerMode::kPlaying;
}

void SongPlayer::Pause(Moment now)
{
    if (mode_ == SequencerMode::kPlaying) {
        Halt(now, SequencerMode::kPaused);
    }
}

void SongPlayer::Stop(Moment now)
{
    if (song_) {
        Halt(now, SequencerMode::kStopped);
    }
}

void SongPlayer::Halt(Moment now, int mode)
{
    if (mode_ == SequencerMode::kPlaying) {
        stands_ = Elapsed(now);
        Silence(now);
    }
    mode_ = mode;
}

// Puts the cursor at the first message of the position, and takes note of what the messages before it set.
void SongPlayer::Jump(std::int32_t position)
{
    const std::int64_t tick = std::min(TickOf(*song_, position), song_->endTick);
    stands_ = TimeOf(*song_, tick);
    cursor_ = SongCursor(*song_);
    wanted_ = {};
    while (!cursor_.AtEnd() && cursor_.Tick() < tick) {
        Absorb(wanted_, cursor_.Take());
    }
}

void SongPlayer::Restore(Moment now, bool whole)
{
    if (instrumentIsNew_) {
        told_ = {};
        whole = true;
    }
    instrumentIsNew_ = false;
    for (const ShortMessage &message : Restoring(wanted_, told_, whole)) {
        Send(message.View(), now);
    }
}

void SongPlayer::Silence(Moment now)
{
    for (const ShortMessage &message : Silencing(told_)) {
        Send(message.View(), now);
    }
}

void SongPlayer::Send(std::span<const std::uint8_t> message, Moment due)
{
    // What was late when the song was halted is due only now.
    lastDue_ = std::max(lastDue_, due);
    Absorb(told_, message);
    output_.Send(message, lastDue_);
}

SongPlayer::Step SongPlayer::Run(Moment now, int most)
{
    if (mode_ != SequencerMode::kPlaying) {
        return {};
    }
    for (int sent = 0; !cursor_.AtEnd(); ++sent) {
        const Moment due = begin_ + TimeOf(*song_, cursor_.Tick());
        if (due > now || sent == most) {
            return {.ended = false, .next = due};
        }
        const std::span<const std::uint8_t> message = cursor_.Take();
        Absorb(wanted_, message);
        Send(message, due);
    }
    const Moment end = begin_ + song_->duration;
    if (end > now) {
        return {.ended = false, .next = end};
    }
    Halt(now, SequencerMode::kStopped);
    return {.ended = true, .next = {}};
}

} // namespace velluto
