// The ALSA sequencer as a MIDI system. It is looked at, since RtMidi passes none of its announcements on.
#pragma once

#include "platform/rtmidi/MidiSystem.h"

#include <memory>
#include <mutex>

namespace velluto {

class AlsaSystem : public MidiSystem {
public:
    [[nodiscard]] RtMidi::Api Api() const override { return RtMidi::LINUX_ALSA; }
    [[nodiscard]] bool Alive() const override { return connected_.load(); }
    bool Connect() override;
    std::vector<std::string> Names(PortKind kind) override;
    [[nodiscard]] bool TellsChanges() const override { return false; }
    bool HasRoom(SendBudget & /*budget*/, std::size_t /*messageBytes*/) const override { return true; }
    void Settle(const std::string & /*portName*/) override {} // ALSA connects at once
    void LetPass() override {}                                // and delivers at once
    std::unique_ptr<SourcePort> MakeSource() override;

private:
    std::mutex mutex_;                   // the two objects are asked by the interface thread and by the one that watches
    std::unique_ptr<RtMidiOut> outputs_; // kept for listing; a new one for each look would leak clients
    std::unique_ptr<RtMidiIn> inputs_;
    std::atomic<bool> connected_ = false;
};

} // namespace velluto
