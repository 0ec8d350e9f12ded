// The multimedia timer by Qt's own: ticks come from the event loop, in the middle of a handler too where it waits in a box.
#pragma once

#include "desktop/EventGate.h"
#include "platform/TickTimer.h"

#include <QTimer>

#include <map>
#include <memory>

namespace velluto {

class QtTicks : public TickTimer {
public:
    explicit QtTicks(EventGate &gate) : gate_(gate) {}

    TimerId timeSetEvent(int delay, int resolution, std::function<void()> callback) override;
    void timeKillEvent(TimerId id) override { running_.erase(id); }

private:
    EventGate &gate_;
    std::map<TimerId, std::unique_ptr<QTimer>> running_;
    TimerId last_ = 0;
    QObject context_; // what is still queued dies with it
};

} // namespace velluto
