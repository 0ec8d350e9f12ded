// Outputs on paper for a sequencer with its own thread, and the calls that the thread posts. Used by its tests.
#pragma once

#include "platform/music/PlayerOutputs.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace velluto::test {

// What the interface thread has still to run, asked for by either thread.
class Mail {
public:
    void Post(std::function<void()> call)
    {
        const std::lock_guard lock(mutex_);
        calls_.push_back(std::move(call));
        came_.notify_all();
    }
    // Waits for the next call and runs it. False where none comes.
    bool RunNext()
    {
        constexpr std::chrono::seconds kLimit(10);
        std::unique_lock lock(mutex_);
        if (!came_.wait_for(lock, kLimit, [this]() { return !calls_.empty(); })) {
            return false;
        }
        const std::function<void()> call = std::move(calls_.front());
        calls_.erase(calls_.begin());
        lock.unlock();
        call();
        return true;
    }
    std::size_t Waiting()
    {
        const std::lock_guard lock(mutex_);
        return calls_.size();
    }

private:
    std::mutex mutex_;
    std::condition_variable came_;
    std::vector<std::function<void()>> calls_;
};

struct Heard {
    std::mutex mutex;
    std::condition_variable came;
    std::vector<std::vector<std::uint8_t>> messages;
    int shown = 0;
    int woken = 0;
    std::vector<std::string> chosen; // devices, by name
    bool knowsNothing = true;        // as if it were made for the next play
    bool rests = false;
    std::vector<bool> keepsTime; // as it was told
};

class PaperOutputs : public PlayerOutputs {
public:
    explicit PaperOutputs(Heard &heard) : heard_(heard) {}
    void Show() override { ++heard_.shown; }
    bool Choose(const std::string &device) { return std::exchange(chosen_, device) != device; }
    void Move() override { heard_.chosen.push_back(chosen_); }
    bool Wake() override
    {
        ++heard_.woken;
        return std::exchange(heard_.knowsNothing, false);
    }
    void Rest() override
    {
        const std::lock_guard lock(heard_.mutex);
        heard_.rests = true;
        heard_.came.notify_all();
    }
    void Send(std::span<const std::uint8_t> message, TimePoint /*due*/) override
    {
        const std::lock_guard lock(heard_.mutex);
        heard_.messages.emplace_back(message.begin(), message.end());
        heard_.came.notify_all();
    }

    void KeepTime(bool messagesFallDue) override
    {
        const std::lock_guard lock(heard_.mutex);
        heard_.keepsTime.push_back(messagesFallDue);
        heard_.came.notify_all();
    }

private:
    Heard &heard_;
    std::string chosen_;
};

} // namespace velluto::test
