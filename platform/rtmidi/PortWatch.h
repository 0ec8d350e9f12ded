// The watch over the connections to one MIDI system. A thread sleeps until word comes that ports have changed (or looks at them
// from time to time, where the system gives no word) and lets go of every connection whose port has gone. Used by SystemPorts and
// by the connections.
#pragma once

#include "platform/rtmidi/MidiSystem.h"

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace velluto {

// A connection as the watch sees it.
class WatchedPort {
public:
    virtual ~WatchedPort() = default;
    // The port is no longer there: lets go of the system's end. Called by the watching thread or the interface thread.
    virtual void LetGo() = 0;

    PortKind kind = PortKind::Output;
    std::string name; // a source has none
};

// Whether the next look comes by itself, a while after the last one. looksLeft: of those that follow on word.
bool LooksUnasked(bool watching, bool told, int looksLeft);

class PortWatch {
public:
    // How long a while is.
    static constexpr std::chrono::milliseconds kLookPeriod{50};
    // A look with word, and so many behind it: word may come before the port list shows what it tells.
    static constexpr int kLooksAfterWord = 10;

    explicit PortWatch(MidiSystem &system, std::chrono::milliseconds lookPeriod = kLookPeriod); // takes the system's `changed`
    ~PortWatch() { End(); }
    PortWatch(const PortWatch &) = delete;
    PortWatch &operator=(const PortWatch &) = delete;

    void Add(WatchedPort &port);
    void Remove(WatchedPort &port); // LetGo is not called any more once this returns
    // Lets go at once of what has gone, without waiting for word.
    void Look();
    // Ends the thread. Nothing is watched any more.
    void End();

private:
    void Run();

    // What rouses the watching thread. Shared with the system's callback, which may outlive this object when a server
    // hangs. Its mutex is held for the flags only, never while the system is asked.
    struct Signal {
        std::mutex mutex;
        std::condition_variable rouse;
        bool changed = false;
        bool watching = false; // something is open
        bool ending = false;
    };

    MidiSystem &system_;
    const std::chrono::milliseconds lookPeriod_;
    std::mutex portsMutex_;
    std::vector<WatchedPort *> ports_;
    std::shared_ptr<Signal> signal_ = std::make_shared<Signal>();
    std::thread thread_; // begun with the first connection
};

} // namespace velluto
