#include "platform/rtmidi/MachineOutputs.h"

#include "platform/MidiDevices.h"

#include <utility>

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

bool MachineOutputs::Wake()
{
    bool isNew = false;
    for (Source &source : sources_) {
        isNew = (std::exchange(source.isNew, false) && source.port) || isNew;
    }
    if (!synthesizer_) {
        for (const std::string &name : synthesizers_->Outputs()) {
            isNew = synthesizers_->OpenOutput(name, synthesizer_) == MidiCode::kSuccess || isNew;
        }
    }
    return isNew;
}

void MachineOutputs::Send(std::span<const std::uint8_t> message, TimePoint due)
{
    for (const Source &source : sources_) {
        if (source.port) {
            source.port->Send(message, due);
        }
    }
    if (synthesizer_) {
        synthesizer_->Send(message);
    }
}

} // namespace velluto
