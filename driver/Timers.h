// The timers of the open windows under a clock that only the command "clock" moves.
#pragma once

#include "view/Control.h"

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

namespace velluto::driver {

class Timers {
public:
    using Milliseconds = std::chrono::milliseconds;

    // Takes note of the timers that run now: a new one first fires one interval from now, one that is gone or
    // disabled is forgotten, one that was switched off and on begins anew. Called after everything that may start or stop one.
    void Follow(const std::vector<Timer *> &running);
    // Lets time pass: each timer that comes due fires in its order. advance is called for each stretch of time before
    // what lies at its end; running gives the timers afresh after each event. untilNext tells how long it is until something
    // else happens that time must not run past; what that is advance does by itself, before the timers of that moment.
    void Pass(
        Milliseconds time, const std::function<void(Milliseconds)> &advance, const std::function<std::vector<Timer *>()> &running,
        const std::function<std::optional<Milliseconds>()> &untilNext = [] { return std::nullopt; });

private:
    struct Due {
        Timer *timer;
        unsigned starts; // of the timer, when its interval began
        Milliseconds at;
    };
    Milliseconds now_{0};
    std::vector<Due> due_;
};

} // namespace velluto::driver
