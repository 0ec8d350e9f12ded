#include "platform/rtmidi/PortWatch.h"

#include <algorithm>

namespace velluto {

bool LooksUnasked(bool watching, bool told, int looksLeft)
{
    return watching && (!told || looksLeft > 0);
}

PortWatch::PortWatch(MidiSystem &system, std::chrono::milliseconds lookPeriod) : system_(system), lookPeriod_(lookPeriod)
{
    system_.changed = [signal = signal_]() {
        {
            const std::lock_guard lock(signal->mutex);
            signal->changed = true;
        }
        signal->rouse.notify_all();
    };
}

void PortWatch::End()
{
    if (!thread_.joinable()) {
        return;
    }
    {
        const std::lock_guard lock(signal_->mutex);
        signal_->ending = true;
    }
    signal_->rouse.notify_all();
    thread_.join();
}

void PortWatch::Add(WatchedPort &port)
{
    if (!thread_.joinable()) {
        thread_ = std::thread([this]() { Run(); });
    }
    {
        const std::lock_guard lock(portsMutex_);
        ports_.push_back(&port);
    }
    {
        const std::lock_guard lock(signal_->mutex);
        signal_->watching = true;
        signal_->changed = true; // the port may have gone while it was being opened
    }
    signal_->rouse.notify_all();
}

void PortWatch::Remove(WatchedPort &port)
{
    const std::lock_guard lock(portsMutex_);
    std::erase(ports_, &port);
    const std::lock_guard signalLock(signal_->mutex);
    signal_->watching = !ports_.empty();
}

void PortWatch::Run()
{
    int looks = 0; // at a system that gives word: how many more
    Signal &signal = *signal_;
    std::unique_lock lock(signal.mutex);
    while (!signal.ending) {
        const auto roused = [&signal]() { return signal.ending || signal.changed; };
        if (LooksUnasked(signal.watching, system_.TellsChanges(), looks)) {
            signal.rouse.wait_for(lock, lookPeriod_, roused);
        } else {
            signal.rouse.wait(lock, roused);
        }
        looks = signal.changed ? kLooksAfterWord : std::max(looks - 1, 0);
        signal.changed = false;
        lock.unlock();
        Look();
        lock.lock();
    }
}

void PortWatch::Look()
{
    const std::lock_guard lock(portsMutex_);
    if (ports_.empty()) {
        return;
    }
    const std::vector<std::string> outputs = system_.Names(PortKind::Output);
    const std::vector<std::string> inputs = system_.Names(PortKind::Input);
    const bool alive = system_.Alive();
    std::erase_if(ports_, [&](WatchedPort *port) {
        const std::vector<std::string> &names = port->kind == PortKind::Output ? outputs : inputs;
        const bool isListed = port->kind == PortKind::Source || std::ranges::find(names, port->name) != names.end();
        const bool gone = !alive || !isListed;
        if (gone) {
            port->LetGo();
        }
        return gone;
    });
}

} // namespace velluto
