// The way by which every event of the user enters the program. It knows whether a handler is running, and sees to it
// that closed windows are thrown away only when none is: a handler may wait in a message box for as long as it likes.
#pragma once

#include <QObject>

#include <functional>

namespace velluto {

class EventGate {
public:
    // Held by a binder while it calls a handler.
    class Pass {
    public:
        explicit Pass(EventGate &gate) : gate_(gate) { ++gate_.depth_; }
        ~Pass() { gate_.Leave(); }
        Pass(const Pass &) = delete;
        Pass &operator=(const Pass &) = delete;

    private:
        EventGate &gate_;
    };

    // Run from the event loop after a handler has ended, with no handler running.
    std::function<void()> betweenEvents;

    [[nodiscard]] bool Busy() const { return depth_ > 0; }

private:
    void Leave();

    int depth_ = 0;
    bool posted_ = false;
    QObject context_; // posted calls die with the gate
};

} // namespace velluto
