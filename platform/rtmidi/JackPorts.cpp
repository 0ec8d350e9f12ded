#include "platform/rtmidi/JackPorts.h"

#include "platform/MidiDevices.h"

#include <jack/midiport.h>

#include <algorithm>
#include <array>
#include <new>
#include <stdexcept>
#include <thread>

namespace velluto {

namespace {

using namespace std::chrono_literals;

// What a server that stands still keeps of a port's messages, and so the longest message.
constexpr std::size_t kRingBytes = std::size_t{1} << 16;
constexpr std::int64_t kMicroseconds = 1000000; // of a second
// How late a message may be handed over and still come at its time. Added to one period, since the one that is running when
// it is due has taken its messages already.
constexpr std::int64_t kGraceParts = 500; // of a second: 2 ms
// Microseconds. By so much a clock that is in order may have a period begin after the call for it: it is smoothed.
constexpr std::int64_t kSmoothing = 100;
constexpr auto kLongestDrain = 1000ms;
constexpr auto kDrainLook = 500us;

jack_ringbuffer_t *MakeRing(std::size_t bytes)
{
    jack_ringbuffer_t *const ring = jack_ringbuffer_create(bytes);
    if (ring == nullptr) {
        throw std::bad_alloc();
    }
    return ring;
}

} // namespace

std::int64_t JackPeriod::Place(std::int64_t due) const
{
    const std::int64_t length = kMicroseconds * frames / rate;
    const std::int64_t begin = told > now && told <= now + kSmoothing ? told : std::clamp(told, now - length, now);
    return (due - begin) * rate / kMicroseconds + frames + rate / kGraceParts;
}

JackRegistration::JackRegistration(JackHost &host, JackPort &port, const char *label, JackPortFlags direction)
    : host_(host), port_(port), handle_(host.Add(port, label, direction))
{
    if (handle_ == nullptr) {
        throw std::runtime_error("no port");
    }
}

JackOutput::JackOutput(JackHost &host, const char *label)
    : host_(host), ring_(MakeRing(kRingBytes)), registration_(host, *this, label, JackPortIsOutput)
{
}

int JackOutput::SendAt(std::span<const std::uint8_t> message, OutputPort::TimePoint due)
{
    const auto late = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - due);
    return Queue(message, jack_get_time() - static_cast<jack_time_t>(late.count()));
}

int JackOutput::Queue(std::span<const std::uint8_t> message, jack_time_t due)
{
    const Entry entry{due, message.size()};
    if (jack_ringbuffer_write_space(ring_.get()) < sizeof(entry) + message.size()) {
        return MidiCode::kError;
    }
    // In one step: the other side must not see an entry without its message.
    std::array<jack_ringbuffer_data_t, 2> room{};
    jack_ringbuffer_get_write_vector(ring_.get(), room.data());
    std::size_t at = 0;
    const auto put = [&](std::span<const std::byte> bytes) {
        for (const std::byte byte : bytes) {
            char *const place = at < room[0].len ? room[0].buf + at : room[1].buf + (at - room[0].len);
            *place = static_cast<char>(byte);
            ++at;
        }
    };
    put(std::as_bytes(std::span(&entry, 1)));
    put(std::as_bytes(message));
    jack_ringbuffer_write_advance(ring_.get(), at);
    return MidiCode::kSuccess;
}

void JackOutput::Drain()
{
    // Each message leaves in one of the two periods after its own.
    jack_client_t *const client = host_.Client();
    const auto period = std::chrono::microseconds(std::uint64_t{1000000} * jack_get_buffer_size(client) / jack_get_sample_rate(client));
    const auto end = std::chrono::steady_clock::now() + kLongestDrain + 2 * period;
    while (host_.ServerLives() && jack_ringbuffer_read_space(ring_.get()) > 0 && std::chrono::steady_clock::now() < end) {
        std::this_thread::sleep_for(kDrainLook);
    }
    host_.LetPass();
}

void JackOutput::Process(jack_port_t *port, jack_nframes_t frames)
{
    void *const buffer = jack_port_get_buffer(port, frames);
    jack_midi_clear_buffer(buffer);
    if (jack_ringbuffer_read_space(ring_.get()) == 0) {
        return;
    }
    jack_client_t *const client = host_.Client();
    jack_nframes_t count = 0;
    jack_time_t begin = 0;
    jack_time_t next = 0;
    float length = 0;
    jack_get_cycle_times(client, &count, &begin, &next, &length);
    const JackPeriod period{static_cast<std::int64_t>(begin), static_cast<std::int64_t>(jack_get_time()), frames,
                            jack_get_sample_rate(client)};
    jack_nframes_t earliest = 0; // places only rise within a period
    Entry entry;
    while (jack_ringbuffer_peek(ring_.get(), reinterpret_cast<char *>(&entry), sizeof(entry)) == sizeof(entry)) {
        const std::int64_t place = entry.due == kAtOnce ? 0 : period.Place(static_cast<std::int64_t>(entry.due));
        if (place >= frames) {
            break;
        }
        earliest = std::max(earliest, static_cast<jack_nframes_t>(std::max<std::int64_t>(place, 0)));
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

JackInput::JackInput(JackHost &host, std::shared_ptr<MessageSink> sink)
    : host_(host), sink_(std::move(sink)), registration_(host, *this, "in", JackPortIsInput)
{
}

int JackInput::Join(const std::string &from)
{
    const int code = host_.Join(from, registration_.Name());
    if (code == MidiCode::kSuccess) {
        source_ = jack_port_by_name(host_.Client(), from.c_str());
    }
    return code;
}

// Where the source has gone in this period, its place may be another input's already, even of this program: JACK's library would go round
// between the two without an end. Known is the one that the program joined it to, not what others may have.
void JackInput::Process(jack_port_t *port, jack_nframes_t frames)
{
    const jack_port_t *const source = source_;
    if (source == nullptr || (static_cast<unsigned>(jack_port_flags(source)) & JackPortIsOutput) == 0) {
        return;
    }
    void *const buffer = jack_port_get_buffer(port, frames);
    const std::uint32_t count = jack_midi_get_event_count(buffer);
    for (std::uint32_t i = 0; i < count; ++i) {
        jack_midi_event_t event{};
        if (jack_midi_event_get(&event, buffer, i) == 0 && event.size > 0 && event.buffer[0] != MidiStatus::kActiveSensing) {
            sink_->Deliver({event.buffer, event.size});
        }
    }
}

JackSource::JackSource(JackHost &host) : host_(host), output_(host, kPlayerPortName) {}

} // namespace velluto
