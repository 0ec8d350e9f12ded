// What the device layer asks of a MIDI system: its ports by name, and connections to them. The system's ports (RtMidi),
// the built-in synthesizer and the test's own ports answer it; MachineMidi numbers them as devices.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace velluto {

// The name under which the program is a client of a MIDI system.
inline constexpr const char *kMidiClientName = "Velluto";

// Where an input delivers. Both are called by platform threads and must not block.
class MessageSink {
public:
    virtual ~MessageSink() = default;
    virtual void Deliver(std::span<const std::uint8_t> message) = 0; // one whole message
    virtual void Gone() = 0;                                         // the port has disappeared
};

// A connection to an output. The connection ends with the object; that never waits for the system.
class OutputPort {
public:
    using TimePoint = std::chrono::steady_clock::time_point;

    virtual ~OutputPort() = default;
    // Hands over one whole message; a MidiCode. Any thread.
    virtual int Send(std::span<const std::uint8_t> message) = 0;
    // The same for a message that is due about now, and not before the one handed over last. A system that can lets it come at
    // its time.
    virtual int SendAt(std::span<const std::uint8_t> message, TimePoint /*due*/) { return Send(message); }
    // Its port has gone: what is sent is refused from now on. Any thread.
    [[nodiscard]] virtual bool Gone() const { return false; }
};

// A connection to an input. Ends as an output's does.
class InputPort {
public:
    virtual ~InputPort() = default;
};

class MidiPorts {
public:
    virtual ~MidiPorts() = default;
    // Whether its ports can be listed at once. A system that is not there is looked for first, for a moment.
    virtual bool AtHand() { return true; }
    // The next lists are whole, even where the ports that a look ahead was told of are all there.
    virtual void ListAll() {}
    // What is there now, the program's own ports left out.
    virtual std::vector<std::string> Outputs() = 0;
    virtual std::vector<std::string> Inputs() = 0;
    // A MidiCode; port is set only with success. An output may be opened several times. The sink lives as long as the
    // system may call it.
    virtual int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) = 0;
    virtual int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) = 0;
};

// A port of one of the systems. None without a system.
struct ListedPort {
    MidiPorts *system = nullptr;
    std::string name;
    bool operator==(const ListedPort &) const = default;
};

} // namespace velluto
