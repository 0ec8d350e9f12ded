#include "platform/rtmidi/JackSource.h"

#include <jack/midiport.h>

#include <array>
#include <thread>

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr std::size_t kRingBytes = std::size_t{1} << 18;
// How late a message may be handed over and still come at its time. Added to one period, since the one that is running when
// it is due has taken its messages already.
constexpr jack_nframes_t kGraceParts = 500; // of a second: 2 ms
constexpr auto kLongestDrain = 250ms;
constexpr auto kDrainLook = 500us;

} // namespace

std::unique_ptr<JackSource> JackSource::Make()
{
    std::unique_ptr<JackSource> source(new JackSource);
    return source->Start() ? std::move(source) : nullptr;
}

bool JackSource::Start()
{
    ring_.reset(jack_ringbuffer_create(kRingBytes));
    client_ = jack_client_open(kPlayerClientName, JackNoStartServer, nullptr);
    if (!ring_ || client_ == nullptr) {
        return false;
    }
    port_ = jack_port_register(client_, kPlayerPortName, JACK_DEFAULT_MIDI_TYPE, JackPortIsOutput, 0);
    jack_set_process_callback(
        client_,
        [](jack_nframes_t frames, void *self) {
            static_cast<JackSource *>(self)->Process(frames);
            return 0;
        },
        this);
    jack_on_shutdown(
        client_, [](void *self) { static_cast<JackSource *>(self)->dead_ = true; }, this);
    return port_ != nullptr && jack_activate(client_) == 0;
}

JackSource::~JackSource()
{
    if (client_ != nullptr) {
        jack_client_close(client_);
    }
}

void JackSource::Send(std::span<const std::uint8_t> message, TimePoint due)
{
    const auto late = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - due);
    const Entry entry{jack_get_time() - static_cast<jack_time_t>(late.count()), message.size()};
    if (jack_ringbuffer_write_space(ring_.get()) < sizeof(entry) + message.size()) {
        return;
    }
    // In one step: the other side must not see an entry without its message.
    std::array<jack_ringbuffer_data_t, 2> room{};
    jack_ringbuffer_get_write_vector(ring_.get(), room.data());
    std::size_t at = 0;
    const auto put = [&](const void *bytes, std::size_t count) {
        for (std::size_t i = 0; i < count; ++i, ++at) {
            char *const place = at < room[0].len ? room[0].buf + at : room[1].buf + (at - room[0].len);
            *place = static_cast<const char *>(bytes)[i];
        }
    };
    put(&entry, sizeof(entry));
    put(message.data(), message.size());
    jack_ringbuffer_write_advance(ring_.get(), at);
}

void JackSource::Drain()
{
    const auto end = std::chrono::steady_clock::now() + kLongestDrain;
    while (!dead_ && jack_ringbuffer_read_space(ring_.get()) > 0 && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kDrainLook);
    }
}

void JackSource::Process(jack_nframes_t frames)
{
    void *const buffer = jack_port_get_buffer(port_, frames);
    jack_midi_clear_buffer(buffer);
    const jack_nframes_t begin = jack_last_frame_time(client_);
    const jack_nframes_t delay = frames + jack_get_sample_rate(client_) / kGraceParts;
    jack_nframes_t earliest = 0; // places only rise within a period
    Entry entry;
    while (jack_ringbuffer_peek(ring_.get(), reinterpret_cast<char *>(&entry), sizeof(entry)) == sizeof(entry)) {
        const auto place = static_cast<std::int32_t>(jack_time_to_frames(client_, entry.due) + delay - begin); // the count wraps
        if (place >= static_cast<std::int32_t>(frames)) {
            break;
        }
        earliest = std::max(earliest, static_cast<jack_nframes_t>(std::max(place, 0)));
        jack_midi_data_t *const bytes = jack_midi_event_reserve(buffer, earliest, entry.length);
        if (bytes == nullptr && jack_midi_get_event_count(buffer) > 0) {
            break; // there is room in the next period
        }
        jack_ringbuffer_read_advance(ring_.get(), sizeof(entry));
        if (bytes != nullptr) {
            jack_ringbuffer_read(ring_.get(), reinterpret_cast<char *>(bytes), entry.length);
        } else { // larger than a whole period's room
            jack_ringbuffer_read_advance(ring_.get(), entry.length);
        }
    }
}

} // namespace velluto
