// Which number each port of the machine's MIDI systems has as a device. Used by MachineMidi.
#pragma once

#include "platform/music/KnownDevices.h"
#include "platform/rtmidi/MidiPorts.h"

#include <span>

namespace velluto {

// A port's name without the two numbers at its end that ALSA gives it anew each time: "PA80:PA80 MIDI 1 24:0".
std::string_view LastingName(std::string_view name);

// PipeWire shows the ports of ALSA, and the program's own, once more as ports of a client "Midi-Bridge": these go.
void LeaveOutBridged(std::vector<ListedPort> &ports);

// Gives each of the ports that are there now a number, its place in `devices`, where it has none. A number is never taken away. A
// known port gets its own again; others get the first free one, those of known ports that are not there last, and that of a chosen
// one never. The machine's through ports come after all others. A place without a system is a number that nobody has.
void NumberPorts(std::vector<ListedPort> &devices, std::vector<ListedPort> ports, std::span<const KnownDevice> known);

// Their names by number, "" where nobody has one.
std::vector<std::string> NamesOf(const std::vector<ListedPort> &devices);

} // namespace velluto
