// A multimedia timer whose time passes only when told to. Used by the driver and by tests.
#pragma once

#include "platform/TickTimer.h"

#include <chrono>
#include <map>
#include <optional>

namespace velluto {

class StandinTicks : public TickTimer {
public:
    using Milliseconds = std::chrono::milliseconds;

    // How long until the next tick; nothing where none runs.
    [[nodiscard]] std::optional<Milliseconds> UntilNext() const;
    // Lets time pass: calls back for each tick in it, those at its very end too. Ticked is left to the caller.
    void Advance(Milliseconds passed);
    // The process has ended, and all its timers with it.
    void Release()
    {
        running_.clear();
        Ticked = nullptr;
    }
    [[nodiscard]] bool Running() const { return !running_.empty(); }

    TimerId timeSetEvent(int delay, int resolution, std::function<void()> callback) override;
    void timeKillEvent(TimerId id) override { running_.erase(id); }

private:
    struct Event {
        Milliseconds delay{};
        Milliseconds due{}; // from now
        std::function<void()> callback;
    };
    std::map<TimerId, Event> running_;
    TimerId last_ = 0;
};

} // namespace velluto
