// Where the sequencer's music goes. Answered by MachineOutputs and by the tests' own.
#pragma once

#include "platform/rtmidi/MidiPorts.h"

namespace velluto {

// One thread at a time calls; several may.
class PlayerOutputs {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~PlayerOutputs() = default;
    // A file is opened: what others can connect to appears, where it is not there yet.
    virtual void Show() = 0;
    // The device to play on from the next waking on; the built-in synthesizer where it is none. Any other is let go of, with no
    // note left on it. Interface thread.
    virtual void Choose(const ListedPort &device) = 0;
    // A play is about to begin. True where an output was made that knows nothing of what was sent before.
    virtual bool Wake() = 0;
    // Nothing has played for a while: what would keep the machine busy ends.
    virtual void Rest() = 0;
    // Hands over one whole message that is due about now, and not before the one handed over last.
    virtual void Send(std::span<const std::uint8_t> message, TimePoint due) = 0;
};

} // namespace velluto
