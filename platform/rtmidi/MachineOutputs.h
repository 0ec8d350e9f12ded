// The machine's own outputs for the sequencer: the built-in synthesizer, while something plays, and a port "Velluto player"
// in each of the machine's MIDI systems.
#pragma once

#include "platform/rtmidi/PlayerOutputs.h"
#include "platform/rtmidi/SystemPorts.h"

namespace velluto {

class MachineOutputs : public PlayerOutputs {
public:
    // The synthesizer is one of its own: its channels are set by the file alone. The systems outlive this object.
    MachineOutputs(std::unique_ptr<MidiPorts> synthesizers, const std::vector<SystemPorts *> &systems);

    void Show() override;
    bool Wake() override;
    void Rest() override { synthesizer_.reset(); }
    void Send(std::span<const std::uint8_t> message, TimePoint due) override;

private:
    struct Source {
        SystemPorts *system = nullptr;
        std::unique_ptr<SourcePort> port;
        bool isNew = false; // nothing was played since it was made
    };

    std::unique_ptr<MidiPorts> synthesizers_;
    std::unique_ptr<OutputPort> synthesizer_;
    std::vector<Source> sources_;
};

} // namespace velluto
