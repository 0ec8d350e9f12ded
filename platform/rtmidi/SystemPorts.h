// The ports of one MIDI system. A connection whose port has gone refuses what is sent on it. The interface thread never waits for a dead
// system, and for an answer only as long as its patience lasts: what is asked of a system is asked on other threads.
#pragma once

#include "platform/rtmidi/Connections.h"

#include <future>

namespace velluto {

// Ports of a system by name.
struct PortNames {
    std::vector<std::string> outputs;
    std::vector<std::string> inputs;
};

class SystemPorts : public MidiPorts {
public:
    // With a system that does not answer; JACK takes a second to leave a dead server.
    static constexpr std::chrono::milliseconds kPatience{3000};

    explicit SystemPorts(std::unique_ptr<MidiSystem> system, std::chrono::milliseconds patience = kPatience);
    ~SystemPorts() override;
    SystemPorts(const SystemPorts &) = delete;
    SystemPorts &operator=(const SystemPorts &) = delete;

    // Begins to look for the system on another thread. Whoever asks for its ports first waits for the end of that look, but for no
    // longer than the patience lasts: the system has no ports then. Where all the ports that are known from before are there, outputs and
    // inputs, they are the first lists, and no other is made.
    void LookAhead(PortNames known = {});

    // The look goes on on its thread where the moment was too short for it; so there is never more than one.
    bool AtHand() override;
    void ListAll() override;
    std::vector<std::string> Outputs() override { return List(PortKind::Output); }
    std::vector<std::string> Inputs() override { return List(PortKind::Input); }
    int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) override;

    // The sequencer's port; nothing where the system is not there.
    std::unique_ptr<SourcePort> OpenSource();

private:
    std::vector<std::string> List(PortKind kind);
    // Takes over what the look ahead has found. False where it has not ended within the limit.
    bool EndLook(std::chrono::milliseconds limit);
    // Finds a system that is not there, or that died, once more.
    bool EnsureAlive();
    // What `open` gives, on another thread, of a system that is ready for it. A system that takes too long over it has no device, and is
    // asked to open nothing else until it has answered; what it opens then is closed.
    template <typename End, typename Open>
    Opened<End> Ask(Open open);
    ConnectionHost Host() { return {*system_, retirement_, watch_}; }

    std::unique_ptr<MidiSystem> system_;
    std::chrono::milliseconds patience_;
    bool isLate_ = false;     // somebody has lost patience with the look ahead, or with what a dead system leaves
    bool owesAnswer_ = false; // the same with what was asked last
    bool listsAll_ = false;   // whatever a look ahead finds
    Retirement retirement_;
    std::future<PortNames> lookedAhead_; // valid until somebody has waited for it
    PortNames first_;                    // the lists that are there before any was made, until they were asked for
    PortWatch watch_;
};

} // namespace velluto
