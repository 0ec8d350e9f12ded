// A clock that stands where it was set, and goes on only when told to. Used by the driver and by tests.
#pragma once

#include "platform/Clock.h"

#include <chrono>

namespace velluto {

class StandinClock : public Clock {
public:
    // Milliseconds since 1970, as if the machine lived in one time zone.
    using Moment = std::chrono::sys_time<std::chrono::milliseconds>;

    // What the machine would write for the moment; Set and Advance write all three anew.
    std::string longDate = "Saturday, 14 May 2005";
    std::string shortDate = "14/05/2005";
    std::string time = "12:00:00";

    void Set(Moment moment);
    void Advance(std::chrono::milliseconds passed) { Set(moment_ + passed); }

    std::string LongDate() override { return longDate; }
    std::string ShortDate() override { return shortDate; }
    std::string Time() override { return time; }

private:
    Moment moment_ = std::chrono::sys_days{std::chrono::May / 14 / 2005} + std::chrono::hours{12};
};

} // namespace velluto
