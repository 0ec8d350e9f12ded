// An instrument as JACK sees one: a client with a MIDI input and a MIDI output. Prints "ready" and then every message that
// arrives, one a line, as hexadecimal bytes. Ends with its standard input. For the system tests.
//
//     jack-instrument NAME [--times]      the ports are NAME:midi_in and NAME:midi_out
//
// With --times each line begins with the microsecond of the system's monotonic clock at which the message came.
#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/ringbuffer.h>

#include <poll.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string_view>

namespace {

constexpr std::size_t kRingBytes = 65536;
constexpr std::size_t kLongestMessage = 255; // longer ones are counted as lost

struct Head {
    std::int64_t microsecond = 0;
    std::size_t size = 0;
};

struct Instrument {
    jack_port_t *in = nullptr;
    jack_ringbuffer_t *ring = nullptr; // a head, then the message; written by JACK's thread, read by main
    bool times = false;
    std::atomic<int> lost = 0;
};

std::int64_t Now()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration_cast<std::chrono::microseconds>(now).count();
}

int Process(jack_nframes_t frames, void *argument)
{
    auto &instrument = *static_cast<Instrument *>(argument);
    void *buffer = jack_port_get_buffer(instrument.in, frames);
    const std::uint32_t count = jack_midi_get_event_count(buffer);
    for (std::uint32_t i = 0; i < count; ++i) {
        jack_midi_event_t event{};
        if (jack_midi_event_get(&event, buffer, i) != 0) {
            continue;
        }
        if (event.size > kLongestMessage || jack_ringbuffer_write_space(instrument.ring) < sizeof(Head) + event.size) {
            ++instrument.lost;
            continue;
        }
        const Head head{Now(), event.size};
        jack_ringbuffer_write(instrument.ring, reinterpret_cast<const char *>(&head), sizeof(head));
        jack_ringbuffer_write(instrument.ring, reinterpret_cast<const char *>(event.buffer), event.size);
    }
    return 0;
}

void PrintMessages(Instrument &instrument)
{
    while (jack_ringbuffer_read_space(instrument.ring) >= sizeof(Head)) {
        Head head;
        jack_ringbuffer_peek(instrument.ring, reinterpret_cast<char *>(&head), sizeof(head));
        if (jack_ringbuffer_read_space(instrument.ring) < sizeof(Head) + head.size) {
            break; // the rest is on its way
        }
        std::array<char, kLongestMessage> message{};
        jack_ringbuffer_read_advance(instrument.ring, sizeof(Head));
        jack_ringbuffer_read(instrument.ring, message.data(), head.size);
        if (instrument.times) {
            std::printf("%lld ", static_cast<long long>(head.microsecond));
        }
        for (std::size_t i = 0; i < head.size; ++i) {
            std::printf(i == 0 ? "%02X" : " %02X", static_cast<unsigned>(static_cast<unsigned char>(message.at(i))));
        }
        std::printf("\n");
    }
    if (const int lost = instrument.lost.exchange(0); lost > 0) {
        std::printf("lost %d\n", lost);
    }
    std::fflush(stdout);
}

} // namespace

int main(int argc, char **argv)
{
    const bool times = argc == 3 && std::string_view(argv[2]) == "--times";
    if (argc != 2 && !times) {
        std::fprintf(stderr, "usage: jack-instrument NAME [--times]\n");
        return 2;
    }
    Instrument instrument;
    instrument.times = times;
    instrument.ring = jack_ringbuffer_create(kRingBytes);
    jack_client_t *client = jack_client_open(argv[1], JackNoStartServer, nullptr);
    if (client == nullptr || instrument.ring == nullptr) {
        std::fprintf(stderr, "no JACK server\n");
        return 1;
    }
    instrument.in = jack_port_register(client, "midi_in", JACK_DEFAULT_MIDI_TYPE, JackPortIsInput, 0);
    jack_port_register(client, "midi_out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(client, Process, &instrument);
    if (jack_activate(client) != 0) {
        return 1;
    }
    std::printf("ready\n");
    constexpr int kLookEveryMs = 10;
    pollfd end{STDIN_FILENO, POLLIN, 0};
    char ignored = 0;
    do {
        PrintMessages(instrument);
    } while (poll(&end, 1, kLookEveryMs) == 0 || read(STDIN_FILENO, &ignored, 1) > 0);
    PrintMessages(instrument);
    jack_client_close(client);
    jack_ringbuffer_free(instrument.ring);
    return 0;
}
