#include "platform/rtmidi/MachineSequencer.h"

namespace velluto {

namespace {

constexpr int kNotSupported = 1;

} // namespace

void MachineSequencer::SetCommand(std::string_view word)
{
    command_ = word;
    error_ = word == "close" ? 0 : kNotSupported;
}

std::string MachineSequencer::ErrorMessage() const
{
    return error_ == 0 ? "" : "MIDI files cannot be played on this system.";
}

} // namespace velluto
