// A source port on a client of a JACK server. The server takes messages once a period only; so that their times survive,
// each is put at its own place within a later period, all of them late by the same time. Made by JackSystem, whose client it
// shares: a client more would cost the machine a wake-up more in each period.
#pragma once

#include "platform/rtmidi/SourcePort.h"

#include <jack/jack.h>
#include <jack/ringbuffer.h>

#include <memory>

namespace velluto {

class JackSource : public SourcePort {
public:
    // Owns the client.
    class Host {
    public:
        virtual ~Host() = default;
        [[nodiscard]] virtual bool ServerLives() const = 0;
        // The source ends: on return Process is called no more.
        virtual void Forget(JackSource &source) = 0;
    };

    JackSource(Host &host, jack_client_t *client, jack_port_t *port);
    ~JackSource() override;
    JackSource(const JackSource &) = delete;
    JackSource &operator=(const JackSource &) = delete;

    void Send(std::span<const std::uint8_t> message, TimePoint due) override;
    [[nodiscard]] bool Gone() const override { return !host_.ServerLives(); }
    void Drain() override;
    // Plays what is due in the period; called by JACK's thread.
    void Process(jack_nframes_t frames);

private:
    struct FreeRing {
        void operator()(jack_ringbuffer_t *ring) const { jack_ringbuffer_free(ring); }
    };
    // Before each message in the ring.
    struct Entry {
        jack_time_t due = 0; // microseconds of JACK's clock
        std::size_t length = 0;
    };

    Host &host_;
    jack_client_t *client_;
    jack_port_t *port_;
    std::unique_ptr<jack_ringbuffer_t, FreeRing> ring_; // written by Send, read by Process
};

} // namespace velluto
