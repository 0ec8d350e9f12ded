// Connections to the ports of a MIDI system, and to the program's own source port. Each is watched from its first moment: once
// its port has gone, a send on it is refused. Used by SystemPorts.
#pragma once

#include "platform/rtmidi/MidiSystem.h"
#include "platform/rtmidi/PortWatch.h"
#include "platform/rtmidi/Retirement.h"

namespace velluto {

// What every connection leans on; all of it outlives the connection.
struct ConnectionHost {
    MidiSystem &system;     // alive when a connection is asked for
    Retirement &retirement; // ends the system's own ends, which may take a second over it
    PortWatch &watch;
};

// A MidiCode; the port is set only with success. The system's exceptions end here.
int ConnectOutput(const ConnectionHost &host, const std::string &name, std::unique_ptr<OutputPort> &port);
int ConnectInput(const ConnectionHost &host, const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port);

// The program's own port, for its sequencer. Nothing where the system makes none.
std::unique_ptr<SourcePort> ConnectSource(const ConnectionHost &host);

} // namespace velluto
