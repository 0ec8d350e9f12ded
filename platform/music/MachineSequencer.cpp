#include "platform/music/MachineSequencer.h"

#include "platform/sequencer/MidiFile.h"

#include <new>
#include <system_error>
#include <utility>

namespace velluto {

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kBurst = 256; // messages sent before the interface thread may have its turn

Moment Now()
{
    return std::chrono::duration_cast<std::chrono::nanoseconds>(Clock::now().time_since_epoch()).count();
}

Clock::time_point TimePointOf(Moment moment)
{
    return Clock::time_point(std::chrono::duration_cast<Clock::duration>(std::chrono::nanoseconds(moment)));
}

} // namespace

// Holds the lock for a call of the interface thread. The playing thread, which takes the lock again as soon as it has let go
// of it while much is due, stands back for it.
class MachineSequencer::Turn {
public:
    explicit Turn(const MachineSequencer &sequencer)
    {
        ++sequencer.waiting_;
        lock_ = std::unique_lock(sequencer.mutex_);
        --sequencer.waiting_;
    }

private:
    std::unique_lock<std::mutex> lock_;
};

MachineSequencer::MachineSequencer(FileStore &files, std::unique_ptr<PlayerOutputs> outputs, Post post, std::chrono::milliseconds linger)
    : files_(files), post_(std::move(post)), linger_(linger), outputs_(std::move(outputs))
{
}

MachineSequencer::~MachineSequencer()
{
    {
        const Turn turn(*this);
        player_.Close(Now());
        ending_ = true;
    }
    rouse_.notify_all();
    if (thread_.joinable()) {
        thread_.join();
    }
}

int MachineSequencer::Mode() const
{
    const Turn turn(*this);
    return player_.Mode();
}

std::int32_t MachineSequencer::Position() const
{
    const Turn turn(*this);
    return player_.Position(Now());
}

std::int32_t MachineSequencer::Length() const
{
    const Turn turn(*this);
    return player_.Length();
}

void MachineSequencer::SetFrom(std::int32_t position)
{
    from_ = position;
    fromIsFresh_ = true;
}

void MachineSequencer::Fail(int error, const Refusal &refusal)
{
    error_ = error;
    refusal_ = refusal;
}

void MachineSequencer::SetCommand(std::string_view word)
{
    command_ = word;
    Fail(0, {});
    try {
        if (word == "open") {
            Open();
        } else if (word == "play") {
            Play();
        } else if (word == "pause") {
            Halt(&SongPlayer::Pause, false);
        } else if (word == "stop") {
            Halt(&SongPlayer::Stop, true);
        } else if (word == "close") {
            Halt(&SongPlayer::Close, true);
        } else {
            Fail(SequencerError::kUnknownCommand, {Refusal::Why::UnknownCommand});
        }
    } catch (const std::bad_alloc &) {
        Fail(SequencerError::kNoMemory, {Refusal::Why::NoMemory});
    } catch (const std::system_error &) {
        Fail(SequencerError::kNoMemory, {Refusal::Why::NoThread});
    }
}

void MachineSequencer::Open()
{
    Halt(&SongPlayer::Close, true);
    from_ = 0;
    fromIsFresh_ = false;
    MidiFile file = ReadMidiFile(files_, fileName_);
    if (file.refusal) {
        Fail(SequencerErrorFor(file.refusal), file.refusal);
        return;
    }
    if (!thread_.joinable()) {
        thread_ = std::thread([this]() { Run(); });
    }
    const Turn turn(*this);
    player_.Open(std::make_shared<const Song>(std::move(file.song)));
    outputs_->Show();
}

void MachineSequencer::Play()
{
    const Turn turn(*this);
    if (player_.Mode() == SequencerMode::kNotReady) {
        Fail(SequencerError::kNotOpen, {Refusal::Why::NoFileOpen});
        return;
    }
    WakeOutputs();
    player_.Play(Now(), fromIsFresh_ ? std::optional(from_) : std::nullopt);
    fromIsFresh_ = false;
    rouse_.notify_all();
}

// Pause, stop or close. A play that ran is told to have been broken off, where that is to be told.
void MachineSequencer::Halt(void (SongPlayer::*halt)(Moment), bool tells)
{
    const Turn turn(*this);
    const bool played = player_.Mode() == SequencerMode::kPlaying;
    (player_.*halt)(Now());
    rouse_.notify_all();
    if (played && tells) {
        PostDone(NotifyCode::kAborted);
    }
}

void MachineSequencer::PostDone(int notifyCode)
{
    post_([this, notifyCode, alive = std::weak_ptr(alive_)]() {
        if (!alive.expired() && Done) {
            Done(notifyCode);
        }
    });
}

void MachineSequencer::FollowOutputs()
{
    if (Mode() != SequencerMode::kPlaying) {
        Move();
        return;
    }
    if (std::exchange(moveIsPosted_, true)) {
        return;
    }
    post_([this, alive = std::weak_ptr(alive_)]() {
        if (!alive.expired()) {
            Move();
        }
    });
}

// Brings the outputs to the device. A song that plays waits while they change.
void MachineSequencer::Move()
{
    moveIsPosted_ = false;
    const Turn turn(*this);
    const bool plays = player_.Mode() == SequencerMode::kPlaying;
    player_.Pause(Now());
    outputs_->Move();
    if (plays) {
        WakeOutputs();
        player_.Play(Now(), std::nullopt);
        rouse_.notify_all();
    }
}

// The lock is held.
void MachineSequencer::WakeOutputs()
{
    if (outputs_->Wake()) {
        player_.InstrumentIsNew();
    }
    mayRest_ = true;
}

void MachineSequencer::Send(std::span<const std::uint8_t> message, Moment due)
{
    outputs_->Send(message, TimePointOf(due));
}

void MachineSequencer::Run()
{
    std::unique_lock lock(mutex_);
    bool keepsTime = false;
    const auto keepTime = [&](bool messagesFallDue) {
        if (keepsTime != messagesFallDue) {
            outputs_->KeepTime(messagesFallDue);
            keepsTime = messagesFallDue;
        }
    };
    while (!ending_) {
        const SongPlayer::Step step = player_.Run(Now(), kBurst);
        keepTime(step.next.has_value());
        if (step.ended) {
            PostDone(NotifyCode::kNormalEnd);
        }
        WaitForWork(lock, step);
    }
    keepTime(false);
}

// Lets go of the lock until something is due, the interface thread has changed something, or the outputs may rest.
void MachineSequencer::WaitForWork(std::unique_lock<std::mutex> &lock, const SongPlayer::Step &step)
{
    if (step.next) {
        rouse_.wait_until(lock, TimePointOf(*step.next));
        while (waiting_ > 0) {
            lock.unlock();
            std::this_thread::yield();
            lock.lock();
        }
    } else if (!mayRest_) {
        rouse_.wait(lock);
    } else if (rouse_.wait_for(lock, linger_) == std::cv_status::timeout && player_.Mode() != SequencerMode::kPlaying) {
        outputs_->Rest();
        mayRest_ = false;
    }
}

} // namespace velluto
