// The product name of a device as the program's capability record holds it, and the look of the program's own ports.
#pragma once

#include "platform/MidiDevices.h"

#include <string_view>

namespace velluto {

// The port's name as UTF-8 within the 32 bytes of the record. A longer one keeps what tells ports apart: a client's name that the port
// repeats goes, and then characters in the middle. A byte that is no UTF-8 and a control character become '?'.
MidiDeviceCaps ProductName(std::string_view portName);

// True for a port of the program itself: "Velluto:out", "Velluto-02:in".
bool IsOwnPort(std::string_view portName);

} // namespace velluto
