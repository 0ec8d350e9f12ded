#include "midi/Roles.h"

#include <algorithm>

namespace velluto {

std::optional<int> ChannelForRole(const Settings &settings, int role)
{
    if (role <= 0 || role >= kRoleCount) {
        return std::nullopt;
    }
    const auto *found = std::ranges::find(settings.ChannelRole, role);
    if (found == settings.ChannelRole.end()) {
        return std::nullopt;
    }
    return static_cast<int>(found - settings.ChannelRole.begin());
}

} // namespace velluto
