#include "platform/rtmidi/RtConnections.h"

#include "platform/MidiDevices.h"
#include "platform/rtmidi/SpinLock.h"

#include <new>
#include <optional>

namespace velluto {

namespace {

// What RtMidi says is kept here: with a callback it neither throws nor writes to the standard error stream.
struct Complaint {
    std::optional<RtMidiError::Type> type;

    static void Take(RtMidiError::Type type, const std::string & /*text*/, void *self)
    {
        if (type != RtMidiError::WARNING && type != RtMidiError::DEBUG_WARNING) {
            static_cast<Complaint *>(self)->type = type;
        }
    }
};

// An object of RtMidi together with what its callbacks reach, to be ended as one.
template <typename Midi>
struct Connection {
    explicit Connection(RtMidi::Api api) : midi(api, kMidiClientName) { midi.setErrorCallback(&Complaint::Take, &complaint); }

    Complaint complaint;
    std::shared_ptr<MessageSink> sink;
    Midi midi;

    // Opens the port of that name. The numbers of RtMidi change with every port that comes or goes, so the name is
    // looked for, and looked at once more when the port is open.
    int Open(const std::string &name, const char *label)
    {
        const unsigned count = midi.getPortCount();
        for (unsigned i = 0; i < count; ++i) {
            if (midi.getPortName(i) != name) {
                continue;
            }
            midi.openPort(i, label);
            if (complaint.type == RtMidiError::MEMORY_ERROR) {
                return MidiCode::kNoMemory;
            }
            if (i >= midi.getPortCount() || midi.getPortName(i) != name) {
                return MidiCode::kNoDevice;
            }
            if (complaint.type == RtMidiError::DRIVER_ERROR) {
                return MidiCode::kAllocated; // the port is there and refuses the connection: somebody else has it
            }
            return complaint.type || !midi.isPortOpen() ? MidiCode::kError : MidiCode::kSuccess;
        }
        return MidiCode::kNoDevice;
    }
};

using OutConnection = Connection<RtMidiOut>;
using InConnection = Connection<RtMidiIn>;

// What is on its way on a connection when it ends: the notes that its close has ended.
void LetGoOut(MidiSystem &system, OutConnection & /*connection*/)
{
    system.LetPass();
}
void LetGoOut(MidiSystem &system, SourcePort &source)
{
    source.Drain();
    system.LetPass();
}

// Ends a connection where nobody waits for it, after that has passed.
template <typename C>
void EndWhenPassed(const ConnectionHost &host, std::unique_ptr<C> connection)
{
    if (connection) {
        host.retirement.Retire([&system = host.system, shared = std::shared_ptr<C>(std::move(connection))]() mutable {
            LetGoOut(system, *shared);
            shared.reset();
        });
    }
}

class RtOutput : public OutputPort, public WatchedPort {
public:
    RtOutput(const ConnectionHost &host, const std::string &portName, std::unique_ptr<OutConnection> connection)
        : host_(host), connection_(std::move(connection))
    {
        kind = PortKind::Output;
        name = portName;
        host_.watch.Add(*this);
    }
    ~RtOutput() override
    {
        host_.watch.Remove(*this);
        LetGo();
    }
    RtOutput(const RtOutput &) = delete;
    RtOutput &operator=(const RtOutput &) = delete;

    int Send(std::span<const std::uint8_t> message) override
    {
        const std::lock_guard lock(lock_);
        if (!connection_ || !host_.system.Alive()) {
            return MidiCode::kNoDevice;
        }
        if (!host_.system.HasRoom(budget_, message.size())) {
            return MidiCode::kError;
        }
        connection_->midi.sendMessage(message.data(), message.size());
        return MidiCode::kSuccess;
    }

    void LetGo() override
    {
        std::unique_ptr<OutConnection> leaving;
        {
            const std::lock_guard lock(lock_);
            leaving = std::move(connection_);
        }
        EndWhenPassed(host_, std::move(leaving));
    }

private:
    ConnectionHost host_;
    SpinLock lock_; // between a send and the moment at which the port is let go
    SendBudget budget_;
    std::unique_ptr<OutConnection> connection_; // empty once the port has gone
};

class RtInput : public InputPort, public WatchedPort {
public:
    RtInput(const ConnectionHost &host, const std::string &portName, std::unique_ptr<InConnection> connection)
        : host_(host), sink_(connection->sink), connection_(std::move(connection))
    {
        kind = PortKind::Input;
        name = portName;
        host_.watch.Add(*this);
    }
    ~RtInput() override
    {
        host_.watch.Remove(*this);
        host_.retirement.End(std::move(connection_));
    }
    RtInput(const RtInput &) = delete;
    RtInput &operator=(const RtInput &) = delete;

    void LetGo() override
    {
        host_.retirement.End(std::move(connection_));
        sink_->Gone();
    }

private:
    ConnectionHost host_;
    std::shared_ptr<MessageSink> sink_;
    std::unique_ptr<InConnection> connection_;
};

// A source port of a system that may end.
class RtSource : public SourcePort, public WatchedPort {
public:
    RtSource(const ConnectionHost &host, std::unique_ptr<SourcePort> source) : host_(host), source_(std::move(source))
    {
        kind = PortKind::Source;
        host_.watch.Add(*this);
    }
    ~RtSource() override
    {
        host_.watch.Remove(*this);
        LetGo();
    }
    RtSource(const RtSource &) = delete;
    RtSource &operator=(const RtSource &) = delete;

    void Send(std::span<const std::uint8_t> message, TimePoint due) override
    {
        const std::lock_guard lock(lock_);
        if (source_) {
            source_->Send(message, due);
        }
    }
    [[nodiscard]] bool Gone() const override
    {
        const std::lock_guard lock(lock_);
        return !source_ || source_->Gone();
    }
    void LetGo() override
    {
        std::unique_ptr<SourcePort> leaving;
        {
            const std::lock_guard lock(lock_);
            leaving = std::move(source_);
        }
        EndWhenPassed(host_, std::move(leaving));
    }

private:
    ConnectionHost host_;
    mutable SpinLock lock_;              // between a send and the moment at which the port is let go
    std::unique_ptr<SourcePort> source_; // empty once the system has ended
};

// Called by RtMidi's input thread, with one whole message; an empty one is a damaged one.
void Received(double /*deltaSeconds*/, std::vector<unsigned char> *message, void *sink)
{
    if (message != nullptr && !message->empty()) {
        static_cast<MessageSink *>(sink)->Deliver(*message);
    }
}

// The code of an opening that may throw.
template <typename Open>
int Guarded(Open open)
{
    try {
        return open();
    } catch (const std::bad_alloc &) {
        return MidiCode::kNoMemory;
    } catch (const std::exception &) {
        return MidiCode::kError;
    }
}

} // namespace

int ConnectOutput(const ConnectionHost &host, const std::string &name, std::unique_ptr<OutputPort> &port)
{
    return Guarded([&]() {
        auto connection = std::make_unique<OutConnection>(host.system.Api());
        const std::vector<std::string> before = host.system.Feeders(name);
        const int code = connection->Open(name, "out");
        if (code != MidiCode::kSuccess) {
            host.retirement.End(std::move(connection));
            return code;
        }
        host.system.Settle(name, before);
        port = std::make_unique<RtOutput>(host, name, std::move(connection));
        return code;
    });
}

int ConnectInput(const ConnectionHost &host, const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port)
{
    return Guarded([&]() {
        auto connection = std::make_unique<InConnection>(host.system.Api());
        // Thru hands on system exclusive messages and timing. Active sensing speaks for one cable only, and a receiver
        // that has seen it falls silent when it ends.
        connection->midi.ignoreTypes(false, false, true);
        connection->sink = std::move(sink);
        connection->midi.setCallback(&Received, connection->sink.get());
        const int code = connection->Open(name, "in");
        if (code != MidiCode::kSuccess) {
            host.retirement.End(std::move(connection));
            return code;
        }
        port = std::make_unique<RtInput>(host, name, std::move(connection));
        return code;
    });
}

std::unique_ptr<SourcePort> ConnectSource(const ConnectionHost &host)
{
    std::unique_ptr<SourcePort> source;
    Guarded([&]() {
        source = host.system.MakeSource();
        if (source && host.system.TellsChanges()) { // others do not end
            source = std::make_unique<RtSource>(host, std::move(source));
        }
        return MidiCode::kSuccess;
    });
    return source;
}

} // namespace velluto
