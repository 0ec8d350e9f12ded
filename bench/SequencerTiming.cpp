// How true to a file's times its playing is: a note each 10 ms for 20 s, from the sequencer's port to a JACK client that notes
// when each arrives; beside it the same file in FluidSynth's own player. And what an open, idle sequencer costs. Needs a JACK
// server (bench/sequencer.sh starts one).
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"

#include <fluidsynth.h>
#include <jack/jack.h>
#include <jack/midiport.h>

#include <sys/resource.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace velluto::bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kNotes = 2000;
constexpr double kEvery = 10;        // milliseconds
constexpr double kMostDeviation = 2; // milliseconds, of 99 notes in a hundred
constexpr double kMostDrift = 0.5;   // milliseconds, from the first tenth of the notes to the last
constexpr double kMostIdle = 1;      // percent of a core
constexpr std::size_t kTenth = kNotes / 10;

// A beat of a second in 1000 ticks: a tick is a millisecond. Each note lasts 5 ms.
void WriteFile(const std::string &path)
{
    std::string track("\x00\xFF\x51\x03\x0F\x42\x40\x00\x90\x3C\x64\x05\x3C\x00", 14);
    for (std::size_t i = 1; i < kNotes; ++i) {
        track += std::string("\x05\x3C\x64\x05\x3C\x00", 6);
    }
    track += std::string("\x05\xFF\x2F\x00", 4);
    std::string head("MThd\0\0\0\6\0\0\0\1\x03\xE8MTrk", 18);
    for (int shift = 24; shift >= 0; shift -= 8) {
        head += static_cast<char>(track.size() >> shift);
    }
    std::ofstream(path, std::ios::binary) << head << track;
}

// The times of the notes in milliseconds of some clock, written by one thread.
struct Arrivals {
    std::vector<double> times = std::vector<double>(2 * kNotes);
    std::atomic<std::size_t> count = 0;

    void Note(double time)
    {
        const std::size_t at = count.load();
        if (at < times.size()) {
            times[at] = time;
            count = at + 1;
        }
    }
};

bool IsNoteOn(const std::uint8_t *message)
{
    return (message[0] & 0xF0) == 0x90 && message[2] != 0;
}

// A JACK client that hears the sequencer's port.
class Listener {
public:
    Listener()
    {
        client_ = jack_client_open("listener", JackNoStartServer, nullptr);
        if (client_ == nullptr) {
            throw std::runtime_error("no JACK server");
        }
        port_ = jack_port_register(client_, "in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
        jack_set_process_callback(
            client_,
            [](jack_nframes_t frames, void *self) {
                static_cast<Listener *>(self)->Process(frames);
                return 0;
            },
            this);
        jack_activate(client_);
    }
    ~Listener() { jack_client_close(client_); }
    Listener(const Listener &) = delete;
    Listener &operator=(const Listener &) = delete;

    bool ListenTo(const char *port) { return jack_connect(client_, port, "listener:in") == 0; }

    Arrivals arrivals;

private:
    void Process(jack_nframes_t frames)
    {
        void *const buffer = jack_port_get_buffer(port_, frames);
        const std::uint32_t count = jack_midi_get_event_count(buffer);
        for (std::uint32_t i = 0; i < count; ++i) {
            jack_midi_event_t event{};
            if (jack_midi_event_get(&event, buffer, i) == 0 && event.size == 3 && IsNoteOn(event.buffer)) {
                const jack_nframes_t frame = jack_last_frame_time(client_) + event.time;
                arrivals.Note(static_cast<double>(jack_frames_to_time(client_, frame)) / 1000);
            }
        }
    }

    jack_client_t *client_ = nullptr;
    jack_port_t *port_ = nullptr;
};

// Prints a row. What is late by the same time throughout counts as in time.
bool Report(const char *who, const Arrivals &arrivals)
{
    if (arrivals.count != kNotes) {
        std::printf("%-28s %zu of %zu notes came\n", who, arrivals.count.load(), kNotes);
        return false;
    }
    std::vector<double> late(kNotes);
    for (std::size_t i = 0; i < kNotes; ++i) {
        late[i] = arrivals.times[i] - kEvery * static_cast<double>(i);
    }
    const auto mean = [&](std::size_t begin) {
        double sum = 0;
        for (std::size_t i = begin; i < begin + kTenth; ++i) {
            sum += late[i];
        }
        return sum / static_cast<double>(kTenth);
    };
    const double drift = mean(kNotes - kTenth) - mean(0);
    std::vector<double> sorted = late;
    std::ranges::sort(sorted);
    const double median = sorted[kNotes / 2];
    for (double &value : late) {
        value = std::abs(value - median);
    }
    std::ranges::sort(late);
    const auto percentile = [&](double part) { return late[static_cast<std::size_t>(part * (kNotes - 1))]; };
    std::printf("%-28s %10.3f %10.3f %10.3f %10.3f\n", who, percentile(0.5), percentile(0.99), late.back(), drift);
    return percentile(0.99) <= kMostDeviation && std::abs(drift) <= kMostDrift;
}

// Percent of a core that this process takes while nothing plays.
double IdleLoad()
{
    constexpr auto kFor = 5s;
    const auto taken = [] {
        rusage usage{};
        ::getrusage(RUSAGE_SELF, &usage);
        const auto seconds = [](const timeval &time) { return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6; };
        return seconds(usage.ru_utime) + seconds(usage.ru_stime);
    };
    const double before = taken();
    std::this_thread::sleep_for(kFor);
    return (taken() - before) * 100 / std::chrono::duration<double>(kFor).count();
}

void WaitFor(const std::atomic<bool> &condition)
{
    while (!condition) {
        std::this_thread::sleep_for(20ms);
    }
}

struct Played {
    bool inTime = false;
    double idle = 0; // percent of a core, when the outputs rest again
};

Played PlayWithSequencer(const std::string &path)
{
    std::atomic<bool> ended = false;
    MachineFiles files;
    const MachineMusic music = MakeMachineMusic(files, [](const std::function<void()> &call) { call(); }); // on the playing thread
    music.sequencer->Done = [&ended](int) { ended = true; };
    music.sequencer->SetFileName(path);
    music.sequencer->SetCommand("open");
    Played played;
    {
        Listener listener;
        if (!listener.ListenTo("Velluto:Velluto player")) {
            return played;
        }
        music.sequencer->SetCommand("play");
        WaitFor(ended);
        std::this_thread::sleep_for(200ms); // for what is on its way
        played.inTime = Report("Velluto, at a JACK client", listener.arrivals);
    }
    std::this_thread::sleep_for(MachineSequencer::kLinger + 1s);
    played.idle = IdleLoad();
    return played;
}

// The library's own file player, as the program of that name uses it, paced by an audio driver that writes to nowhere.
void PlayWithFluidSynth(const std::string &path)
{
    Arrivals arrivals;
    fluid_settings_t *const settings = new_fluid_settings();
    fluid_settings_setstr(settings, "audio.driver", "file");
    fluid_settings_setstr(settings, "audio.file.name", "/dev/null");
    fluid_settings_setstr(settings, "audio.file.type", "raw");
    fluid_synth_t *const synth = new_fluid_synth(settings);
    fluid_player_t *const player = new_fluid_player(synth);
    fluid_player_set_playback_callback(
        player,
        [](void *heard, fluid_midi_event_t *event) {
            if (fluid_midi_event_get_type(event) == 0x90 && fluid_midi_event_get_velocity(event) != 0) {
                static_cast<Arrivals *>(heard)->Note(std::chrono::duration<double, std::milli>(Clock::now().time_since_epoch()).count());
            }
            return FLUID_OK;
        },
        &arrivals);
    fluid_player_add(player, path.c_str());
    fluid_audio_driver_t *const driver = new_fluid_audio_driver(settings, synth);
    fluid_player_play(player);
    const auto limit = Clock::now() + 30s;
    while (arrivals.count < kNotes && Clock::now() < limit) {
        std::this_thread::sleep_for(20ms);
    }
    delete_fluid_audio_driver(driver);
    delete_fluid_player(player);
    delete_fluid_synth(synth);
    delete_fluid_settings(settings);
    Report("FluidSynth's file player", arrivals);
}

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    using namespace velluto::bench;
    if (argc != 2) {
        std::fprintf(stderr, "usage: bench_sequencer_timing FILE-TO-WRITE\n");
        return 2;
    }
    WriteFile(argv[1]);
    std::printf("%-28s %10s %10s %10s %10s   (ms from the file's times)\n", "2000 notes in 20 s", "p50", "p99", "max", "drift");
    const Played played = PlayWithSequencer(argv[1]);
    PlayWithFluidSynth(argv[1]);
    std::printf("limits: p99 %.1f ms, drift %.1f ms\nidle, file open: %.2f %% of a core, limit %.0f %%\n", kMostDeviation, kMostDrift,
                played.idle, kMostIdle);
    return played.inTime && played.idle < kMostIdle ? 0 : 1;
}
