#include "platform/rtmidi/Retirement.h"

#include <condition_variable>
#include <mutex>
#include <system_error>
#include <thread>

namespace velluto {

struct Retirement::State {
    std::mutex mutex;
    std::condition_variable done;
    int running = 0;
};

Retirement::Retirement() : state_(std::make_shared<State>()) {}

void Retirement::Retire(std::function<void()> work)
{
    {
        const std::lock_guard lock(state_->mutex);
        ++state_->running;
    }
    const auto task = [state = state_, shared = std::make_shared<std::function<void()>>(std::move(work))]() {
        {
            const std::lock_guard isDetached(state->mutex);
        }
        (*shared)();
        *shared = nullptr; // what the work held goes before it counts as done
        const std::lock_guard lock(state->mutex);
        --state->running;
        state->done.notify_all();
    };
    try {
        // The work waits until its thread is detached: one that ends meanwhile confuses the thread library of GCC for Windows, which then
        // begins others with nothing to do.
        const std::lock_guard lock(state_->mutex);
        std::thread(task).detach();
    } catch (const std::system_error &) {
        task();
    }
}

bool Retirement::Wait(std::chrono::milliseconds limit)
{
    std::unique_lock lock(state_->mutex);
    return state_->done.wait_for(lock, limit, [this]() { return state_->running == 0; });
}

} // namespace velluto
