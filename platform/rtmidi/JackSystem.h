// A JACK server as a MIDI system, of which the program is one client. It lists the server's ports, is told when they change and
// when the server ends, and has the program's own ports; the port list of a dead server goes on showing ports that are not there.
#pragma once

#include "platform/rtmidi/JackPorts.h"

#include <array>
#include <atomic>
#include <mutex>

namespace velluto {

class JackSystem : public MidiSystem, private JackHost {
public:
    JackSystem();
    ~JackSystem() override;
    JackSystem(const JackSystem &) = delete;
    JackSystem &operator=(const JackSystem &) = delete;

    [[nodiscard]] bool Alive() const override { return alive_.load(); }
    bool Connect() override;
    bool Activate() override;
    std::vector<std::string> Names(PortKind kind) override;
    bool Has(PortKind kind, const std::string &name) override;
    [[nodiscard]] bool TellsChanges() const override { return true; }
    int OpenOutput(const std::string &name, std::unique_ptr<SystemOutput> &end) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<SystemInput> &end) override;
    std::unique_ptr<SourcePort> MakeSource() override;

private:
    // A port as JACK's thread sees it.
    struct Slot {
        std::atomic<JackPort *> port = nullptr; // null while the slot is free
        jack_port_t *handle = nullptr;          // set before the port, and left alone while that is there
    };
    static constexpr std::size_t kMostPorts = 32; // in each direction
    using Slots = std::array<Slot, kMostPorts>;

    [[nodiscard]] jack_client_t *Client() const override { return client_; }
    [[nodiscard]] bool ServerLives() const override { return Alive(); }
    jack_port_t *Add(JackPort &port, const char *label, JackPortFlags direction) override;
    void Remove(JackPort &port, jack_port_t *handle) override;
    int Join(const std::string &from, const std::string &to) override;
    void LetPass() override;

    void Process(jack_nframes_t frames);
    void SetCallbacks();
    void TellChange();  // by JACK's threads
    void CloseClient(); // by who has requests_, or is the last
    // The end of a wait for some periods, with some time on top for a server that is late.
    [[nodiscard]] std::chrono::steady_clock::time_point EndOfWait() const;

    std::mutex mutex_;                // guards the client, never for long: the interface thread and the one that watches list its ports
    std::mutex requests_;             // one at a time goes to the server, which may keep it waiting. Taken before mutex_.
    jack_client_t *client_ = nullptr; // stays the same while there are ports
    bool active_ = false;             // the server calls it in each of its periods, which costs the machine something
    std::atomic<bool> alive_ = false;
    std::atomic<std::uint32_t> cycles_ = 0; // periods that the server has run
    std::atomic<bool> inCycle_ = false;     // JACK's thread is at the ports
    Slots inputs_;                          // first in each period, so that what Thru passes on leaves in the same one
    Slots outputs_;
};

} // namespace velluto
