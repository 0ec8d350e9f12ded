// The built-in synthesizer as one more MIDI output: FluidSynth with a General MIDI SoundFont, sounding through the
// machine's audio. Made when it is opened, ended when its last connection is closed.
#pragma once

#include "platform/rtmidi/MidiPorts.h"
#include "platform/rtmidi/Retirement.h"

#include <mutex>

namespace velluto {

inline constexpr const char *kSynthesizerName = "Velluto Synthesizer";

// The SoundFont to sound with: VELLUTO_SOUNDFONT of the environment alone where it is set, else the user's own
// (soundfonts/default.sf2 or .sf3 in XDG_DATA_HOME), else the first that is found in the usual places. Empty where there is none.
std::string FindSoundFont();

class Synthesizer;

class SynthesizerPorts : public MidiPorts {
public:
    explicit SynthesizerPorts(std::string soundFont);
    ~SynthesizerPorts() override;
    SynthesizerPorts(const SynthesizerPorts &) = delete;
    SynthesizerPorts &operator=(const SynthesizerPorts &) = delete;

    std::vector<std::string> Outputs() override; // the synthesizer, where there is a SoundFont
    std::vector<std::string> Inputs() override { return {}; }
    // All connections play one synthesizer.
    int OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port) override;
    int OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port) override;

private:
    std::string soundFont_;
    std::weak_ptr<Synthesizer> playing_;
    Retirement retirement_;
};

} // namespace velluto
