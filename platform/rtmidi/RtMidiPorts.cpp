#include "platform/rtmidi/RtMidiPorts.h"

#include "platform/MidiDevices.h"
#include "platform/rtmidi/SpinLock.h"

#include <algorithm>
#include <new>
#include <optional>

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr auto kLookPeriod = 50ms;       // how often a system is looked at that gives no word
constexpr int kLooksAfterWord = 10;      // word may come before the port list shows what it tells
constexpr auto kWaitForTheDead = 1500ms; // RtMidi takes a second to leave a dead server
constexpr auto kWaitAtEnd = 3000ms;

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

// Ends an object where nobody waits for it.
template <typename C>
void EndElsewhere(Retirement &retirement, std::unique_ptr<C> object)
{
    if (object) {
        retirement.Retire([shared = std::shared_ptr<C>(std::move(object))]() mutable { shared.reset(); });
    }
}

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

// The same as EndElsewhere, after that has passed.
template <typename C>
void EndWhenPassed(RtMidiPorts &owner, std::unique_ptr<C> connection)
{
    if (connection) {
        owner.Retired().Retire([&system = owner.System(), shared = std::shared_ptr<C>(std::move(connection))]() mutable {
            LetGoOut(system, *shared);
            shared.reset();
        });
    }
}

class RtOutput : public OutputPort, public WatchedPort {
public:
    RtOutput(RtMidiPorts &owner, const std::string &portName, std::unique_ptr<OutConnection> connection)
        : owner_(owner), connection_(std::move(connection))
    {
        kind = PortKind::Output;
        name = portName;
        owner_.Watch(*this);
    }
    ~RtOutput() override
    {
        owner_.Unwatch(*this);
        LetGo();
    }
    RtOutput(const RtOutput &) = delete;
    RtOutput &operator=(const RtOutput &) = delete;

    int Send(std::span<const std::uint8_t> message) override
    {
        const std::lock_guard lock(lock_);
        if (!connection_ || !owner_.System().Alive()) {
            return MidiCode::kNoDevice;
        }
        if (!owner_.System().HasRoom(budget_, message.size())) {
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
        EndWhenPassed(owner_, std::move(leaving));
    }

private:
    RtMidiPorts &owner_;
    SpinLock lock_; // between a send and the moment at which the port is let go
    SendBudget budget_;
    std::unique_ptr<OutConnection> connection_; // empty once the port has gone
};

class RtInput : public InputPort, public WatchedPort {
public:
    RtInput(RtMidiPorts &owner, const std::string &portName, std::unique_ptr<InConnection> connection)
        : owner_(owner), sink_(connection->sink), connection_(std::move(connection))
    {
        kind = PortKind::Input;
        name = portName;
        owner_.Watch(*this);
    }
    ~RtInput() override
    {
        owner_.Unwatch(*this);
        EndElsewhere(owner_.Retired(), std::move(connection_));
    }
    RtInput(const RtInput &) = delete;
    RtInput &operator=(const RtInput &) = delete;

    void LetGo() override
    {
        EndElsewhere(owner_.Retired(), std::move(connection_));
        sink_->Gone();
    }

private:
    RtMidiPorts &owner_;
    std::shared_ptr<MessageSink> sink_;
    std::unique_ptr<InConnection> connection_;
};

// A source port of a system that may end.
class RtSource : public SourcePort, public WatchedPort {
public:
    RtSource(RtMidiPorts &owner, std::unique_ptr<SourcePort> source) : owner_(owner), source_(std::move(source))
    {
        kind = PortKind::Source;
        owner_.Watch(*this);
    }
    ~RtSource() override
    {
        owner_.Unwatch(*this);
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
        EndWhenPassed(owner_, std::move(leaving));
    }

private:
    RtMidiPorts &owner_;
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

RtMidiPorts::RtMidiPorts(std::unique_ptr<MidiSystem> system) : system_(std::move(system))
{
    system_->changed = [signal = signal_]() {
        {
            const std::lock_guard lock(signal->mutex);
            signal->changed = true;
        }
        signal->rouse.notify_all();
    };
}

RtMidiPorts::~RtMidiPorts()
{
    if (thread_.joinable()) {
        {
            const std::lock_guard lock(signal_->mutex);
            signal_->ending = true;
        }
        signal_->rouse.notify_all();
        thread_.join();
    }
    // A server that neither runs nor dies can hold the closing of a client for ever: the program ends without it. The
    // connections end first, the system that they belong to after them.
    if (!retirement_.Wait(kWaitAtEnd)) {
        static_cast<void>(system_.release());
        return;
    }
    EndElsewhere(retirement_, std::move(system_));
    retirement_.Wait(kWaitAtEnd);
}

int RtMidiPorts::OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port)
{
    if (!EnsureAlive()) {
        return MidiCode::kNoDevice;
    }
    return Guarded([&]() {
        auto connection = std::make_unique<OutConnection>(system_->Api());
        const int code = connection->Open(name, "out");
        if (code != MidiCode::kSuccess) {
            EndElsewhere(retirement_, std::move(connection));
            return code;
        }
        system_->Settle(name);
        port = std::make_unique<RtOutput>(*this, name, std::move(connection));
        return code;
    });
}

int RtMidiPorts::OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port)
{
    if (!EnsureAlive()) {
        return MidiCode::kNoDevice;
    }
    return Guarded([&]() {
        auto connection = std::make_unique<InConnection>(system_->Api());
        // Thru hands on system exclusive messages and timing. Active sensing speaks for one cable only, and a receiver
        // that has seen it falls silent when it ends.
        connection->midi.ignoreTypes(false, false, true);
        connection->sink = std::move(sink);
        connection->midi.setCallback(&Received, connection->sink.get());
        const int code = connection->Open(name, "in");
        if (code != MidiCode::kSuccess) {
            EndElsewhere(retirement_, std::move(connection));
            return code;
        }
        port = std::make_unique<RtInput>(*this, name, std::move(connection));
        return code;
    });
}

std::unique_ptr<SourcePort> RtMidiPorts::OpenSource()
{
    if (!EnsureAlive()) {
        return nullptr;
    }
    std::unique_ptr<SourcePort> source;
    Guarded([&]() {
        source = system_->MakeSource();
        if (source && system_->TellsChanges()) { // others do not end
            source = std::make_unique<RtSource>(*this, std::move(source));
        }
        return MidiCode::kSuccess;
    });
    return source;
}

std::vector<std::string> RtMidiPorts::List(PortKind kind)
{
    return EnsureAlive() ? system_->Names(kind) : std::vector<std::string>();
}

bool RtMidiPorts::EnsureAlive()
{
    if (system_->Alive()) {
        return true;
    }
    CheckPorts(); // everything on a dead system is let go
    return retirement_.Wait(kWaitForTheDead) && system_->Connect();
}

void RtMidiPorts::Watch(WatchedPort &port)
{
    {
        const std::lock_guard lock(portsMutex_);
        ports_.push_back(&port);
    }
    {
        const std::lock_guard lock(signal_->mutex);
        signal_->watching = true;
        signal_->changed = true; // the port may have gone while it was being opened
    }
    if (!thread_.joinable()) {
        thread_ = std::thread([this]() { Run(); });
    }
    signal_->rouse.notify_all();
}

void RtMidiPorts::Unwatch(WatchedPort &port)
{
    const std::lock_guard lock(portsMutex_);
    std::erase(ports_, &port);
    const std::lock_guard signalLock(signal_->mutex);
    signal_->watching = !ports_.empty();
}

void RtMidiPorts::Run()
{
    const bool told = system_->TellsChanges();
    int looks = 0; // at a system that gives word: how many more
    Signal &signal = *signal_;
    std::unique_lock lock(signal.mutex);
    while (!signal.ending) {
        const auto roused = [&signal]() { return signal.ending || signal.changed; };
        if (!signal.watching || (told && looks == 0)) {
            signal.rouse.wait(lock, roused);
        } else {
            signal.rouse.wait_for(lock, kLookPeriod, roused);
        }
        looks = signal.changed ? kLooksAfterWord : std::max(looks - 1, 0);
        signal.changed = false;
        lock.unlock();
        CheckPorts();
        lock.lock();
    }
}

void RtMidiPorts::CheckPorts()
{
    const std::lock_guard lock(portsMutex_);
    if (ports_.empty()) {
        return;
    }
    const std::vector<std::string> outputs = system_->Names(PortKind::Output);
    const std::vector<std::string> inputs = system_->Names(PortKind::Input);
    const bool alive = system_->Alive();
    std::erase_if(ports_, [&](WatchedPort *port) {
        const std::vector<std::string> &names = port->kind == PortKind::Output ? outputs : inputs;
        const bool isListed = port->kind == PortKind::Source || std::ranges::find(names, port->name) != names.end();
        const bool gone = !alive || !isListed;
        if (gone) {
            port->LetGo();
        }
        return gone;
    });
}

} // namespace velluto
