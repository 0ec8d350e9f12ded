// A lock for a few instructions between a MIDI callback and the interface thread. The callback only tries it, so that
// a real-time thread never waits.
#pragma once

#include <atomic>
#include <thread>

namespace velluto {

class SpinLock {
public:
    bool try_lock() { return !taken_.test_and_set(std::memory_order_acquire); }
    void lock()
    {
        while (!try_lock()) {
            std::this_thread::yield();
        }
    }
    void unlock() { taken_.clear(std::memory_order_release); }

private:
    std::atomic_flag taken_;
};

} // namespace velluto
