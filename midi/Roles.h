// The instrument's parts and the MIDI channels that serve them. frmMIDISetup edits the table, recall reads it.
#pragma once

#include "app/Settings.h"

#include <array>
#include <optional>
#include <string_view>

namespace velluto {

inline constexpr std::array<std::string_view, kRoleCount> kRoleNames = {"OFF",  "LOWR", "UP.1", "UP.2", "UP.3", "DRUM",   "PERC",  "BASS",
                                                                        "ACC1", "ACC2", "ACC3", "ACC4", "ACC5", "GLOBAL", "CONTRL"};

// The 0-based channel, the lowest that has the role; nothing when the role is 0 ("OFF") or no channel has it.
[[nodiscard]] std::optional<int> ChannelForRole(const Settings &settings, int role);

} // namespace velluto
