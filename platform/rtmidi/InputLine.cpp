#include "platform/rtmidi/InputLine.h"

#include <mutex>

namespace velluto {

namespace {

// What the callback is told of: channel messages and the song's position, choice, start, continue and stop, but neither
// system exclusive messages nor the steady ticking of clocks.
bool IsShortMessage(std::span<const std::uint8_t> message)
{
    if (message.size() > ShortMessage().bytes.size()) {
        return false;
    }
    switch (message[0]) {
    case MidiStatus::kSongPosition:
    case MidiStatus::kSongSelect:
    case MidiStatus::kTuneRequest:
    case MidiStatus::kStart:
    case MidiStatus::kContinue:
    case MidiStatus::kStop:
    case MidiStatus::kReset:
        return true;
    default:
        return MidiStatus::IsChannel(message[0]);
    }
}

} // namespace

void InputLine::Call(std::uint32_t message, std::uint32_t parameter1, std::uint32_t parameter2)
{
    if (callback_.proc != nullptr) {
        callback_.proc(handle_, message, callback_.instance, parameter1, parameter2);
    }
}

void InputLine::Deliver(std::span<const std::uint8_t> message)
{
    const std::unique_lock lock(lock_, std::try_to_lock);
    if (!lock.owns_lock() || !started_ || message.empty()) {
        return;
    }
    if (IsShortMessage(message)) {
        const auto since = std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - startedAt_);
        Call(MidiInMessage::kData, ShortMessage(message).Packed(), static_cast<std::uint32_t>(since.count()));
    }
    if (thru_ && thru_->Send(message) == MidiCode::kSuccess) {
        thruNotes_.Passed(message);
    }
}

void InputLine::Gone()
{
    const std::lock_guard lock(lock_);
    if (thru_) {
        Silence(*thru_, thruNotes_);
    }
}

void InputLine::Opened()
{
    Call(MidiInMessage::kOpen, 0, 0);
}

void InputLine::Closed()
{
    Stop();
    Call(MidiInMessage::kClose, 0, 0);
}

void InputLine::Start()
{
    const std::lock_guard lock(lock_);
    started_ = true;
    startedAt_ = std::chrono::steady_clock::now();
}

void InputLine::Stop()
{
    const std::lock_guard lock(lock_);
    started_ = false;
    if (thru_) {
        Silence(*thru_, thruNotes_);
    }
}

void InputLine::LinkTo(std::unique_ptr<OutputPort> output)
{
    const std::lock_guard lock(lock_);
    thru_ = std::move(output);
}

void InputLine::Unlink(NoteTracker &left)
{
    std::unique_ptr<OutputPort> ended;
    NoteTracker notes;
    {
        const std::lock_guard lock(lock_);
        ended = std::move(thru_);
        notes = thruNotes_;
        thruNotes_.Clear();
    }
    if (ended && !Silence(*ended, notes)) {
        left.Add(notes);
    }
}

} // namespace velluto
