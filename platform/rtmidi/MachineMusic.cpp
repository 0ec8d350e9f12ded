#include "platform/music/MachineMusic.h"

#include "platform/fluidsynth/Synthesizer.h"
#include "platform/rtmidi/ListedSystem.h"
#include "platform/rtmidi/MachineMidi.h"
#include "platform/rtmidi/MachineOutputs.h"
#ifdef __linux__
#include "platform/rtmidi/AlsaSystem.h"
#include "platform/rtmidi/JackSystem.h"
#endif

#include <algorithm>
#include <utility>

namespace velluto {

namespace {

#ifdef __linux__
// Those with a name as JACK gives it. ALSA's ends in numbers that are new each time.
PortNames KnownToJack(const KnownDevices &known)
{
    const auto names = [](const std::vector<KnownDevice> &devices) {
        std::vector<std::string> ofJack;
        for (const KnownDevice &device : devices) {
            if (device.name.find(':') != std::string::npos && LastingName(device.name) == device.name) {
                ofJack.push_back(device.name);
            }
        }
        return ofJack;
    };
    return {names(known.outs), names(known.ins)};
}
#endif

} // namespace

struct MidiSystems {
    std::vector<std::unique_ptr<SystemPorts>> all; // JACK's is ours and always there on Linux; others as far as RtMidi was built for them
};

std::shared_ptr<MidiSystems> LookForMidiSystems([[maybe_unused]] const KnownDevices &known)
{
    std::vector<RtMidi::Api> compiled;
    RtMidi::getCompiledApi(compiled);
    const auto has = [&](RtMidi::Api api) { return std::ranges::find(compiled, api) != compiled.end(); };
    auto systems = std::make_shared<MidiSystems>();
#ifdef __linux__
    if (has(RtMidi::LINUX_ALSA)) {
        systems->all.push_back(std::make_unique<SystemPorts>(std::make_unique<AlsaSystem>()));
    }
    systems->all.push_back(std::make_unique<SystemPorts>(std::make_unique<JackSystem>()));
    // A JACK server answers in its own time, some periods of it, in which the program has other things to do: it is the first to be asked.
    systems->all.back()->LookAhead(KnownToJack(known));
    if (systems->all.size() > 1) {
        systems->all.front()->LookAhead();
    }
#else
    if (has(RtMidi::MACOSX_CORE)) {
        auto system = std::make_unique<ListedSystem>(RtMidi::MACOSX_CORE);
        system->Connect(); // its changes are told by way of the thread that asked first, which has to stay
        systems->all.push_back(std::make_unique<SystemPorts>(std::move(system)));
    }
#endif
    return systems;
}

MachineMusic MakeMachineMusic(FileStore &files, MachineSequencer::Post post, const std::string &devicesPath,
                              std::shared_ptr<MidiSystems> systems)
{
    const std::shared_ptr<MidiSystems> given = std::move(systems);
    std::vector<std::unique_ptr<MidiPorts>> devices;
    std::vector<SystemPorts *> sources;
    devices.push_back(std::make_unique<SynthesizerPorts>(FindSoundFont()));
    for (std::unique_ptr<SystemPorts> &system : std::exchange(given->all, {})) {
        sources.push_back(system.get());
        devices.push_back(std::move(system));
    }
    const MidiPorts *const synthesizer = devices.front().get();
    auto outputs = std::make_unique<MachineOutputs>(std::make_unique<SynthesizerPorts>(FindSoundFont()), std::move(sources));
    auto midi =
        std::make_unique<MachineMidi>(std::move(devices), devicesPath.empty() ? KnownDevices() : ReadKnownDevices(files, devicesPath));
    if (!devicesPath.empty()) {
        midi->keep = [devicesPath](const KnownDevices &known) { WriteKnownDevices(devicesPath, known); };
    }
    MachineOutputs *const chooser = outputs.get();
    auto sequencer = std::make_shared<MachineSequencer>(files, std::move(outputs), std::move(post));
    midi->outputChanged = [synthesizer, &outputs = *chooser, player = std::weak_ptr(sequencer)](const ListedPort &output) {
        const auto there = player.lock(); // and with it its outputs
        if (there && outputs.Choose(output.system == synthesizer ? ListedPort() : output)) {
            there->FollowOutputs();
        }
    };
    return {std::move(midi), std::move(sequencer)};
}

} // namespace velluto
