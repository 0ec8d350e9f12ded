// How true to a file's times its playing is: a note each 10 ms for 20 s, from the sequencer's port to a JACK client that notes
// when each arrives. At the same time a plain JACK client sends the same notes to another such one, for what is JACK's and what is ours
// to be told apart; and afterwards FluidSynth's own player plays the file. And what an open, idle sequencer costs, beside a plain client.
// Needs a JACK server (bench/sequencer.sh starts one).
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"

#include <fluidsynth.h>
#include <jack/jack.h>
#include <jack/midiport.h>

#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

namespace velluto::bench {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr std::size_t kNotes = 2000;
constexpr double kEvery = 10;            // milliseconds
constexpr double kMostDeviation = 0.2;   // milliseconds, of 99 notes in a hundred
constexpr double kMostTimes = 1.2;       // what a plain client is off by
constexpr double kFrame = 1000. / 48000; // milliseconds; no note comes between two
constexpr double kMostDrift = 0.5;       // milliseconds, from the first tenth of the notes to the last
constexpr double kMostIdle = 1.2;        // times what a plain client takes
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

// A JACK client with one port, for as long as it lives.
class Client {
public:
    Client(const char *name, const char *port, unsigned long direction) : client_(jack_client_open(name, JackNoStartServer, nullptr))
    {
        if (client_ == nullptr) {
            throw std::runtime_error("no JACK server");
        }
        port_ = jack_port_register(client_, port, JACK_DEFAULT_MIDI_TYPE, direction, 0);
    }
    virtual ~Client() = default;
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    // Of the thread that runs in the server's periods.
    [[nodiscard]] double SecondsRun() const
    {
        clockid_t clock{};
        return ::pthread_getcpuclockid(jack_client_thread_id(client_), &clock) == 0 ? Seconds(clock) : 0;
    }
    static double Seconds(clockid_t clock)
    {
        timespec time{};
        ::clock_gettime(clock, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
    }

protected:
    void Begin()
    {
        jack_set_process_callback(
            client_,
            [](jack_nframes_t frames, void *self) {
                auto &client = *static_cast<Client *>(self);
                client.Process(jack_port_get_buffer(client.port_, frames), frames);
                return 0;
            },
            this);
        jack_activate(client_);
    }
    // Before anything that Process uses goes.
    void End() { jack_client_close(client_); }
    virtual void Process(void *buffer, jack_nframes_t frames) = 0;

    jack_client_t *client_;
    jack_port_t *port_;
};

// Hears another client's port.
class Listener : public Client {
public:
    explicit Listener(const char *name) : Client(name, "in", JackPortIsInput), input_(std::string(name) + ":in") { Begin(); }
    ~Listener() override { End(); }

    bool ListenTo(const char *port) { return jack_connect(client_, port, input_.c_str()) == 0; }

    Arrivals arrivals;

private:
    void Process(void *buffer, jack_nframes_t frames) override
    {
        const std::uint32_t count = jack_midi_get_event_count(buffer);
        if (count == 0) {
            return;
        }
        // Where a server has not kept a period, its clock is off for a while: a period begins in the past, and no longer ago than it lasts.
        const double now = static_cast<double>(jack_get_time()) / 1000;
        const double perFrame = 1000. / jack_get_sample_rate(client_);
        const double told = static_cast<double>(jack_frames_to_time(client_, jack_last_frame_time(client_))) / 1000;
        constexpr double kSmoothing = 0.1; // milliseconds; a clock in order is smoothed, and may be ahead
        const double begin = told > now && told <= now + kSmoothing ? told : std::clamp(told, now - frames * perFrame, now);
        for (std::uint32_t i = 0; i < count; ++i) {
            jack_midi_event_t event{};
            if (jack_midi_event_get(&event, buffer, i) == 0 && event.size == 3 && IsNoteOn(event.buffer)) {
                arrivals.Note(begin + event.time * perFrame);
            }
        }
    }

    std::string input_;
};

// Sends the same notes, each at the frame that JACK has for its time, and does nothing else.
class Plain : public Client {
public:
    Plain() : Client("plain", "out", JackPortIsOutput) { Begin(); }
    ~Plain() override { End(); }

    // The first note is due in 50 ms.
    void Play() { start_ = jack_get_time() + 50'000; }

private:
    void Process(void *buffer, jack_nframes_t frames) override
    {
        jack_midi_clear_buffer(buffer);
        const jack_time_t start = start_;
        const jack_nframes_t now = jack_last_frame_time(client_);
        while (start != 0 && sent_ < kNotes) {
            const auto due = static_cast<jack_time_t>(kEvery * 1000 * static_cast<double>(sent_));
            const auto frame =
                static_cast<std::int32_t>(jack_time_to_frames(client_, start + due) + frames - now); // one period later: in time
            if (frame >= static_cast<std::int32_t>(frames)) {
                return;
            }
            constexpr jack_midi_data_t kNoteOn[] = {0x90, 0x3C, 0x64};
            jack_midi_event_write(buffer, static_cast<jack_nframes_t>(std::max(frame, 0)), kNoteOn, sizeof kNoteOn);
            ++sent_;
        }
    }

    std::atomic<jack_time_t> start_ = 0; // microseconds of JACK's clock; 0 before there is one
    std::size_t sent_ = 0;               // JACK's thread alone
};

struct Deviation {
    std::size_t lost = kNotes;
    double p99 = 0;   // milliseconds; of complete ones alone
    double drift = 0; // milliseconds
};

// Prints a row. What is late by the same time throughout counts as in time.
Deviation Report(const char *who, const Arrivals &arrivals)
{
    if (arrivals.count != kNotes) {
        std::printf("%-28s %zu of %zu notes came\n", who, arrivals.count.load(), kNotes);
        return {kNotes - std::min(arrivals.count.load(), kNotes)};
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
    return {0, percentile(0.99), drift};
}

// A note of ours that is lost is a fault, unless the plain client has lost as many: then it is JACK that was kept from running.
bool IsInTime(const Deviation &ours, const Deviation &plain)
{
    if (ours.lost > 0) {
        return ours.lost <= plain.lost;
    }
    const bool isBesidePlain = plain.lost > 0 || ours.p99 <= kMostTimes * plain.p99 + kFrame;
    return isBesidePlain && ours.p99 <= kMostDeviation && std::abs(ours.drift) <= kMostDrift;
}

// Percent of a core, of the same time.
struct Idle {
    double ours = 0; // all of this process but the plain client's thread in the periods
    double plain = 0;
};

Idle IdleLoad()
{
    constexpr auto kFor = 10s;
    const Plain plain;
    std::this_thread::sleep_for(2s); // a client that comes is news, which the program looks into
    const double allBefore = Client::Seconds(CLOCK_PROCESS_CPUTIME_ID);
    const double plainBefore = plain.SecondsRun();
    std::this_thread::sleep_for(kFor);
    const double ofPlain = plain.SecondsRun() - plainBefore;
    const double ofAll = Client::Seconds(CLOCK_PROCESS_CPUTIME_ID) - allBefore;
    const auto percent = [&](double seconds) { return seconds * 100 / std::chrono::duration<double>(kFor).count(); };
    return {percent(ofAll - ofPlain), percent(ofPlain)};
}

void WaitFor(const std::atomic<bool> &condition)
{
    while (!condition) {
        std::this_thread::sleep_for(20ms);
    }
}

struct Played {
    bool inTime = false;
    Idle idle; // when the outputs rest again
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
        Listener listener("listener");
        Listener other("other");
        Plain plain;
        if (!listener.ListenTo("Velluto:Velluto player") || !other.ListenTo("plain:out")) {
            return played;
        }
        plain.Play();
        music.sequencer->SetCommand("play");
        WaitFor(ended);
        std::this_thread::sleep_for(500ms); // for what is on its way
        const Deviation ours = Report("Velluto, at a JACK client", listener.arrivals);
        played.inTime = IsInTime(ours, Report("A plain JACK client, beside", other.arrivals));
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
    const bool isIdle = played.idle.ours <= kMostIdle * played.idle.plain;
    std::printf("limits: p99 %.1f ms and %.1f times the plain client's and a frame, drift %.1f ms%s\n", kMostDeviation, kMostTimes,
                kMostDrift, played.inTime ? "" : "  OVER");
    std::printf("idle, file open: %.2f %% of a core, a plain JACK client %.2f %%; limit %.1f times%s\n", played.idle.ours,
                played.idle.plain, kMostIdle, isIdle ? "" : "  OVER");
    return played.inTime && isIdle ? 0 : 1;
}
