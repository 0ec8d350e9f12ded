#include "standin/StandinSequencer.h"

#include <algorithm>

namespace velluto {

Refusal InWords(std::string words)
{
    return {Refusal::Why::Other, 0, 0, std::move(words)};
}

std::int32_t StandinSequencer::Position() const
{
    const auto played = elapsed_ / playRate_;
    return static_cast<std::int32_t>(std::min<std::int64_t>(start_ + played, length_));
}

void StandinSequencer::SetFrom(std::int32_t position)
{
    from_ = position;
    fromFresh_ = true;
}

std::optional<StandinSequencer::Milliseconds> StandinSequencer::UntilEnd() const
{
    if (mode_ != SequencerMode::kPlaying) {
        return std::nullopt;
    }
    return std::max((length_ - start_) * playRate_ - elapsed_, Milliseconds::zero());
}

void StandinSequencer::Advance(Milliseconds passed)
{
    if (mode_ != SequencerMode::kPlaying) {
        return;
    }
    elapsed_ += passed;
    if (UntilEnd() == Milliseconds::zero()) {
        Halt(SequencerMode::kStopped);
        done_.push_back(NotifyCode::kNormalEnd);
    }
}

bool StandinSequencer::Deliver()
{
    if (done_.empty()) {
        return false;
    }
    const int code = done_.front();
    done_.pop_front();
    if (Done) {
        Done(code);
    }
    return true;
}

void StandinSequencer::Release()
{
    command_.clear();
    mode_ = SequencerMode::kNotReady;
    length_ = 0;
    Halt(mode_);
    done_.clear();
    Done = nullptr;
}

void StandinSequencer::SetCommand(std::string_view word)
{
    command_ = word;
    error_ = 0;
    refusal_ = {};
    if (word == "open") {
        Open();
    } else if (word == "play") {
        Play();
    } else if (word == "pause") {
        if (mode_ == SequencerMode::kPlaying) {
            Halt(SequencerMode::kPaused);
        }
    } else if (word == "stop" || word == "close") {
        if (mode_ == SequencerMode::kPlaying) {
            done_.push_back(NotifyCode::kAborted);
        }
        if (mode_ != SequencerMode::kNotReady) {
            Halt(word == "stop" ? SequencerMode::kStopped : SequencerMode::kNotReady);
        }
        length_ = word == "stop" ? length_ : 0;
    } else {
        Fail(SequencerError::kUnknownCommand, InWords("unknown command"));
    }
}

// A file that is open makes way for the next one.
void StandinSequencer::Open()
{
    if (mode_ == SequencerMode::kPlaying) {
        done_.push_back(NotifyCode::kAborted);
    }
    mode_ = SequencerMode::kNotReady;
    length_ = 0;
    start_ = 0;
    elapsed_ = {};
    from_ = 0;
    fromFresh_ = false;
    const auto known = songs.find(fileName_);
    const StandinSong missing{0, SequencerError::kFileNotFound, InWords("The file cannot be found.")};
    const StandinSong song = known != songs.end() ? known->second : (OtherSong ? OtherSong(fileName_) : missing);
    if (song.error != 0) {
        Fail(song.error, song.refusal);
        return;
    }
    length_ = song.length;
    mode_ = SequencerMode::kStopped;
}

void StandinSequencer::Play()
{
    if (mode_ == SequencerMode::kNotReady) {
        Fail(SequencerError::kNotOpen, InWords("No file is open."));
        return;
    }
    const std::int32_t begin = fromFresh_ ? from_ : Position();
    start_ = std::clamp(begin, 0, length_);
    elapsed_ = {};
    playRate_ = rate;
    fromFresh_ = false;
    mode_ = SequencerMode::kPlaying;
}

// The play ends or pauses where it stands.
void StandinSequencer::Halt(int mode)
{
    start_ = Position();
    elapsed_ = {};
    mode_ = mode;
}

void StandinSequencer::Fail(int error, Refusal refusal)
{
    error_ = error;
    refusal_ = std::move(refusal);
}

} // namespace velluto
