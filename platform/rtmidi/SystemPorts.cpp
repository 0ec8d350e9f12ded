#include "platform/rtmidi/SystemPorts.h"

#include "platform/MidiDevices.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace velluto {

namespace {

using namespace std::chrono_literals;

constexpr auto kMoment = 20ms; // nobody sees a menu come up later by that

bool AreAllThere(MidiSystem &system, const PortNames &known)
{
    const auto isThere = [&](PortKind kind) { return [&system, kind](const std::string &name) { return system.Has(kind, name); }; };
    return !known.outputs.empty() && !known.inputs.empty() && std::ranges::all_of(known.outputs, isThere(PortKind::Output)) &&
           std::ranges::all_of(known.inputs, isThere(PortKind::Input));
}

} // namespace

SystemPorts::SystemPorts(std::unique_ptr<MidiSystem> system, std::chrono::milliseconds patience)
    : system_(std::move(system)), patience_(patience), watch_(*system_)
{
}

SystemPorts::~SystemPorts()
{
    watch_.End();
    // A server that neither runs nor dies can hold the closing of a client for ever: the program ends without it. The
    // connections end first, the system that they belong to after them.
    if (!retirement_.Wait(kPatience)) {
        static_cast<void>(system_.release());
        return;
    }
    retirement_.End(std::move(system_));
    retirement_.Wait(kPatience);
}

void SystemPorts::LookAhead(PortNames known)
{
    const auto look = std::make_shared<std::packaged_task<PortNames()>>([&system = *system_, known = std::move(known)]() -> PortNames {
        if (!system.Connect()) {
            return {};
        }
        if (AreAllThere(system, known)) {
            return known;
        }
        static_cast<void>(system.Names(PortKind::Output)); // the first list of a server's ports takes longer than any later one
        return {};
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
    return EndLook(kMoment) && system_->Alive();
}

bool SystemPorts::EndLook(std::chrono::milliseconds limit)
{
    if (!lookedAhead_.valid()) {
        return true;
    }
    if (lookedAhead_.wait_for(limit) != std::future_status::ready) {
        return false;
    }
    isLate_ = false;
    try {
        first_ = lookedAhead_.get();
    } catch (const std::exception &) {
        first_ = {}; // a look that failed has found nothing
    }
    if (listsAll_) {
        first_ = {};
    }
    return true;
}

void SystemPorts::ListAll()
{
    listsAll_ = true;
    first_ = {};
}

template <typename End, typename Open>
Opened<End> SystemPorts::Ask(Open open)
{
    if (!EnsureAlive() || (owesAnswer_ && !retirement_.Wait(kMoment))) {
        return {};
    }
    auto request = std::make_shared<std::packaged_task<Opened<End>()>>(
        [&system = *system_, open = std::move(open)]() { return system.Activate() ? open(system) : Opened<End>(); });
    std::future<Opened<End>> answer = request->get_future();
    retirement_.Retire([request = std::move(request)]() { (*request)(); });
    owesAnswer_ = answer.wait_for(patience_) != std::future_status::ready;
    if (!owesAnswer_) {
        return answer.get();
    }
    // What it opens late must not end here, where it could keep the interface waiting.
    retirement_.Retire([late = std::make_shared<std::future<Opened<End>>>(std::move(answer))]() { late->wait(); });
    return {};
}

int SystemPorts::OpenOutput(const std::string &name, std::unique_ptr<OutputPort> &port)
{
    return ConnectOutput(Host(), name, Ask<SystemOutput>([name](MidiSystem &system) { return OpenOutputEnd(system, name); }), port);
}

int SystemPorts::OpenInput(const std::string &name, std::shared_ptr<MessageSink> sink, std::unique_ptr<InputPort> &port)
{
    auto opened = Ask<SystemInput>([name, sink](MidiSystem &system) { return OpenInputEnd(system, name, sink); });
    return ConnectInput(Host(), name, std::move(sink), std::move(opened), port);
}

std::unique_ptr<SourcePort> SystemPorts::OpenSource()
{
    return ConnectSource(Host(), Ask<SourcePort>([](MidiSystem &system) { return OpenSourceEnd(system); }));
}

std::vector<std::string> SystemPorts::List(PortKind kind)
{
    if (!EnsureAlive()) {
        return {};
    }
    std::vector<std::string> first = std::exchange(kind == PortKind::Output ? first_.outputs : first_.inputs, {});
    return first.empty() ? system_->Names(kind) : first;
}

bool SystemPorts::EnsureAlive()
{
    const auto answers = [this]() {
        const bool ended = EndLook(isLate_ ? kMoment : patience_);
        isLate_ = isLate_ || !ended; // the look goes on, and AtHand has what it finds
        return ended;
    };
    if (!answers()) {
        return false;
    }
    if (system_->Alive()) {
        return true;
    }
    first_ = {};
    watch_.Look(); // everything on a dead system is let go
    if (!retirement_.Wait(isLate_ ? kMoment : patience_)) {
        isLate_ = true;
        return false;
    }
    isLate_ = false;
    LookAhead();
    return answers() && system_->Alive();
}

} // namespace velluto
