// The program's ports on its one client of a JACK server: inputs, outputs, and the sequencer's source. One client, however many
// ports: JACK's library keeps one table of the server's clients for the whole process, without a lock. Two clients in it that
// hear at the same time of a third which leaves let the server's graph stand still, or crash.
#pragma once

#include "platform/rtmidi/MidiSystem.h"

#include <jack/jack.h>
#include <jack/ringbuffer.h>

#include <atomic>

namespace velluto {

// A period that runs, in microseconds of JACK's clock. Where the server could not keep one, its own word for when it began is off by up
// to half a second for a while, ahead or behind: it is taken as no later than now and no earlier than one period ago. One that is ahead by
// less than a listener can tell is right: it is smoothed.
struct JackPeriod {
    std::int64_t told = 0; // when it began, as the server has it
    std::int64_t now = 0;
    std::int64_t frames = 0; // that it lasts
    std::int64_t rate = 0;   // frames a second

    // The frame that a message due at that microsecond goes to, counted from the period's first: below 0 where it is late already, and
    // beyond the last where it goes to a later period.
    [[nodiscard]] std::int64_t Place(std::int64_t due) const;
};

// What JACK's thread calls.
class JackPort {
public:
    virtual ~JackPort() = default;
    // Once in each period, with the port's own handle.
    virtual void Process(jack_port_t *port, jack_nframes_t frames) = 0;
};

// Owns the client, and outlives its ports.
class JackHost {
public:
    virtual ~JackHost() = default;
    [[nodiscard]] virtual jack_client_t *Client() const = 0;
    [[nodiscard]] virtual bool ServerLives() const = 0;
    // A port of that name, or of that name and a number, which JACK's thread calls from now on. Null where there can be none more.
    virtual jack_port_t *Add(JackPort &port, const char *label, JackPortFlags direction) = 0;
    // The thread does not call it any more once this returns.
    virtual void Remove(JackPort &port, jack_port_t *handle) = 0;
    // Connects them in the order in which music goes. A MidiCode; on success the graph that runs has the connection, or the server
    // takes its time.
    virtual int Join(const std::string &from, const std::string &to) = 0;
    // Waits, briefly, until the receivers have what was sent before.
    virtual void LetPass() = 0;
};

// A port's life on the server. The last member of its owner, and so the first to end.
class JackRegistration {
public:
    // Throws std::runtime_error where the server gives no port.
    JackRegistration(JackHost &host, JackPort &port, const char *label, JackPortFlags direction);
    ~JackRegistration() { host_.Remove(port_, handle_); }
    JackRegistration(const JackRegistration &) = delete;
    JackRegistration &operator=(const JackRegistration &) = delete;

    [[nodiscard]] std::string Name() const { return jack_port_name(handle_); }

private:
    JackHost &host_;
    JackPort &port_;
    jack_port_t *handle_;
};

// Plays what it was handed. The server takes messages once a period only; so that the times of those that have one survive, each
// is put at its own place within a later period, all of them late by the same time.
class JackOutput final : public JackPort, public SystemOutput {
public:
    // Each message takes sixteen of the ring's bytes more than its own.
    JackOutput(JackHost &host, const char *label);

    // To that port; a MidiCode.
    int Join(const std::string &to) { return host_.Join(registration_.Name(), to); }
    int Send(std::span<const std::uint8_t> message) override { return Queue(message, kAtOnce); }
    int SendAt(std::span<const std::uint8_t> message, OutputPort::TimePoint due) override;
    void Drain() override;
    void Process(jack_port_t *port, jack_nframes_t frames) override;

private:
    static constexpr jack_time_t kAtOnce = 0;

    // Due at that microsecond of JACK's clock.
    int Queue(std::span<const std::uint8_t> message, jack_time_t due);

    struct FreeRing {
        void operator()(jack_ringbuffer_t *ring) const { jack_ringbuffer_free(ring); }
    };
    // Before each message in the ring.
    struct Entry {
        jack_time_t due = kAtOnce;
        std::size_t length = 0;
    };

    JackHost &host_;
    std::unique_ptr<jack_ringbuffer_t, FreeRing> ring_; // written by Queue, read by Process
    JackRegistration registration_;
};

// Delivers what it hears, from JACK's thread. Active sensing speaks for one cable only, and a receiver that has seen it falls
// silent when it ends: it is kept back.
class JackInput final : public JackPort, public SystemInput {
public:
    JackInput(JackHost &host, std::shared_ptr<MessageSink> sink);

    // From that port; a MidiCode.
    int Join(const std::string &from);
    void Process(jack_port_t *port, jack_nframes_t frames) override;

private:
    JackHost &host_;
    std::shared_ptr<MessageSink> sink_;
    std::atomic<jack_port_t *> source_ = nullptr; // that it was joined to, once the graph that runs has the connection
    JackRegistration registration_;
};

class JackSource final : public SourcePort {
public:
    explicit JackSource(JackHost &host);

    void Send(std::span<const std::uint8_t> message, TimePoint due) override { output_.SendAt(message, due); }
    [[nodiscard]] bool Gone() const override { return !host_.ServerLives(); }
    void Drain() override { output_.Drain(); }

private:
    JackHost &host_;
    JackOutput output_;
};

} // namespace velluto
