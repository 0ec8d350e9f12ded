#include "platform/rtmidi/AlsaSystem.h"

#include "platform/rtmidi/QuietAlsa.h"

#include <fcntl.h>
#include <unistd.h>

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

} // namespace velluto
