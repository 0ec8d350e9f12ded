#include "platform/rtmidi/ListedSystem.h"

#include "platform/rtmidi/ProductName.h"

#include <optional>

namespace velluto {

namespace {

void Quiet(RtMidiError::Type /*type*/, const std::string & /*text*/, void * /*unused*/) {}

// Passes a message on when it gets it: it comes when it is due, give or take what the sender was late.
class VirtualSource : public SourcePort {
public:
    explicit VirtualSource(RtMidi::Api api) : midi_(api, kMidiClientName)
    {
        midi_.setErrorCallback(&Quiet, nullptr);
        midi_.openVirtualPort(kPlayerPortName);
    }
    void Send(std::span<const std::uint8_t> message, TimePoint /*due*/) override { midi_.sendMessage(message.data(), message.size()); }

private:
    RtMidiOut midi_;
};

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

// An object of RtMidi and its port.
template <typename Midi>
struct Connection {
    explicit Connection(RtMidi::Api api) : midi(api, kMidiClientName) { midi.setErrorCallback(&Complaint::Take, &complaint); }

    Complaint complaint;
    Midi midi;

    // Opens the port of that name; a MidiCode. The numbers of RtMidi change with every port that comes or goes, so the name is
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

class ListedOutput : public SystemOutput {
public:
    explicit ListedOutput(RtMidi::Api api) : connection_(api) {}

    int Open(const std::string &name) { return connection_.Open(name, "out"); }
    int Send(std::span<const std::uint8_t> message) override
    {
        connection_.midi.sendMessage(message.data(), message.size());
        return MidiCode::kSuccess;
    }

private:
    Connection<RtMidiOut> connection_;
};

class ListedInput : public SystemInput {
public:
    ListedInput(RtMidi::Api api, std::shared_ptr<MessageSink> sink) : sink_(std::move(sink)), connection_(api)
    {
        // Thru hands on system exclusive messages and timing. Active sensing speaks for one cable only, and a receiver
        // that has seen it falls silent when it ends.
        connection_.midi.ignoreTypes(false, false, true);
        connection_.midi.setCallback(&Received, sink_.get());
    }

    int Open(const std::string &name) { return connection_.Open(name, "in"); }

private:
    // Called by RtMidi's input thread, with one whole message; an empty one is a damaged one.
    static void Received(double /*deltaSeconds*/, std::vector<unsigned char> *message, void *sink)
    {
        if (message != nullptr && !message->empty()) {
            static_cast<MessageSink *>(sink)->Deliver(*message);
        }
    }

    std::shared_ptr<MessageSink> sink_;
    Connection<RtMidiIn> connection_; // ends first: its thread delivers
};

// Opens an end and hands it over where that went well; a MidiCode.
template <typename Port, typename End>
int OpenAs(std::unique_ptr<Port> port, const std::string &name, std::unique_ptr<End> &end)
{
    const int code = port->Open(name);
    if (code == MidiCode::kSuccess) {
        end = std::move(port);
    }
    return code;
}

void AppendNames(RtMidi &lister, std::vector<std::string> &names)
{
    const unsigned count = lister.getPortCount();
    for (unsigned i = 0; i < count; ++i) {
        std::string name = lister.getPortName(i);
        if (!name.empty() && !IsOwnPort(name)) {
            names.push_back(std::move(name));
        }
    }
}

} // namespace

bool ListedSystem::Connect()
{
    const std::lock_guard lock(mutex_);
    if (connected_ || !Present()) {
        return connected_;
    }
    try {
        outputs_ = std::make_unique<RtMidiOut>(api_, kMidiClientName);
        outputs_->setErrorCallback(&Quiet, nullptr);
        inputs_ = std::make_unique<RtMidiIn>(api_, kMidiClientName);
        inputs_->setErrorCallback(&Quiet, nullptr);
        connected_ = true;
    } catch (const std::exception &) {
        outputs_.reset();
        inputs_.reset();
    }
    return connected_;
}

int ListedSystem::OpenOutput(const std::string &name, std::unique_ptr<SystemOutput> &end)
{
    return OpenAs(std::make_unique<ListedOutput>(api_), name, end);
}

int ListedSystem::OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<SystemInput> &end)
{
    return OpenAs(std::make_unique<ListedInput>(api_, std::move(sink)), name, end);
}

std::unique_ptr<SourcePort> ListedSystem::MakeSource()
{
    return std::make_unique<VirtualSource>(api_);
}

std::vector<std::string> ListedSystem::Names(PortKind kind)
{
    const std::lock_guard lock(mutex_);
    std::vector<std::string> names;
    if (connected_) {
        AppendNames(kind == PortKind::Output ? static_cast<RtMidi &>(*outputs_) : static_cast<RtMidi &>(*inputs_), names);
    }
    return names;
}

} // namespace velluto
