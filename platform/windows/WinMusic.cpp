#include "platform/music/MachineMusic.h"

#include "platform/windows/WinMidi.h"
#include "platform/windows/WinOutputs.h"

namespace velluto {

struct MidiSystems {}; // there is one, which is there at once

std::shared_ptr<MidiSystems> LookForMidiSystems(const KnownDevices & /*known*/)
{
    return nullptr;
}

MachineMusic MakeMachineMusic(FileStore &files, MachineSequencer::Post post, const std::string &devicesPath,
                              std::shared_ptr<MidiSystems> /*systems*/) // NOLINT(performance-unnecessary-value-param): others keep them
{
    auto midi = std::make_unique<WinMidi>(devicesPath.empty() ? KnownDevices() : ReadKnownDevices(files, devicesPath));
    if (!devicesPath.empty()) {
        midi->keep = [devicesPath](const KnownDevices &known) { WriteKnownDevices(devicesPath, known); };
    }
    auto sequencer = std::make_shared<MachineSequencer>(files, std::make_unique<WinOutputs>(*midi), std::move(post));
    midi->outputChanged = [player = std::weak_ptr(sequencer)] {
        if (const auto there = player.lock()) {
            there->FollowOutputs();
        }
    };
    return {std::move(midi), std::move(sequencer)};
}

} // namespace velluto
