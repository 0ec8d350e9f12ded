#include "platform/fluidsynth/Synthesizer.h"

#include "platform/MidiDevices.h"
#include "platform/fluidsynth/FluidLibrary.h"
#include "platform/rtmidi/QuietAlsa.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr auto kWaitAtEnd = 3000ms;

// What one of the library's own functions takes away.
template <typename Thing>
using Owned = std::unique_ptr<Thing, void (*)(Thing *)>;

void Quiet(int /*level*/, const char * /*text*/, void * /*unused*/) {}

// The library, told once and before anything else to write no words on the standard error stream, and to look at no drivers
// that are not wanted (one of them waits seconds for a server that does not run). Nothing where there is none.
const FluidLibrary *PreparedLibrary()
{
    static const FluidLibrary *const prepared = []() {
        const FluidLibrary *const fluid = FluidLibrary::Open();
        if (fluid != nullptr) {
            for (int level = 0; level < LAST_LOG_LEVEL; ++level) {
                fluid->fluid_set_log_function(level, &Quiet, nullptr);
            }
            QuietAlsa();
            static const char *drivers[] = {"pulseaudio", "alsa", "file", nullptr};
            fluid->fluid_audio_driver_register(drivers);
        }
        return fluid;
    }();
    return prepared;
}

// The first audio that is to be had; in the end a file that goes nowhere, in real time, so that notes end.
Owned<fluid_audio_driver_t> StartAudio(const FluidLibrary &fluid, fluid_settings_t *settings, fluid_synth_t *synth)
{
    Owned<fluid_audio_driver_t> driver(nullptr, fluid.delete_fluid_audio_driver);
    for (const char *name : {"pulseaudio", "alsa", "file"}) {
        fluid.fluid_settings_setstr(settings, "audio.driver", name);
        if (std::string(name) == "file") {
            fluid.fluid_settings_setstr(settings, "audio.file.name", "/dev/null");
            fluid.fluid_settings_setstr(settings, "audio.file.type", "raw");
        }
        driver.reset(fluid.new_fluid_audio_driver(settings, synth));
        if (driver) {
            break;
        }
    }
    return driver;
}

} // namespace

class Synthesizer {
public:
    explicit Synthesizer(const std::string &soundFont)
    {
        if (fluid_ == nullptr) {
            return;
        }
        settings_ = {fluid_->new_fluid_settings(), fluid_->delete_fluid_settings};
        if (!settings_) {
            return;
        }
        fluid_->fluid_settings_setint(settings_.get(), "synth.dynamic-sample-loading", 1); // opens in a third of the time and memory
        synth_ = {fluid_->new_fluid_synth(settings_.get()), fluid_->delete_fluid_synth};
        if (!synth_ || fluid_->fluid_synth_sfload(synth_.get(), soundFont.c_str(), 1) == FLUID_FAILED) {
            synth_.reset();
            return;
        }
        driver_ = StartAudio(*fluid_, settings_.get(), synth_.get());
    }

    [[nodiscard]] bool Made() const { return synth_ != nullptr; }

    // The library has a lock of its own. Events to a synthesizer that nothing renders would pile up: they are dropped.
    void Play(std::span<const std::uint8_t> message)
    {
        if (!driver_ || message.empty()) {
            return;
        }
        if (message.front() == MidiStatus::kExclusive) {
            PlayExclusive(message);
        } else if (message.front() < MidiStatus::kExclusive) {
            PlayChannelMessage(message);
        } else if (message.front() == MidiStatus::kReset) {
            fluid_->fluid_synth_system_reset(synth_.get());
        }
    }

private:
    void PlayExclusive(std::span<const std::uint8_t> message)
    {
        const bool whole = message.size() > 2 && message.back() == MidiStatus::kExclusiveEnd;
        if (whole) {
            fluid_->fluid_synth_sysex(synth_.get(), reinterpret_cast<const char *>(message.data()) + 1,
                                      static_cast<int>(message.size()) - 2, nullptr, nullptr, nullptr, 0);
        }
    }

    void PlayChannelMessage(std::span<const std::uint8_t> message)
    {
        fluid_synth_t *synth = synth_.get();
        const int channel = MidiStatus::ChannelOf(message[0]);
        const int data1 = message.size() > 1 ? message[1] : 0;
        const int data2 = message.size() > 2 ? message[2] : 0;
        switch (MidiStatus::KindOf(message[0])) {
        case MidiStatus::kNoteOff:
            fluid_->fluid_synth_noteoff(synth, channel, data1);
            break;
        case MidiStatus::kNoteOn:
            fluid_->fluid_synth_noteon(synth, channel, data1, data2);
            break;
        case MidiStatus::kKeyPressure:
            fluid_->fluid_synth_key_pressure(synth, channel, data1, data2);
            break;
        case MidiStatus::kControlChange:
            PlayController(channel, data1, data2);
            break;
        case MidiStatus::kProgramChange:
            fluid_->fluid_synth_program_change(synth, channel, data1);
            break;
        case MidiStatus::kChannelPressure:
            fluid_->fluid_synth_channel_pressure(synth, channel, data1);
            break;
        case MidiStatus::kPitchBend:
            fluid_->fluid_synth_pitch_bend(synth, channel, data1 | data2 << 7);
            break;
        default:
            break;
        }
    }

    void PlayController(int channel, int number, int value)
    {
        constexpr int kDrumBank = 120; // the two banks that General MIDI 2 gives a meaning to
        constexpr int kMelodicBank = 121;
        if (number == MidiController::kBankMsb && (value == kDrumBank || value == kMelodicBank)) {
            fluid_->fluid_synth_set_channel_type(synth_.get(), channel, value == kDrumBank ? CHANNEL_TYPE_DRUM : CHANNEL_TYPE_MELODIC);
        }
        fluid_->fluid_synth_cc(synth_.get(), channel, number, value);
    }

    const FluidLibrary *fluid_ = PreparedLibrary();
    Owned<fluid_settings_t> settings_{nullptr, nullptr};
    Owned<fluid_synth_t> synth_{nullptr, nullptr};
    Owned<fluid_audio_driver_t> driver_{nullptr, nullptr}; // ends first: it renders the synthesizer
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

// Where distributions put a General MIDI SoundFont, the one that they name as the usual one first.
constexpr std::array kPlaces{"/usr/share/sounds/sf2/default-GM.sf2",     "/usr/share/sounds/sf3/default-GM.sf3",
                             "/usr/share/soundfonts/default.sf2",        "/usr/share/soundfonts/default.sf3",
                             "/usr/share/sounds/sf2/TimGM6mb.sf2",       "/usr/share/sounds/sf2/FluidR3_GM.sf2",
                             "/usr/share/sounds/sf3/FluidR3_GM.sf3",     "/usr/share/sounds/sf3/MuseScore_General.sf3",
                             "/usr/share/soundfonts/TimGM6mb.sf2",       "/usr/share/soundfonts/FluidR3_GM.sf2",
                             "/usr/share/soundfonts/FluidR3_GM2-2.sf2",  "/usr/share/soundfonts/freepats-general-midi.sf2",
                             "/usr/local/share/sounds/sf2/TimGM6mb.sf2", "/usr/local/share/soundfonts/default.sf2",
                             "/usr/local/share/soundfonts/TimGM6mb.sf2"};

// The folder of the user's own data; empty where there is none.
std::string OwnSounds()
{
    if (const char *data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data == '/') {
        return data;
    }
    const char *const home = std::getenv("HOME");
    return home != nullptr && *home == '/' ? std::string(home) + "/.local/share" : "";
}

} // namespace

std::string FindSoundFont()
{
    if (const char *chosen = std::getenv("VELLUTO_SOUNDFONT"); chosen != nullptr) {
        return IsSoundFont(chosen) ? chosen : "";
    }
    std::vector<std::string> places;
    if (const std::string own = OwnSounds(); !own.empty()) {
        places = {own + "/soundfonts/default.sf2", own + "/soundfonts/default.sf3"};
    }
    places.insert(places.end(), kPlaces.begin(), kPlaces.end());
    const auto found = std::ranges::find_if(places, IsSoundFont);
    return found != places.end() ? *found : "";
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
