// A keyboard as JACK sees one: a client with a MIDI output that plays each line of its standard input, hexadecimal bytes
// with blanks between them, as one message. Prints "ready" at the start. Ends with its standard input. For the system
// tests.
//
//     jack-keys NAME      the port is NAME:midi_out
#include <jack/jack.h>
#include <jack/midiport.h>
#include <jack/ringbuffer.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr std::size_t kRingBytes = 65536;
constexpr std::size_t kLongestMessage = 255;

struct Keys {
    jack_port_t *out = nullptr;
    jack_ringbuffer_t *ring = nullptr; // one length byte, then the message; written by main, read by JACK's thread
};

int Process(jack_nframes_t frames, void *argument)
{
    auto &keys = *static_cast<Keys *>(argument);
    void *buffer = jack_port_get_buffer(keys.out, frames);
    jack_midi_clear_buffer(buffer);
    char length = 0;
    while (jack_ringbuffer_peek(keys.ring, &length, 1) == 1) {
        const auto size = static_cast<std::size_t>(static_cast<unsigned char>(length));
        if (jack_ringbuffer_read_space(keys.ring) < size + 1) {
            break; // the rest is on its way
        }
        jack_ringbuffer_read_advance(keys.ring, 1);
        if (jack_midi_data_t *place = jack_midi_event_reserve(buffer, 0, size); place != nullptr) {
            jack_ringbuffer_read(keys.ring, reinterpret_cast<char *>(place), size);
        } else {
            jack_ringbuffer_read_advance(keys.ring, size);
        }
    }
    return 0;
}

void Play(const Keys &keys, const std::string &line)
{
    std::istringstream words(line);
    words >> std::hex;
    std::vector<char> message(1);
    for (unsigned byte = 0; words >> byte;) {
        message.push_back(static_cast<char>(byte));
    }
    message[0] = static_cast<char>(std::min(message.size() - 1, kLongestMessage));
    if (message.size() > 1 && jack_ringbuffer_write_space(keys.ring) >= message.size()) {
        jack_ringbuffer_write(keys.ring, message.data(), message.size());
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: jack-keys NAME\n");
        return 2;
    }
    Keys keys;
    keys.ring = jack_ringbuffer_create(kRingBytes);
    jack_client_t *client = jack_client_open(argv[1], JackNoStartServer, nullptr);
    if (client == nullptr || keys.ring == nullptr) {
        std::fprintf(stderr, "no JACK server\n");
        return 1;
    }
    keys.out = jack_port_register(client, "midi_out", JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(client, Process, &keys);
    if (jack_activate(client) != 0) {
        return 1;
    }
    std::cout << "ready" << std::endl;
    for (std::string line; std::getline(std::cin, line);) {
        Play(keys, line);
    }
    jack_client_close(client);
    jack_ringbuffer_free(keys.ring);
    return 0;
}
