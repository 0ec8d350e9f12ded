#include "standin/StandinClock.h"

#include <array>
#include <cstdio>

namespace velluto {

namespace {

constexpr std::array<const char *, 7> kWeekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
constexpr std::array<const char *, 12> kMonths = {"January", "February", "March",     "April",   "May",      "June",
                                                  "July",    "August",   "September", "October", "November", "December"};

template <class... Args>
std::string Written(const char *format, Args... args)
{
    std::array<char, 64> text{};
    (void)std::snprintf(text.data(), text.size(), format, args...);
    return text.data();
}

} // namespace

void StandinClock::Set(Moment moment)
{
    moment_ = moment;
    const auto day = std::chrono::floor<std::chrono::days>(moment);
    const std::chrono::year_month_day date{day};
    const std::chrono::hh_mm_ss<std::chrono::milliseconds> ofDay{moment - day};
    const auto number = static_cast<unsigned>(date.day());
    const auto month = static_cast<unsigned>(date.month());
    const auto year = static_cast<int>(date.year());
    longDate = Written("%s, %u %s %d", kWeekdays.at(std::chrono::weekday{day}.c_encoding()), number, kMonths.at(month - 1), year);
    shortDate = Written("%02u/%02u/%04d", number, month, year);
    time = Written("%02d:%02d:%02d", static_cast<int>(ofDay.hours().count()), static_cast<int>(ofDay.minutes().count()),
                   static_cast<int>(ofDay.seconds().count()));
}

} // namespace velluto
