// Plays a song against a clock that its owner reads: what is due at a moment, where the song stands, what has to be sent so
// that a jump sounds right and a stop leaves nothing sounding. Knows no thread and no device; MachineSequencer gives it both.
#pragma once

#include "platform/Sequencer.h"
#include "platform/sequencer/ChannelState.h"
#include "platform/sequencer/SongCursor.h"

#include <memory>
#include <optional>

namespace velluto {

// A moment of a clock that only goes forward, in nanoseconds from wherever.
using Moment = Nanoseconds;

// Takes the messages of a song: channel messages and whole system exclusive ones.
class SongOutput {
public:
    virtual ~SongOutput() = default;
    // The moment at which the message is due, never before that of the message before.
    virtual void Send(std::span<const std::uint8_t> message, Moment due) = 0;
};

class SongPlayer {
public:
    explicit SongPlayer(SongOutput &output) : output_(output) {}

    // The song stands at its beginning, stopped. What was open before was closed.
    void Open(std::shared_ptr<const Song> song);
    void Close(Moment now);

    // Goes on from where the song stands, or from a position (brought into the song where it lies outside). Does nothing
    // where it plays already and no position is given.
    void Play(Moment now, std::optional<std::int32_t> from);
    void Pause(Moment now); // of a song that plays
    void Stop(Moment now);

    // The instrument was switched off and on: the next play tells it everything.
    void InstrumentIsNew() { instrumentIsNew_ = true; }

    struct Step {
        bool ended = false;         // the end of the song was reached: it has stopped
        std::optional<Moment> next; // when to step again; nothing while nothing plays
    };
    // Sends what is due, at most so many messages: where more is due, next is not after now.
    Step Run(Moment now, int most);

    [[nodiscard]] int Mode() const { return mode_; } // a SequencerMode
    // Below Length while the song plays.
    [[nodiscard]] std::int32_t Position(Moment now) const;
    [[nodiscard]] std::int32_t Length() const { return song_ ? song_->length : 0; }

private:
    [[nodiscard]] Nanoseconds Elapsed(Moment now) const;
    void Halt(Moment now, int mode);
    void Jump(std::int32_t position);
    void Restore(Moment now, bool whole);
    void Silence(Moment now);
    void Send(std::span<const std::uint8_t> message, Moment due);

    SongOutput &output_;
    std::shared_ptr<const Song> song_;
    SongCursor cursor_;
    int mode_ = SequencerMode::kNotReady;
    Moment begin_ = 0;       // while it plays: the moment at which the song would have begun
    Nanoseconds stands_ = 0; // while it does not: the time in the song
    Moment lastDue_ = 0;     // of what was sent last
    ChannelStates wanted_;   // by the song, at the cursor
    ChannelStates told_;     // to the instrument
    bool instrumentIsNew_ = true;
};

} // namespace velluto
