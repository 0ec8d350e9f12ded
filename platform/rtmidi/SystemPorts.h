// The ports of one MIDI system. A connection whose port has gone refuses what is sent on it, and
// nothing of the interface thread ever waits for a dead system.
#pragma once

#include "platform/rtmidi/Connections.h"

#include <future>

namespace velluto {

class SystemPorts : public MidiPorts {
public:
    explicit SystemPorts(std::unique_ptr<MidiSystem> system);
    ~SystemPorts() override;
    SystemPorts(const SystemPorts &) = delete;
    SystemPorts &operator=(const SystemPorts &) = delete;

    // Begins to look for the system on another thread. Whoever asks for its ports first waits for the end of that look.
    void LookAhead();

    // The look goes on on its thread where the moment was too short for it; so there is never more than one.
    bool AtHand() override;
    std::vector<std::string> Outputs() override { return List(PortKind::Output); }
    std::vector<std::string> Inputs() override { return List(PortKind::Input); }
    int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) override;

    // The sequencer's port; nothing where the system is not there.
    std::unique_ptr<SourcePort> OpenSource();

private:
    std::vector<std::string> List(PortKind kind);
    // Finds a system that is not there, or that died, once more.
    bool EnsureAlive();
    bool EnsureActive(); // the same, for who opens something
    ConnectionHost Host() { return {*system_, retirement_, watch_}; }

    std::unique_ptr<MidiSystem> system_;
    Retirement retirement_;
    std::future<void> lookedAhead_; // valid until somebody has waited for it
    PortWatch watch_;
};

} // namespace velluto
