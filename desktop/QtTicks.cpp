#include "desktop/QtTicks.h"

namespace velluto {

QtTicks::TimerId QtTicks::timeSetEvent(int delay, int /*resolution*/, std::function<void()> callback)
{
    auto timer = std::make_unique<QTimer>();
    timer->setTimerType(Qt::PreciseTimer);
    QObject::connect(timer.get(), &QTimer::timeout, [tick = std::move(callback)] { tick(); });
    // Queued: who hears of it may end this very timer.
    QObject::connect(
        timer.get(), &QTimer::timeout, &context_,
        [this] {
            if (Ticked && !gate_.Busy()) {
                const EventGate::Pass pass(gate_);
                Ticked();
            }
        },
        Qt::QueuedConnection);
    timer->start(delay);
    running_[++last_] = std::move(timer);
    return last_;
}

} // namespace velluto
