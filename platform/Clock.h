// The date and the time as the machine writes them. Used by the status bar, later by listings.
#pragma once

#include <string>

namespace velluto {

class Clock {
public:
    virtual ~Clock() = default;
    virtual std::string LongDate() = 0;  // "Friday, 20 November 2026", in the machine's language
    virtual std::string ShortDate() = 0; // "20/11/2026", as the machine writes it
    virtual std::string Time() = 0;      // "21:35:00", as the machine writes it
};

} // namespace velluto
