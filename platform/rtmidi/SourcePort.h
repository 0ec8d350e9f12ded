// A port of the program's own that others may connect to, to hear what its sequencer plays. Made by a MidiSystem.
#pragma once

#include <chrono>
#include <cstdint>
#include <span>

namespace velluto {

// What the sequencer's port is called, as a port of the program.
inline constexpr const char *kPlayerPortName = "Velluto player";

// The port ends with the object.
class SourcePort {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~SourcePort() = default;
    // Hands over one whole message that is due about now, and not before the one handed over last. One thread at a time.
    // Never waits; what a system that stands still has no room for is lost.
    virtual void Send(std::span<const std::uint8_t> message, TimePoint due) = 0;
    // Its system has ended, and what is handed over is lost. Any thread.
    [[nodiscard]] virtual bool Gone() const { return false; }
    // Waits, briefly, until what was handed over has gone out.
    virtual void Drain() {}
};

} // namespace velluto
