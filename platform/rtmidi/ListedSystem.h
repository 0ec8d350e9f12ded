// A MIDI system of which RtMidi tells all that there is to know, and nothing unasked: its ports are looked at from time to time.
// macOS (CoreMIDI) as it is; ALSA with its announcements on top.
#pragma once

#include "platform/rtmidi/MidiSystem.h"

#include <RtMidi.h>

#include <atomic>
#include <mutex>

namespace velluto {

class ListedSystem : public MidiSystem {
public:
    explicit ListedSystem(RtMidi::Api api) : api_(api) {}

    [[nodiscard]] bool Alive() const override { return connected_.load(); }
    bool Connect() override;
    bool Activate() override { return Alive(); }
    std::vector<std::string> Names(PortKind kind) override;
    [[nodiscard]] bool TellsChanges() const override { return false; }
    // These systems connect at once, and deliver at once.
    int OpenOutput(const std::string &name, std::unique_ptr<SystemOutput> &end) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<SystemInput> &end) override;
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
