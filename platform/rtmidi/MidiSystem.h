// One of the machine's MIDI systems behind RtMidi: whether it is there, which ports it has, when they change. RtMidi
// itself tells neither a port that disappears nor a server that ends. Used by RtMidiPorts and what it is made of.
#pragma once

#include "platform/rtmidi/SourcePort.h"

#include <RtMidi.h>

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velluto {

// As the program sees it: an output takes what the program sends. A source is the program's own, and ends only with its system.
enum class PortKind { Output, Input, Source };

// What one connection has handed over since the system last took anything.
struct SendBudget {
    std::uint32_t cycle = 0;
    std::size_t bytes = 0;
};

class MidiSystem {
public:
    virtual ~MidiSystem() = default;
    [[nodiscard]] virtual RtMidi::Api Api() const = 0;
    // Whether the system that Connect found is still the one running. Any thread.
    [[nodiscard]] virtual bool Alive() const = 0;
    // Finds the system; false where it is not there. Quick and silent in both cases. To be called only when nothing is
    // open on an earlier one that died.
    virtual bool Connect() = 0;
    // Makes ready for connections to its ports, of which it tells the changes from now on; listing them needs none of this.
    // False where the system has gone.
    virtual bool Activate() = 0;
    // The ports there are now, without the program's own. Any thread.
    virtual std::vector<std::string> Names(PortKind kind) = 0;
    // True where the system calls `changed`; otherwise whoever wants to know has to look.
    [[nodiscard]] virtual bool TellsChanges() const = 0;
    // False where the message would overrun the connection's queue, since the system takes nothing at the moment.
    virtual bool HasRoom(SendBudget &budget, std::size_t messageBytes) const = 0;

    // The program's own ports from which the system passes on to this one.
    virtual std::vector<std::string> Feeders(const std::string &portName) = 0;
    // Waits, briefly, until there is one that was none before: a connection just made then passes what is sent on it.
    virtual void Settle(const std::string &portName, const std::vector<std::string> &before) = 0;
    // Waits, briefly, until what was handed over before has reached the other side. A connection that ends takes with it
    // what is still on its way.
    virtual void LetPass() = 0;

    // The sequencer's port, for others to connect to. Nothing where the system makes none.
    virtual std::unique_ptr<SourcePort> MakeSource() = 0;

    // Called by a thread of the system after ports have come or gone or the system has died. Set before Connect.
    std::function<void()> changed = []() {};
};

} // namespace velluto
