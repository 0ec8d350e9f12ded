// A MIDI system of which RtMidi tells all that there is to know, and nothing unasked: its ports are looked at from time to time.
// Windows (WinMM) and macOS (CoreMIDI) as they are; ALSA with a little more.
#pragma once

#include "platform/rtmidi/MidiSystem.h"

#include <memory>
#include <mutex>

namespace velluto {

class ListedSystem : public MidiSystem {
public:
    explicit ListedSystem(RtMidi::Api api) : api_(api) {}

    [[nodiscard]] RtMidi::Api Api() const override { return api_; }
    [[nodiscard]] bool Alive() const override { return connected_.load(); }
    bool Connect() override;
    bool Activate() override { return Alive(); }
    std::vector<std::string> Names(PortKind kind) override;
    [[nodiscard]] bool TellsChanges() const override { return false; }
    bool HasRoom(SendBudget & /*budget*/, std::size_t /*messageBytes*/) const override { return true; }
    // These systems connect at once, and deliver at once.
    std::vector<std::string> Feeders(const std::string & /*portName*/) override { return {}; }
    void Settle(const std::string & /*portName*/, const std::vector<std::string> & /*before*/) override {}
    void LetPass() override {}
    // Nothing on Windows, which knows no ports of programs.
    std::unique_ptr<SourcePort> MakeSource() override;

protected:
    // Whether asking RtMidi for the system is worth while, and quiet.
    [[nodiscard]] virtual bool Present() const { return true; }

private:
    RtMidi::Api api_;
    std::mutex mutex_;                   // the two objects are asked by the interface thread and by the one that watches
    std::unique_ptr<RtMidiOut> outputs_; // kept for listing; a new one for each look would leak clients
    std::unique_ptr<RtMidiIn> inputs_;
    std::atomic<bool> connected_ = false;
};

} // namespace velluto
