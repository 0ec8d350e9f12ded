// An open MIDI input: what arrives goes to the program's callback and, through Thru, to an output. Messages come in on
// a platform thread; everything else is called by the interface thread. The platform thread only tries the lock between
// the two: a message that arrives in the very moment of a change is dropped, and the thread never waits.
#pragma once

#include "platform/MidiDevices.h"
#include "platform/music/NoteTracker.h"
#include "platform/music/SpinLock.h"
#include "platform/rtmidi/MidiPorts.h"

#include <chrono>

namespace velluto {

class InputLine : public MessageSink {
public:
    InputLine(MidiHandle handle, MidiInCallback callback) : handle_(handle), callback_(callback) {}

    // Platform threads.
    void Deliver(std::span<const std::uint8_t> message) override;
    void Gone() override; // ends the notes that nobody can end any more

    // Interface thread.
    void Opened();
    void Closed(); // nothing is delivered after it
    void Start();
    void Stop();
    // Hands everything on to the output while started, in place of an earlier one.
    void LinkTo(std::unique_ptr<OutputPort> output);
    // Ends the link and the notes that it left; `left` takes the notes that the output could not be told to end.
    void Unlink(NoteTracker &left);

private:
    void Call(std::uint32_t message, std::uint32_t parameter1, std::uint32_t parameter2);

    const MidiHandle handle_;
    const MidiInCallback callback_;
    SpinLock lock_; // guards all that follows
    bool started_ = false;
    std::chrono::steady_clock::time_point startedAt_;
    std::unique_ptr<OutputPort> thru_;
    NoteTracker thruNotes_;
};

} // namespace velluto
