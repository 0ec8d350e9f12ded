#include "platform/rtmidi/MachineMidi.h"

#include "platform/rtmidi/ProductName.h"

#include <algorithm>
#include <new>

namespace velluto {

namespace {

bool IsDevice(const std::vector<ListedPort> &devices, int number)
{
    return number >= 0 && number < static_cast<int>(devices.size()) && devices[static_cast<std::size_t>(number)].system != nullptr;
}

template <typename Open>
Open *Find(std::vector<Open> &devices, MidiHandle handle)
{
    const auto found = std::ranges::find(devices, handle, &Open::handle);
    return found == devices.end() ? nullptr : &*found;
}

std::vector<ListedPort> List(std::span<MidiPorts *const> systems, std::vector<std::string> (MidiPorts::*list)())
{
    std::vector<ListedPort> ports;
    for (MidiPorts *system : systems) {
        for (std::string &name : (system->*list)()) {
            ports.push_back({system, std::move(name)});
        }
    }
    LeaveOutBridged(ports);
    return ports;
}

int Caps(const std::vector<ListedPort> &devices, int number, MidiDeviceCaps &caps)
{
    caps = {};
    if (!IsDevice(devices, number)) {
        return MidiCode::kError;
    }
    caps = ProductName(devices[static_cast<std::size_t>(number)].name);
    return MidiCode::kSuccess;
}

} // namespace

MachineMidi::MachineMidi(std::vector<std::unique_ptr<MidiPorts>> systems, KnownDevices known)
    : systems_(std::move(systems)), known_(std::move(known))
{
    for (const auto &system : systems_) {
        all_.push_back(system.get());
    }
}

MachineMidi::~MachineMidi()
{
    outputChanged = [](const ListedPort &) {}; // whoever would hear it may have gone before
    // Inputs end without their last callback, for the same reason.
    for (OpenIn &in : openIns_) {
        Unlink(in);
        in.line->Stop();
    }
    openIns_.clear();
    while (!openOuts_.empty()) {
        midiOutClose(openOuts_.back().handle);
    }
    const KnownDevices known{NumbersToKeep(NamesOf(outs_), known_.outs, chosenOut_), NumbersToKeep(NamesOf(ins_), known_.ins, -1)};
    if (known != known_) {
        keep(known);
    }
}

int MachineMidi::CountOuts(Systems systems)
{
    NumberPorts(outs_, List(systems, &MidiPorts::Outputs), known_.outs);
    return static_cast<int>(outs_.size());
}

int MachineMidi::CountIns(Systems systems)
{
    NumberPorts(ins_, List(systems, &MidiPorts::Inputs), known_.ins);
    return static_cast<int>(ins_.size());
}

void MachineMidi::TellOutput() const
{
    outputChanged(openOuts_.empty() ? ListedPort() : outs_[static_cast<std::size_t>(openOuts_.back().number)]);
}

void MachineMidi::Expect(int out, int in)
{
    const auto isLost = [](std::span<const KnownDevice> known, int number) {
        return number >= 0 && number < kNumbersKept && std::ranges::find(known, number, &KnownDevice::number) == known.end();
    };
    if (isLost(known_.outs, out) || isLost(known_.ins, in)) {
        std::ranges::for_each(all_, &MidiPorts::ListAll);
    }
}

int MachineMidi::midiOutGetNumDevs()
{
    return CountOuts(all_);
}

int MachineMidi::midiInGetNumDevs()
{
    return CountIns(all_);
}

std::optional<MidiDeviceCounts> MachineMidi::CountAgain()
{
    std::vector<MidiPorts *> atHand = all_;
    std::erase_if(atHand, [](MidiPorts *system) { return !system->AtHand(); });
    std::ranges::for_each(atHand, &MidiPorts::ListAll);
    return MidiDeviceCounts{CountOuts(atHand), CountIns(atHand)};
}

int MachineMidi::midiOutGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(outs_, number, caps);
}

int MachineMidi::midiInGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(ins_, number, caps);
}

// A connection to the output, with what an earlier one left sounding ended.
int MachineMidi::Connect(int number, std::unique_ptr<OutputPort> &port)
{
    const ListedPort &device = outs_[static_cast<std::size_t>(number)];
    const int code = device.system->OpenOutput(device.name, port);
    if (code == MidiCode::kSuccess) {
        const auto left = abandoned_.find(device.name);
        if (left != abandoned_.end() && Silence(*port, left->second)) {
            abandoned_.erase(left);
        }
    }
    return code;
}

int MachineMidi::midiOutOpen(MidiHandle &handle, int number)
{
    handle = 0;
    if (!IsDevice(outs_, number)) {
        return MidiCode::kError;
    }
    chosenOut_ = number;
    if (std::ranges::find(openOuts_, number, &OpenOut::number) != openOuts_.end()) {
        return MidiCode::kAllocated;
    }
    OpenOut device{.handle = 0, .number = number, .port = nullptr, .notes = {}};
    const int code = Connect(number, device.port);
    if (code == MidiCode::kSuccess) {
        device.handle = ++lastHandle_;
        handle = device.handle;
        openOuts_.push_back(std::move(device));
        TellOutput();
    }
    return code;
}

int MachineMidi::midiOutClose(MidiHandle handle)
{
    OpenOut *device = Find(openOuts_, handle);
    if (device == nullptr) {
        return MidiCode::kSuccess;
    }
    for (OpenIn &in : openIns_) {
        if (in.linkedTo == device->number) {
            Unlink(in);
        }
    }
    if (!Silence(*device->port, device->notes)) {
        abandoned_[OutName(device->number)].Add(device->notes);
    }
    openOuts_.erase(openOuts_.begin() + (device - openOuts_.data()));
    TellOutput();
    return MidiCode::kSuccess;
}

int MachineMidi::midiOutShortMsg(MidiHandle handle, ShortMessage message)
{
    OpenOut *device = Find(openOuts_, handle);
    const std::span<const std::uint8_t> sent = message.View();
    if (device == nullptr || sent.empty() || std::ranges::any_of(sent.subspan(1), [](std::uint8_t byte) { return byte >= kFirstStatus; })) {
        return MidiCode::kError;
    }
    const int code = device->port->Send(sent);
    if (code == MidiCode::kSuccess) {
        device->notes.Passed(sent);
    }
    return code;
}

int MachineMidi::midiInOpen(MidiHandle &handle, int number, MidiInCallback callback)
{
    handle = 0;
    if (!IsDevice(ins_, number)) {
        return MidiCode::kError;
    }
    if (std::ranges::find(openIns_, number, &OpenIn::number) != openIns_.end()) {
        return MidiCode::kAllocated;
    }
    const ListedPort &listed = ins_[static_cast<std::size_t>(number)];
    OpenIn device{.handle = lastHandle_ + 1, .number = number, .line = nullptr, .port = nullptr, .linkedTo = -1};
    device.line = std::make_shared<InputLine>(device.handle, callback);
    const int code = listed.system->OpenInput(listed.name, device.line, device.port);
    if (code == MidiCode::kSuccess) {
        handle = ++lastHandle_;
        device.line->Opened();
        openIns_.push_back(std::move(device));
    }
    return code;
}

int MachineMidi::midiInClose(MidiHandle handle)
{
    OpenIn *device = Find(openIns_, handle);
    if (device == nullptr) {
        return MidiCode::kSuccess;
    }
    Unlink(*device);
    device->line->Closed();
    openIns_.erase(openIns_.begin() + (device - openIns_.data()));
    return MidiCode::kSuccess;
}

int MachineMidi::midiInStart(MidiHandle handle)
{
    OpenIn *device = Find(openIns_, handle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    device->line->Start();
    return MidiCode::kSuccess;
}

int MachineMidi::midiInStop(MidiHandle handle)
{
    OpenIn *device = Find(openIns_, handle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    device->line->Stop();
    return MidiCode::kSuccess;
}

void MachineMidi::Unlink(OpenIn &in)
{
    if (in.linkedTo < 0) {
        return;
    }
    NoteTracker left;
    in.line->Unlink(left);
    if (!left.Silent()) {
        abandoned_[OutName(in.linkedTo)].Add(left);
    }
    in.linkedTo = -1;
}

int MachineMidi::midiConnect(MidiHandle in, MidiHandle out)
{
    OpenIn *from = Find(openIns_, in);
    const OpenOut *to = Find(openOuts_, out);
    if (from == nullptr || to == nullptr) {
        return MidiCode::kError;
    }
    std::unique_ptr<OutputPort> port;
    const int code = Connect(to->number, port);
    if (code == MidiCode::kSuccess) {
        Unlink(*from);
        from->line->LinkTo(std::move(port));
        from->linkedTo = to->number;
    }
    return code;
}

int MachineMidi::midiDisconnect(MidiHandle in, MidiHandle /*out*/)
{
    OpenIn *from = Find(openIns_, in);
    if (from == nullptr) {
        return MidiCode::kError;
    }
    Unlink(*from);
    return MidiCode::kSuccess;
}

} // namespace velluto
