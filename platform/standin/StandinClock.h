// A clock that stands where it was set.
#pragma once

#include "platform/Clock.h"

namespace velluto {

class StandinClock : public Clock {
public:
    std::string longDate = "Saturday, 14 May 2005";
    std::string shortDate = "14/05/2005";
    std::string time = "12:00:00";

    std::string LongDate() override { return longDate; }
    std::string ShortDate() override { return shortDate; }
    std::string Time() override { return time; }
};

} // namespace velluto
