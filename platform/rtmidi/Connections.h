// Connections to the ports of a MIDI system, and to the program's own source port. Each is watched from its first moment: once
// its port has gone, a send on it is refused. Used by SystemPorts.
#pragma once

#include "platform/MidiDevices.h"
#include "platform/rtmidi/MidiSystem.h"
#include "platform/rtmidi/PortWatch.h"
#include "platform/rtmidi/Retirement.h"

namespace velluto {

// What every connection leans on; all of it outlives the connection.
struct ConnectionHost {
    MidiSystem &system;
    Retirement &retirement; // ends the system's own ends, which may take a second over it
    PortWatch &watch;
};

// What a system answers to who opens something: a MidiCode, and with success the system's own end.
template <typename End>
struct Opened {
    int code = MidiCode::kNoDevice;
    std::unique_ptr<End> end;
};

// These ask the system, and wait as long as it does. Any thread. The system's exceptions end here.
Opened<SystemOutput> OpenOutputEnd(MidiSystem &system, const std::string &name);
Opened<SystemInput> OpenInputEnd(MidiSystem &system, const std::string &name, std::shared_ptr<MessageSink> sink);
Opened<SourcePort> OpenSourceEnd(MidiSystem &system); // nothing, with success, where the system makes none

// These make connections of what was opened, at once. A MidiCode; the port is set only with success.
int ConnectOutput(const ConnectionHost &host, const std::string &name, Opened<SystemOutput> opened, std::unique_ptr<OutputPort> &port);
int ConnectInput(const ConnectionHost &host, const std::string &name, std::shared_ptr<MessageSink> sink, Opened<SystemInput> opened,
                 std::unique_ptr<InputPort> &port);

// The program's own port, for its sequencer. Nothing where there is none.
std::unique_ptr<SourcePort> ConnectSource(const ConnectionHost &host, Opened<SourcePort> opened);

} // namespace velluto
