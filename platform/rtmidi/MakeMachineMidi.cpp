#include "platform/fluidsynth/Synthesizer.h"
#include "platform/rtmidi/AlsaSystem.h"
#include "platform/rtmidi/JackSystem.h"
#include "platform/rtmidi/MachineMidi.h"
#include "platform/rtmidi/RtMidiPorts.h"

#include <algorithm>

namespace velluto {

std::unique_ptr<MidiDevices> MakeMachineMidi()
{
    std::vector<std::unique_ptr<MidiPorts>> systems;
    systems.push_back(std::make_unique<SynthesizerPorts>(FindSoundFont()));
    std::vector<RtMidi::Api> compiled;
    RtMidi::getCompiledApi(compiled);
    const auto has = [&](RtMidi::Api api) { return std::ranges::find(compiled, api) != compiled.end(); };
    if (has(RtMidi::LINUX_ALSA)) {
        systems.push_back(std::make_unique<RtMidiPorts>(std::make_unique<AlsaSystem>()));
    }
    if (has(RtMidi::UNIX_JACK)) {
        systems.push_back(std::make_unique<RtMidiPorts>(std::make_unique<JackSystem>()));
    }
    return std::make_unique<MachineMidi>(std::move(systems));
}

} // namespace velluto
