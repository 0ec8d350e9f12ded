// The ports of one MIDI system, opened through RtMidi. A thread waits for word that ports have changed (or looks at
// them, where the system gives no word) and lets go of every connection whose port has gone; from then on a send on it
// is refused, and nothing of the interface thread ever waits for a dead system.
#pragma once

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/MidiSystem.h"
#include "platform/rtmidi/Retirement.h"

#include <condition_variable>
#include <mutex>
#include <thread>

namespace velluto {

// A connection as the watch sees it.
class WatchedPort {
public:
    virtual ~WatchedPort() = default;
    // The port is no longer there: lets go of RtMidi's object. Called by the watching thread or the interface thread.
    virtual void LetGo() = 0;

    PortKind kind = PortKind::Output;
    std::string name;
};

class RtMidiPorts : public MidiPorts {
public:
    explicit RtMidiPorts(std::unique_ptr<MidiSystem> system);
    ~RtMidiPorts() override;
    RtMidiPorts(const RtMidiPorts &) = delete;
    RtMidiPorts &operator=(const RtMidiPorts &) = delete;

    std::vector<std::string> Outputs() override { return List(PortKind::Output); }
    std::vector<std::string> Inputs() override { return List(PortKind::Input); }
    int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) override;

    // The sequencer's port; nothing where the system is not there.
    std::unique_ptr<SourcePort> OpenSource();

    // For the connections: their entry in the watch, and the thread that ends RtMidi's objects.
    void Watch(WatchedPort &port);
    void Unwatch(WatchedPort &port); // LetGo is not called any more once this returns
    Retirement &Retired() { return retirement_; }
    MidiSystem &System() { return *system_; }

private:
    std::vector<std::string> List(PortKind kind);
    bool EnsureAlive();
    void CheckPorts();
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

    std::unique_ptr<MidiSystem> system_;
    Retirement retirement_;
    std::mutex portsMutex_;
    std::vector<WatchedPort *> ports_;
    std::shared_ptr<Signal> signal_ = std::make_shared<Signal>();
    std::thread thread_; // begun with the first connection
};

} // namespace velluto
