// The machine's MIDI devices: the built-in synthesizer, where there is a SoundFont, and then the ports of the machine's
// MIDI systems, numbered. Made once by main and handed to the program as its MidiDevices.
#pragma once

#include "platform/MidiDevices.h"
#include "platform/music/NoteTracker.h"
#include "platform/rtmidi/DeviceNumbers.h"
#include "platform/rtmidi/InputLine.h"
#include "platform/rtmidi/MidiPorts.h"

#include <functional>
#include <map>

namespace velluto {

// One interface thread calls everything. What comes in from a platform thread is handed over in InputLine.
class MachineMidi : public MidiDevices {
public:
    // Devices are numbered in the order of the systems, but a known one has its number again.
    explicit MachineMidi(std::vector<std::unique_ptr<MidiPorts>> systems, KnownDevices known = {});
    ~MachineMidi() override; // closes what is open; no note that the program started rings on
    MachineMidi(const MachineMidi &) = delete;
    MachineMidi &operator=(const MachineMidi &) = delete;

    // Counting lists the ports. A device keeps its number for the whole run: a later count gives new ports numbers that are
    // free, and one that has gone cannot be opened (68).
    void Expect(int out, int in) override;
    int midiOutGetNumDevs() override; // waits for systems that are being looked for
    int midiOutGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiOutOpen(MidiHandle &handle, int number) override;
    int midiOutClose(MidiHandle handle) override;
    int midiOutShortMsg(MidiHandle handle, ShortMessage message) override;

    int midiInGetNumDevs() override;
    int midiInGetDevCapsA(int number, MidiDeviceCaps &caps) override;
    int midiInOpen(MidiHandle &handle, int number, MidiInCallback callback) override;
    int midiInClose(MidiHandle handle) override;
    int midiInStart(MidiHandle handle) override;
    int midiInStop(MidiHandle handle) override;

    // The link has a connection of its own to the output, and ends with either device.
    int midiConnect(MidiHandle in, MidiHandle out) override;
    // Systems that cannot be asked at once are left for the next count.
    std::optional<MidiDeviceCounts> CountAgain() override;

    int midiDisconnect(MidiHandle in, MidiHandle out) override; // a link that was never made is gone already: success

    // Called at the end with what is known of devices, where that has changed in this run.
    std::function<void(const KnownDevices &known)> keep = [](const KnownDevices &) {};
    // Called after an output was opened or closed, with the one that is open now.
    std::function<void(const ListedPort &output)> outputChanged = [](const ListedPort &) {};

private:
    struct OpenOut {
        MidiHandle handle = 0;
        int number = 0;
        std::unique_ptr<OutputPort> port;
        NoteTracker notes;
    };
    struct OpenIn {
        MidiHandle handle = 0;
        int number = 0;
        std::shared_ptr<InputLine> line;
        std::unique_ptr<InputPort> port;
        int linkedTo = -1; // number of the output that Thru plays
    };

    void TellOutput() const;
    using Systems = std::span<MidiPorts *const>;
    int CountOuts(Systems systems);
    int CountIns(Systems systems);
    int Connect(int number, std::unique_ptr<OutputPort> &port);
    void Unlink(OpenIn &in);
    [[nodiscard]] const std::string &OutName(int number) const { return outs_[static_cast<std::size_t>(number)].name; }

    std::vector<std::unique_ptr<MidiPorts>> systems_;
    std::vector<MidiPorts *> all_; // of them
    const KnownDevices known_;
    int chosenOut_ = -1;           // in this run
    std::vector<ListedPort> outs_; // by number; one that nobody has is without a system
    std::vector<ListedPort> ins_;
    std::vector<OpenOut> openOuts_;
    std::vector<OpenIn> openIns_;
    MidiHandle lastHandle_ = 0;
    // What an output was left with that went away with notes on it; ended when it is opened again.
    std::map<std::string, NoteTracker> abandoned_;
};

} // namespace velluto
