#include "standin/StandinTicks.h"

#include <algorithm>

namespace velluto {

std::optional<StandinTicks::Milliseconds> StandinTicks::UntilNext() const
{
    const auto next = std::ranges::min_element(running_, {}, [](const auto &entry) { return entry.second.due; });
    return next == running_.end() ? std::nullopt : std::optional(next->second.due);
}

void StandinTicks::Advance(Milliseconds passed)
{
    for (auto &[id, event] : running_) {
        event.due -= passed;
        for (; event.due <= Milliseconds::zero(); event.due += event.delay) {
            event.callback();
        }
    }
}

StandinTicks::TimerId StandinTicks::timeSetEvent(int delay, int /*resolution*/, std::function<void()> callback)
{
    const Milliseconds interval{std::max(delay, 1)};
    running_[++last_] = {interval, interval, std::move(callback)};
    return last_;
}

} // namespace velluto
