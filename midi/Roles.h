// The instrument's parts and the MIDI channels that serve them. frmMIDISetup edits the table, recall reads it.
#pragma once

#include "app/Settings.h"

#include <optional>

namespace velluto {

// The 0-based channel, the lowest that has the role; nothing when the role is 0 ("OFF") or no channel has it.
[[nodiscard]] std::optional<int> ChannelForRole(const Settings &settings, int role);

} // namespace velluto
