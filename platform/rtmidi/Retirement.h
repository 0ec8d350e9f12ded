// Ends things that may take their time to end (a connection to a server that died takes a second) on threads of their
// own, so that the interface thread never waits for them. What a MIDI system is asked goes there too, since it may not answer.
#pragma once

#include <chrono>
#include <functional>
#include <memory>

namespace velluto {

class Retirement {
public:
    Retirement();
    // Runs the work on a thread of its own; at once where no thread is to be had.
    void Retire(std::function<void()> work);
    // Ends an object in that way.
    template <typename T>
    void End(std::unique_ptr<T> object)
    {
        if (object) {
            Retire([shared = std::shared_ptr<T>(std::move(object))]() mutable { shared.reset(); });
        }
    }
    // Waits until all of it is done. False where that takes longer than the limit; the work goes on all the same.
    bool Wait(std::chrono::milliseconds limit);

private:
    struct State;
    std::shared_ptr<State> state_; // outlives this object while work goes on
};

} // namespace velluto
