#include "driver/Timers.h"

#include <algorithm>

namespace velluto::driver {

void Timers::Follow(const std::vector<Timer *> &running)
{
    std::erase_if(due_, [&running](const Due &due) { return std::ranges::find(running, due.timer) == running.end(); });
    for (Timer *timer : running) {
        if (std::ranges::find(due_, timer, &Due::timer) == due_.end()) {
            due_.push_back({timer, now_ + Milliseconds(timer->interval)});
        }
    }
}

void Timers::Pass(Milliseconds time, const std::function<void(Milliseconds)> &advance, const std::function<std::vector<Timer *>()> &running)
{
    const Milliseconds end = now_ + time;
    Follow(running());
    while (true) {
        const auto next = std::ranges::min_element(due_, {}, &Due::at);
        if (next == due_.end() || next->at > end) {
            break;
        }
        advance(next->at - now_);
        now_ = next->at;
        Timer *timer = next->timer;
        next->at += Milliseconds(timer->interval);
        Raise(timer->Tick);
        Follow(running());
    }
    advance(end - now_);
    now_ = end;
}

} // namespace velluto::driver
