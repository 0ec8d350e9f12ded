// A JACK server as a MIDI system. A client of its own lists the ports and is told when they change and when the server
// ends; the port list of a dead server goes on showing ports that are not there.
#pragma once

#include "platform/rtmidi/JackSource.h"
#include "platform/rtmidi/MidiSystem.h"
#include "platform/rtmidi/SpinLock.h"

#include <jack/jack.h>

#include <chrono>
#include <mutex>

namespace velluto {

class JackSystem : public MidiSystem, private JackSource::Host {
public:
    JackSystem();
    ~JackSystem() override;
    JackSystem(const JackSystem &) = delete;
    JackSystem &operator=(const JackSystem &) = delete;

    [[nodiscard]] RtMidi::Api Api() const override { return RtMidi::UNIX_JACK; }
    [[nodiscard]] bool Alive() const override { return alive_.load(); }
    bool Connect() override;
    bool Activate() override;
    std::vector<std::string> Names(PortKind kind) override;
    [[nodiscard]] bool TellsChanges() const override { return true; }
    bool HasRoom(SendBudget &budget, std::size_t messageBytes) const override;
    std::vector<std::string> Feeders(const std::string &portName) override;
    void Settle(const std::string &portName, const std::vector<std::string> &before) override;
    void LetPass() override;
    std::unique_ptr<SourcePort> MakeSource() override; // one at a time

private:
    [[nodiscard]] bool ServerLives() const override { return Alive(); }
    void Forget(JackSource &source) override;
    void Process(jack_nframes_t frames);
    void CloseClient();
    // The end of a wait for so many periods, with some time on top for a server that is late.
    [[nodiscard]] std::chrono::steady_clock::time_point EndOfWait(std::uint32_t periods);

    std::mutex mutex_; // guards what follows: ports are listed by the interface thread and by the one that watches
    jack_client_t *client_ = nullptr;
    bool active_ = false; // the server calls it in each of its periods, which costs the machine something
    std::atomic<bool> alive_ = false;
    std::atomic<std::uint32_t> cycles_ = 0; // periods that the server has run
    SpinLock sourceLock_;                   // guards source_; JACK's thread only tries it
    JackSource *source_ = nullptr;
};

} // namespace velluto
