// The machine's multimedia timer: calls back at a steady pace. Used by the player's clock; answered by Qt on the desktop,
// and by a stand-in whose time the driver and the tests move.
#pragma once

#include <functional>

namespace velluto {

class TickTimer {
public:
    using TimerId = int; // never 0
    virtual ~TickTimer() = default;

    // Raised between two events of the program after ticks have come, for whoever waits for them. At a busy moment it is
    // put off to a later tick.
    std::function<void()> Ticked;

    // Calls back each delay milliseconds, the first time one delay from now, until it is killed. The callback may come at any
    // moment, in the middle of a handler too, and does no more than count.
    virtual TimerId timeSetEvent(int delay, int resolution, std::function<void()> callback) = 0;
    // Nothing happens for an id that is not running.
    virtual void timeKillEvent(TimerId id) = 0;
};

} // namespace velluto
