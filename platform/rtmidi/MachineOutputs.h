// The machine's outputs for the sequencer: the chosen device, by a connection of the sequencer's own, or else the built-in
// synthesizer while something plays; and a port "Velluto player" in each of the machine's MIDI systems.
#pragma once

#include "platform/music/NoteTracker.h"
#include "platform/music/PlayerOutputs.h"
#include "platform/rtmidi/SystemPorts.h"

#include <map>
#include <utility>

namespace velluto {

class MachineOutputs : public PlayerOutputs {
public:
    // The synthesizer is one of its own: its channels are set by the file alone. The systems outlive this object.
    MachineOutputs(std::unique_ptr<MidiPorts> synthesizers, const std::vector<SystemPorts *> &systems);

    ~MachineOutputs() override { LetGo(); }
    MachineOutputs(const MachineOutputs &) = delete;
    MachineOutputs &operator=(const MachineOutputs &) = delete;

    // The device to play on; the built-in synthesizer where it is none. True where it was another. Interface thread.
    bool Choose(const ListedPort &device) { return std::exchange(chosen_, device) != device; }

    void Show() override;
    void Move() override;
    // A device that cannot be had leaves the play to the synthesizer. One that goes later takes the rest of the play with it.
    bool Wake() override;
    void Rest() override { synthesizer_.reset(); }
    void Send(std::span<const std::uint8_t> message, TimePoint due) override;
    void KeepTime(bool messagesFallDue) override;

private:
    struct Source {
        SystemPorts *system = nullptr;
        std::unique_ptr<SourcePort> port;
        bool isNew = false; // nothing was played since it was made
    };

    bool Connect(); // true where that is new
    void LetGo();
    bool WakeSynthesizer(); // the same

    ListedPort chosen_;                            // from the next move on
    ListedPort device_;                            // until then
    std::unique_ptr<OutputPort> instrument_;       // the connection to the device, from the first play on
    NoteTracker notes_;                            // that sound on it
    std::map<std::string, NoteTracker> abandoned_; // on devices that went with notes on them; ended when they are back
    std::unique_ptr<MidiPorts> synthesizers_;
    std::unique_ptr<OutputPort> synthesizer_;
    std::vector<Source> sources_;
};

} // namespace velluto
