// The ALSA sequencer as a MIDI system. It is looked at, since RtMidi passes none of its announcements on.
#pragma once

#include "platform/rtmidi/ListedSystem.h"

namespace velluto {

class AlsaSystem : public ListedSystem {
public:
    AlsaSystem() : ListedSystem(RtMidi::LINUX_ALSA) {}

protected:
    // Without its device RtMidi's constructor fails and tells the standard error stream so, twice over.
    [[nodiscard]] bool Present() const override;
};

} // namespace velluto
