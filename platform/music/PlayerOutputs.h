// Where the sequencer's music goes. Answered by MachineOutputs, WinOutputs and the tests' own.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

namespace velluto {

// One thread at a time calls; several may. Whoever chooses a device tells the outputs of it by a call of their own.
class PlayerOutputs {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~PlayerOutputs() = default;
    // A file is opened: what others can connect to appears, where it is not there yet.
    virtual void Show() = 0;
    // The device that was chosen last is the one to play on from the next waking on. Any other is let go of, with no note left on it.
    // Interface thread.
    virtual void Move() = 0;
    // A play is about to begin. True where an output was made that knows nothing of what was sent before. Interface thread.
    virtual bool Wake() = 0;
    // Nothing has played for a while: what would keep the machine busy ends.
    virtual void Rest() = 0;
    // Hands over one whole message that is due about now, and not before the one handed over last.
    virtual void Send(std::span<const std::uint8_t> message, TimePoint due) = 0;
    // While messages fall due the waits of the calling thread, the one that plays, end when they are to: true before the first, false
    // after the last. Systems that wait well enough have nothing to do.
    virtual void KeepTime(bool /*messagesFallDue*/) {}
};

} // namespace velluto
