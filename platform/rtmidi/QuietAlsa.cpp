#include "platform/rtmidi/QuietAlsa.h"

#ifdef __linux__

#include <alsa/asoundlib.h>

namespace velluto {

namespace {

// The library's own form of an error handler.
void Quiet(const char * /*file*/, int /*line*/, const char * /*function*/, int /*code*/, const char * /*format*/, ...) {} // NOLINT

} // namespace

void QuietAlsa()
{
    snd_lib_error_set_handler(&Quiet);
}

} // namespace velluto

#else

void velluto::QuietAlsa() {}

#endif
