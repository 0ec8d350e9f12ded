// The announcements of the ALSA sequencer, read by a client of the program's own.
#include "platform/rtmidi/Announcements.h"
#include "platform/rtmidi/MidiPorts.h"

#include <alsa/asoundlib.h>

#include <cerrno>

namespace velluto {

namespace {

class AlsaAnnouncer : public Announcer {
public:
    AlsaAnnouncer()
    {
        if (snd_seq_open(&sequencer_, "default", SND_SEQ_OPEN_INPUT, SND_SEQ_NONBLOCK) < 0) {
            sequencer_ = nullptr;
        }
    }
    ~AlsaAnnouncer() override
    {
        if (sequencer_ != nullptr) {
            snd_seq_close(sequencer_);
        }
    }
    AlsaAnnouncer(const AlsaAnnouncer &) = delete;
    AlsaAnnouncer &operator=(const AlsaAnnouncer &) = delete;

    // By a port that nobody else sees.
    bool Subscribe()
    {
        if (sequencer_ == nullptr || snd_seq_set_client_name(sequencer_, kMidiClientName) < 0) {
            return false;
        }
        const int port = snd_seq_create_simple_port(sequencer_, "watch", SND_SEQ_PORT_CAP_WRITE | SND_SEQ_PORT_CAP_NO_EXPORT,
                                                    SND_SEQ_PORT_TYPE_APPLICATION);
        return port >= 0 && snd_seq_connect_from(sequencer_, port, SND_SEQ_CLIENT_SYSTEM, SND_SEQ_PORT_SYSTEM_ANNOUNCE) >= 0 &&
               snd_seq_poll_descriptors(sequencer_, &descriptor_, 1, POLLIN) == 1;
    }

    [[nodiscard]] int Descriptor() const override { return descriptor_.fd; }
    Word Take() override
    {
        Word word = Word::None;
        for (;;) {
            snd_seq_event_t *event = nullptr;
            const int got = snd_seq_event_input(sequencer_, &event);
            if (got == -EAGAIN) {
                return word;
            }
            if (got < 0 && got != -ENOSPC) {
                return Word::End;
            }
            // -ENOSPC: some were lost. The others tell of patches.
            if (got < 0 || (event->type >= SND_SEQ_EVENT_CLIENT_START && event->type <= SND_SEQ_EVENT_PORT_CHANGE)) {
                word = Word::OfPorts;
            }
        }
    }

private:
    snd_seq_t *sequencer_ = nullptr;
    pollfd descriptor_{};
};

} // namespace

std::unique_ptr<Announcer> OpenAlsaAnnouncer()
{
    auto announcer = std::make_unique<AlsaAnnouncer>();
    return announcer->Subscribe() ? std::move(announcer) : nullptr;
}

} // namespace velluto
