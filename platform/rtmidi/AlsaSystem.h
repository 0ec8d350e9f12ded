// The ALSA sequencer as a MIDI system. The kernel announces its ports, which RtMidi does not pass on; where it does not, they are
// looked at.
#pragma once

#include "platform/rtmidi/Announcements.h"
#include "platform/rtmidi/ListedSystem.h"

namespace velluto {

class AlsaSystem : public ListedSystem {
public:
    AlsaSystem() : ListedSystem(RtMidi::LINUX_ALSA) {}

    bool Activate() override;
    [[nodiscard]] bool TellsChanges() const override { return announcements_ && announcements_->GoOn(); }

protected:
    // Without its device RtMidi's constructor fails and tells the standard error stream so, twice over.
    [[nodiscard]] bool Present() const override;

private:
    bool askedFor_ = false;
    std::unique_ptr<Announcements> announcements_; // set once, before anything is watched
};

} // namespace velluto
