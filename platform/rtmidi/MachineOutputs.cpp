#include "platform/rtmidi/MachineOutputs.h"

#include "platform/MidiDevices.h"

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace velluto {

MachineOutputs::MachineOutputs(std::unique_ptr<MidiPorts> synthesizers, const std::vector<SystemPorts *> &systems)
    : synthesizers_(std::move(synthesizers))
{
    for (SystemPorts *system : systems) {
        sources_.push_back({system, nullptr, false});
    }
}

void MachineOutputs::Show()
{
    for (Source &source : sources_) {
        if (!source.port || source.port->Gone()) {
            source.port.reset();
            source.port = source.system->OpenSource();
            source.isNew = true;
        }
    }
}

void MachineOutputs::Move()
{
    if (chosen_ != device_) {
        LetGo();
        device_ = chosen_;
    }
}

void MachineOutputs::LetGo()
{
    if (instrument_ && !Silence(*instrument_, notes_)) {
        abandoned_[device_.name].Add(notes_);
        notes_.Clear();
    }
    instrument_.reset();
}

bool MachineOutputs::Connect()
{
    if (instrument_ && instrument_->Gone()) {
        LetGo();
    }
    if (instrument_ || device_.system == nullptr || device_.system->OpenOutput(device_.name, instrument_) != MidiCode::kSuccess) {
        return false;
    }
    const auto left = abandoned_.find(device_.name);
    if (left != abandoned_.end() && Silence(*instrument_, left->second)) {
        abandoned_.erase(left);
    }
    return true;
}

bool MachineOutputs::WakeSynthesizer()
{
    bool isNew = false;
    if (!synthesizer_) {
        for (const std::string &name : synthesizers_->Outputs()) {
            isNew = synthesizers_->OpenOutput(name, synthesizer_) == MidiCode::kSuccess || isNew;
        }
    }
    return isNew;
}

bool MachineOutputs::Wake()
{
    bool isNew = false;
    for (Source &source : sources_) {
        isNew = (std::exchange(source.isNew, false) && source.port) || isNew;
    }
    isNew = Connect() || isNew;
    if (!instrument_) {
        return WakeSynthesizer() || isNew;
    }
    synthesizer_.reset();
    return isNew;
}

void MachineOutputs::Send(std::span<const std::uint8_t> message, TimePoint due)
{
    for (const Source &source : sources_) {
        if (source.port) {
            source.port->Send(message, due);
        }
    }
    if (instrument_) {
        if (instrument_->SendAt(message, due) == MidiCode::kSuccess) {
            notes_.Passed(message);
        }
    } else if (synthesizer_) {
        synthesizer_->Send(message);
    }
}

void MachineOutputs::KeepTime([[maybe_unused]] bool messagesFallDue)
{
#ifdef __linux__
    ::prctl(PR_SET_TIMERSLACK, messagesFallDue ? 1UL : 0UL); // nanosecond, instead of the usual 50 microseconds
#endif
}

} // namespace velluto
