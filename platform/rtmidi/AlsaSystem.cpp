#include "platform/rtmidi/AlsaSystem.h"

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/ProductName.h"
#include "platform/rtmidi/QuietAlsa.h"

#include <fcntl.h>
#include <unistd.h>

namespace velluto {

namespace {

void Quiet(RtMidiError::Type /*type*/, const std::string & /*text*/, void * /*unused*/) {}

// Without this device RtMidi's constructor fails and tells the standard error stream so, twice over.
bool HasSequencerDevice()
{
    const int descriptor = ::open("/dev/snd/seq", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    ::close(descriptor);
    return true;
}

// ALSA passes a message on when it gets it: it comes when it is due, give or take what the sender was late.
class AlsaSource : public SourcePort {
public:
    AlsaSource() : midi_(RtMidi::LINUX_ALSA, kMidiClientName)
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

bool AlsaSystem::Connect()
{
    const std::lock_guard lock(mutex_);
    if (connected_ || !HasSequencerDevice()) {
        return connected_;
    }
    QuietAlsa();
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

std::unique_ptr<SourcePort> AlsaSystem::MakeSource()
{
    return std::make_unique<AlsaSource>();
}

std::vector<std::string> AlsaSystem::Names(PortKind kind)
{
    const std::lock_guard lock(mutex_);
    std::vector<std::string> names;
    if (connected_) {
        AppendNames(kind == PortKind::Output ? static_cast<RtMidi &>(*outputs_) : static_cast<RtMidi &>(*inputs_), names);
    }
    return names;
}

} // namespace velluto
