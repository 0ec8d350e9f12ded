// A source port of a JACK server. The server takes messages once a period only; so that their times survive, each is put at
// its own place within a later period, all of them late by the same time.
#pragma once

#include "platform/rtmidi/SourcePort.h"

#include <jack/jack.h>
#include <jack/ringbuffer.h>

#include <atomic>
#include <memory>

namespace velluto {

class JackSource : public SourcePort {
public:
    // Nothing where there is no server or it takes no client.
    static std::unique_ptr<JackSource> Make();
    ~JackSource() override;
    JackSource(const JackSource &) = delete;
    JackSource &operator=(const JackSource &) = delete;

    void Send(std::span<const std::uint8_t> message, TimePoint due) override;
    void Drain() override;

private:
    struct FreeRing {
        void operator()(jack_ringbuffer_t *ring) const { jack_ringbuffer_free(ring); }
    };
    // Before each message in the ring.
    struct Entry {
        jack_time_t due = 0; // microseconds of JACK's clock
        std::size_t length = 0;
    };

    JackSource() = default;
    bool Start();
    void Process(jack_nframes_t frames); // JACK's thread

    std::unique_ptr<jack_ringbuffer_t, FreeRing> ring_; // written by Send, read by Process
    jack_client_t *client_ = nullptr;
    jack_port_t *port_ = nullptr;
    std::atomic<bool> dead_ = false; // the server has ended
};

} // namespace velluto
