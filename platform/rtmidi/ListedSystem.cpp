#include "platform/rtmidi/ListedSystem.h"

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/ProductName.h"

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
        outputs_ = std::make_unique<RtMidiOut>(Api(), kMidiClientName);
        outputs_->setErrorCallback(&Quiet, nullptr);
        inputs_ = std::make_unique<RtMidiIn>(Api(), kMidiClientName);
        inputs_->setErrorCallback(&Quiet, nullptr);
        connected_ = true;
    } catch (const std::exception &) {
        outputs_.reset();
        inputs_.reset();
    }
    return connected_;
}

std::unique_ptr<SourcePort> ListedSystem::MakeSource()
{
    return api_ == RtMidi::WINDOWS_MM ? nullptr : std::make_unique<VirtualSource>(api_);
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
