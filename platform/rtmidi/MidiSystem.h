// One of the machine's MIDI systems: whether it is there, which ports it has, when they change, and bare connections to them.
// Used by SystemPorts and what it is made of.
#pragma once

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/SourcePort.h"

#include <functional>

namespace velluto {

// As the program sees it: an output takes what the program sends. A source is the program's own, and ends only with its system.
enum class PortKind { Output, Input, Source };

// A system's own end of a connection. It ends with the object, which may take its time over it and needs its system till then.
class SystemOutput {
public:
    virtual ~SystemOutput() = default;
    // Hands over one whole message; a MidiCode. One thread at a time. Never waits: what the system has no room for is refused.
    virtual int Send(std::span<const std::uint8_t> message) = 0;
    // The same, as in OutputPort.
    virtual int SendAt(std::span<const std::uint8_t> message, OutputPort::TimePoint /*due*/) { return Send(message); }
    // Waits, briefly, until what was handed over has reached the other side. A connection that ends takes with it what is
    // still on its way.
    virtual void Drain() {}
};

class SystemInput {
public:
    virtual ~SystemInput() = default;
};

// What does not say "any thread" is called by one thread at a time, not always by the same.
class MidiSystem {
public:
    virtual ~MidiSystem() = default;
    // Whether the system that Connect found is still the one running. Any thread.
    [[nodiscard]] virtual bool Alive() const = 0;
    // Finds the system; false where it is not there. Silent in both cases, and quick but for one that hangs. To be called only when nothing
    // is open on an earlier one that died.
    virtual bool Connect() = 0;
    // Makes ready for connections to its ports, of which it tells the changes from now on; listing them needs none of this.
    // False where the system has gone.
    virtual bool Activate() = 0;
    // The ports there are now, without the program's own. Any thread.
    virtual std::vector<std::string> Names(PortKind kind) = 0;
    // Whether one of them has that name; false also where only a list could tell. Any thread.
    virtual bool Has(PortKind /*kind*/, const std::string & /*name*/) { return false; }
    // True where the system calls `changed`; otherwise whoever wants to know has to look. May end, with a last call. Any thread.
    [[nodiscard]] virtual bool TellsChanges() const = 0;

    // A MidiCode; the end is set only with success, and passes from then on what is sent on it. May throw.
    virtual int OpenOutput(const std::string &name, std::unique_ptr<SystemOutput> &end) = 0;
    virtual int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<SystemInput> &end) = 0;
    // The sequencer's port, for others to connect to. Nothing where the system makes none. May throw.
    virtual std::unique_ptr<SourcePort> MakeSource() = 0;

    // Called by a thread of the system after ports have come or gone or the system has died. Set before Connect.
    std::function<void()> changed = []() {};
};

} // namespace velluto
