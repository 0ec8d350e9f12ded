#include "platform/rtmidi/SystemPorts.h"

#include "platform/MidiDevices.h"

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr auto kWait = 3000ms; // JACK takes a second to leave a dead server
constexpr auto kMoment = 20ms; // nobody sees a menu come up later by that

} // namespace

SystemPorts::SystemPorts(std::unique_ptr<MidiSystem> system) : system_(std::move(system)), watch_(*system_) {}

SystemPorts::~SystemPorts()
{
    watch_.End();
    // A server that neither runs nor dies can hold the closing of a client for ever: the program ends without it. The
    // connections end first, the system that they belong to after them.
    if (!retirement_.Wait(kWait)) {
        static_cast<void>(system_.release());
        return;
    }
    retirement_.End(std::move(system_));
    retirement_.Wait(kWait);
}

void SystemPorts::LookAhead()
{
    const auto look = std::make_shared<std::packaged_task<void()>>([&system = *system_]() {
        if (system.Connect()) {
            static_cast<void>(system.Names(PortKind::Output)); // the first list of a server's ports takes longer than any later one
        }
    });
    lookedAhead_ = look->get_future();
    // Like an ending it may take for ever on a server that hangs, and must not hold the program's end.
    retirement_.Retire([look]() { (*look)(); });
}

bool SystemPorts::AtHand()
{
    if (!lookedAhead_.valid() && !system_->Alive()) {
        watch_.Look(); // everything on a dead system is let go
        if (!retirement_.Wait(kMoment)) {
            return false;
        }
        LookAhead();
    }
    if (lookedAhead_.valid()) {
        if (lookedAhead_.wait_for(kMoment) != std::future_status::ready) {
            return false;
        }
        lookedAhead_ = {};
    }
    return system_->Alive();
}

int SystemPorts::OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port)
{
    return EnsureActive() ? ConnectOutput(Host(), name, port) : MidiCode::kNoDevice;
}

int SystemPorts::OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port)
{
    return EnsureActive() ? ConnectInput(Host(), name, std::move(sink), port) : MidiCode::kNoDevice;
}

std::unique_ptr<SourcePort> SystemPorts::OpenSource()
{
    return EnsureActive() ? ConnectSource(Host()) : nullptr;
}

std::vector<std::string> SystemPorts::List(PortKind kind)
{
    return EnsureAlive() ? system_->Names(kind) : std::vector<std::string>();
}

bool SystemPorts::EnsureAlive()
{
    if (lookedAhead_.valid()) {
        lookedAhead_.wait();
        lookedAhead_ = {};
    }
    if (system_->Alive()) {
        return true;
    }
    watch_.Look(); // everything on a dead system is let go
    return retirement_.Wait(kWait) && system_->Connect();
}

bool SystemPorts::EnsureActive()
{
    return EnsureAlive() && system_->Activate();
}

} // namespace velluto
