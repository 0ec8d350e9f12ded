#include "platform/rtmidi/AlsaSystem.h"

#include "platform/rtmidi/QuietAlsa.h"

#include <fcntl.h>
#include <unistd.h>

#include <system_error>

namespace velluto {

bool AlsaSystem::Present() const
{
    const int descriptor = ::open("/dev/snd/seq", O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return false;
    }
    ::close(descriptor);
    QuietAlsa();
    return true;
}

bool AlsaSystem::Activate()
{
    if (Alive() && !askedFor_) {
        askedFor_ = true;
        try {
            if (std::unique_ptr<Announcer> announcer = OpenAlsaAnnouncer()) {
                announcements_ = std::make_unique<Announcements>(std::move(announcer), [this]() { changed(); });
            }
        } catch (const std::system_error &) {
            announcements_.reset(); // no thread for them
        }
    }
    return Alive();
}

} // namespace velluto
