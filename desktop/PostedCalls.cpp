#include "desktop/PostedCalls.h"

#include <QCoreApplication>
#include <QEvent>

#include <utility>

namespace velluto {

void PostedCalls::Post(std::function<void()> call)
{
    const std::lock_guard lock(mutex_);
    calls_.push_back(std::move(call));
    QCoreApplication::postEvent(this, new QEvent(QEvent::User)); // which the queue owns
}

bool PostedCalls::event(QEvent *event)
{
    std::unique_lock lock(mutex_);
    if (event->type() != QEvent::User) {
        lock.unlock();
        return QObject::event(event);
    }
    const std::function<void()> call = std::move(calls_.front());
    calls_.pop_front();
    lock.unlock();
    const EventGate::Pass pass(gate_);
    call();
    return true;
}

} // namespace velluto
