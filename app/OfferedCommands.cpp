#include "app/OfferedCommands.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

// By name, every number of it. Taking a row out offers the command.
constexpr std::array kNotOfferedYet{
    std::string_view("mnuMidiPlayer"),
};

} // namespace

void WithdrawCommandsNotOffered(frmMain &frame)
{
    for (Control *control : frame.controls()) {
        if (std::ranges::find(kNotOfferedYet, control->name()) != kNotOfferedYet.end()) {
            control->enabled = false;
        }
    }
}

} // namespace velluto
