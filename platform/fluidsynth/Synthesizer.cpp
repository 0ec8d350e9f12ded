#include "platform/fluidsynth/Synthesizer.h"

#include "platform/MidiDevices.h"
#include "platform/rtmidi/QuietAlsa.h"

#include <fluidsynth.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr auto kWaitAtEnd = 3000ms;

struct DeleteSettings {
    void operator()(fluid_settings_t *settings) const { delete_fluid_settings(settings); }
};
struct DeleteSynth {
    void operator()(fluid_synth_t *synth) const { delete_fluid_synth(synth); }
};
struct DeleteDriver {
    void operator()(fluid_audio_driver_t *driver) const { delete_fluid_audio_driver(driver); }
};

using SettingsPointer = std::unique_ptr<fluid_settings_t, DeleteSettings>;
using SynthPointer = std::unique_ptr<fluid_synth_t, DeleteSynth>;
using DriverPointer = std::unique_ptr<fluid_audio_driver_t, DeleteDriver>;

void Quiet(int /*level*/, const char * /*text*/, void * /*unused*/) {}

// Once, before anything else of the library: no words on the standard error stream, and no look at drivers that are not
// wanted (one of them waits seconds for a server that does not run).
void PrepareLibrary()
{
    static const bool done = []() {
        for (int level = 0; level < LAST_LOG_LEVEL; ++level) {
            fluid_set_log_function(level, &Quiet, nullptr);
        }
        QuietAlsa();
        static const char *drivers[] = {"pulseaudio", "alsa", "file", nullptr};
        fluid_audio_driver_register(drivers);
        return true;
    }();
    static_cast<void>(done);
}

// The first audio that is to be had; in the end a file that goes nowhere, in real time, so that notes end.
DriverPointer StartAudio(fluid_settings_t *settings, fluid_synth_t *synth)
{
    for (const char *name : {"pulseaudio", "alsa", "file"}) {
        fluid_settings_setstr(settings, "audio.driver", name);
        if (std::string(name) == "file") {
            fluid_settings_setstr(settings, "audio.file.name", "/dev/null");
            fluid_settings_setstr(settings, "audio.file.type", "raw");
        }
        DriverPointer driver(new_fluid_audio_driver(settings, synth));
        if (driver) {
            return driver;
        }
    }
    return nullptr;
}

} // namespace

class Synthesizer {
public:
    explicit Synthesizer(const std::string &soundFont)
    {
        PrepareLibrary();
        settings_.reset(new_fluid_settings());
        if (!settings_) {
            return;
        }
        fluid_settings_setint(settings_.get(), "synth.dynamic-sample-loading", 1); // opens in a third of the time and memory
        synth_.reset(new_fluid_synth(settings_.get()));
        if (!synth_ || fluid_synth_sfload(synth_.get(), soundFont.c_str(), 1) == FLUID_FAILED) {
            synth_.reset();
            return;
        }
        driver_ = StartAudio(settings_.get(), synth_.get());
    }

    [[nodiscard]] bool Made() const { return synth_ != nullptr; }

    // The library has a lock of its own. Events to a synthesizer that nothing renders would pile up: they are dropped.
    void Play(std::span<const std::uint8_t> message)
    {
        if (!driver_ || message.empty()) {
            return;
        }
        if (message.front() == 0xF0) {
            PlayExclusive(message);
        } else if (message.front() < 0xF0) {
            PlayChannelMessage(message);
        } else if (message.front() == 0xFF) {
            fluid_synth_system_reset(synth_.get());
        }
    }

private:
    void PlayExclusive(std::span<const std::uint8_t> message)
    {
        const bool whole = message.size() > 2 && message.back() == 0xF7;
        if (whole) {
            fluid_synth_sysex(synth_.get(), reinterpret_cast<const char *>(message.data()) + 1, static_cast<int>(message.size()) - 2,
                              nullptr, nullptr, nullptr, 0);
        }
    }

    void PlayChannelMessage(std::span<const std::uint8_t> message)
    {
        fluid_synth_t *synth = synth_.get();
        const int channel = message[0] & 0x0F;
        const int data1 = message.size() > 1 ? message[1] : 0;
        const int data2 = message.size() > 2 ? message[2] : 0;
        switch (message[0] & 0xF0) {
        case 0x80:
            fluid_synth_noteoff(synth, channel, data1);
            break;
        case 0x90:
            fluid_synth_noteon(synth, channel, data1, data2);
            break;
        case 0xA0:
            fluid_synth_key_pressure(synth, channel, data1, data2);
            break;
        case 0xB0:
            PlayController(channel, data1, data2);
            break;
        case 0xC0:
            fluid_synth_program_change(synth, channel, data1);
            break;
        case 0xD0:
            fluid_synth_channel_pressure(synth, channel, data1);
            break;
        case 0xE0:
            fluid_synth_pitch_bend(synth, channel, data1 | data2 << 7);
            break;
        default:
            break;
        }
    }

    void PlayController(int channel, int number, int value)
    {
        constexpr int kBankSelectMsb = 0;
        constexpr int kDrumBank = 120; // the two banks that General MIDI 2 gives a meaning to
        constexpr int kMelodicBank = 121;
        if (number == kBankSelectMsb && (value == kDrumBank || value == kMelodicBank)) {
            fluid_synth_set_channel_type(synth_.get(), channel, value == kDrumBank ? CHANNEL_TYPE_DRUM : CHANNEL_TYPE_MELODIC);
        }
        fluid_synth_cc(synth_.get(), channel, number, value);
    }

    SettingsPointer settings_;
    SynthPointer synth_;
    DriverPointer driver_; // ends first: it renders the synthesizer
};

namespace {

class SynthesizerOutput : public OutputPort {
public:
    SynthesizerOutput(std::shared_ptr<Synthesizer> synthesizer, Retirement &retirement)
        : synthesizer_(std::move(synthesizer)), retirement_(retirement)
    {
    }
    ~SynthesizerOutput() override
    {
        // The audio system may take its time to play out what it has.
        retirement_.Retire([last = std::move(synthesizer_)]() mutable { last.reset(); });
    }
    SynthesizerOutput(const SynthesizerOutput &) = delete;
    SynthesizerOutput &operator=(const SynthesizerOutput &) = delete;

    int Send(std::span<const std::uint8_t> message) override
    {
        synthesizer_->Play(message);
        return MidiCode::kSuccess;
    }

private:
    std::shared_ptr<Synthesizer> synthesizer_;
    Retirement &retirement_;
};

} // namespace

namespace {

// A whole SoundFont. Others are not even tried: one of the library's readers complains of them on the standard error
// stream.
bool IsSoundFont(const std::string &path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        return false;
    }
    std::array<char, 12> head{}; // "RIFF", the length of what follows in four bytes, "sfbk"
    std::ifstream file(path, std::ios::binary);
    file.read(head.data(), head.size());
    if (!file || std::string(head.data(), 4) != "RIFF" || std::string(head.data() + 8, 4) != "sfbk") {
        return false;
    }
    std::uint64_t length = 0;
    for (std::size_t i = 0; i < 4; ++i) {
        length |= static_cast<std::uint64_t>(static_cast<unsigned char>(head[4 + i])) << (8 * i);
    }
    const std::uint64_t there = std::filesystem::file_size(path, error);
    return !error && length + 8 <= there;
}

} // namespace

std::string FindSoundFont()
{
    if (const char *chosen = std::getenv("VELLUTO_SOUNDFONT"); chosen != nullptr) {
        return IsSoundFont(chosen) ? chosen : "";
    }
    for (const char *place :
         {"/usr/share/sounds/sf2/default-GM.sf2", "/usr/share/sounds/sf2/TimGM6mb.sf2", "/usr/share/soundfonts/default.sf2",
          "/usr/share/soundfonts/TimGM6mb.sf2", "/usr/local/share/sounds/sf2/TimGM6mb.sf2", "/usr/local/share/soundfonts/TimGM6mb.sf2"}) {
        if (IsSoundFont(place)) {
            return place;
        }
    }
    return {};
}

SynthesizerPorts::SynthesizerPorts(std::string soundFont) : soundFont_(std::move(soundFont)) {}

SynthesizerPorts::~SynthesizerPorts()
{
    retirement_.Wait(kWaitAtEnd);
}

std::vector<std::string> SynthesizerPorts::Outputs()
{
    return soundFont_.empty() ? std::vector<std::string>() : std::vector<std::string>{kSynthesizerName};
}

int SynthesizerPorts::OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port)
{
    if (name != kSynthesizerName || soundFont_.empty()) {
        return MidiCode::kNoDevice;
    }
    try {
        std::shared_ptr<Synthesizer> synthesizer = playing_.lock();
        if (!synthesizer) {
            synthesizer = std::make_shared<Synthesizer>(soundFont_);
            if (!synthesizer->Made()) {
                return MidiCode::kError;
            }
            playing_ = synthesizer;
        }
        port = std::make_unique<SynthesizerOutput>(std::move(synthesizer), retirement_);
        return MidiCode::kSuccess;
    } catch (const std::bad_alloc &) {
        return MidiCode::kNoMemory;
    } catch (const std::exception &) {
        return MidiCode::kError;
    }
}

int SynthesizerPorts::OpenInput(const std::string & /*name*/, std::shared_ptr<MessageSink> /*sink*/, std::unique_ptr<InputPort> & /*port*/)
{
    return MidiCode::kNoDevice;
}

} // namespace velluto
