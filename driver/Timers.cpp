#include "driver/Timers.h"

#include <algorithm>

namespace velluto::driver {

void Timers::Follow(const std::vector<Timer *> &running)
{
    std::erase_if(due_, [&running](const Due &due) {
        return std::ranges::find(running, due.timer) == running.end() || due.starts != due.timer->Starts();
    });
    for (Timer *timer : running) {
        if (std::ranges::find(due_, timer, &Due::timer) == due_.end()) {
            due_.push_back({timer, timer->Starts(), now_ + Milliseconds(timer->interval)});
        }
    }
}

void Timers::Pass(Milliseconds time, const std::function<void(Milliseconds)> &advance, const std::function<std::vector<Timer *>()> &running,
                  const std::function<std::optional<Milliseconds>()> &untilNext)
{
    const Milliseconds end = now_ + time;
    Follow(running());
    while (true) {
        const auto next = std::ranges::min_element(due_, {}, &Due::at);
        const Milliseconds timerAt = next == due_.end() ? end + Milliseconds(1) : next->at;
        const std::optional<Milliseconds> other = untilNext();
        const Milliseconds at = other ? std::min(timerAt, now_ + *other) : timerAt;
        if (at > end) {
            break;
        }
        if (at > now_ || (other && *other <= Milliseconds::zero())) {
            const Milliseconds passed = at - now_;
            now_ = at;
            advance(passed);
            Follow(running()); // what has happened may have stopped the timer, or started others
            continue;
        }
        Timer *timer = next->timer;
        next->at += Milliseconds(timer->interval);
        Raise(timer->Tick);
        Follow(running());
    }
    const Milliseconds rest = end - now_;
    now_ = end;
    advance(rest);
}

} // namespace velluto::driver
