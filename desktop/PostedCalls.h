// Calls that any thread hands to the program's own, where each is an event of the program. Used by the face, for devices and songs.
#pragma once

#include "desktop/EventGate.h"

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace velluto {

class PostedCalls : private QObject {
public:
    explicit PostedCalls(EventGate &gate) : gate_(gate) {}
    // Runs the call later from the event loop. Any thread may ask; calls keep their order, and what is still waiting when this goes is
    // dropped.
    void Post(std::function<void()> call);

private:
    bool event(QEvent *event) override;

    EventGate &gate_;
    std::mutex mutex_;
    std::deque<std::function<void()>> calls_; // one for each event that is on its way
};

} // namespace velluto
