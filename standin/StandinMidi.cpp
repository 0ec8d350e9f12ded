#include "standin/StandinMidi.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr MidiHandle kFirstOutHandle = 100;
constexpr MidiHandle kFirstInHandle = 200;

// The open device behind a handle, or nullptr.
StandinDevice *Open(std::vector<StandinDevice> &devices, MidiHandle handle, MidiHandle first)
{
    if (handle < first || handle - first >= devices.size() || !devices[handle - first].isOpen) {
        return nullptr;
    }
    return &devices[handle - first];
}

int NumberOf(const std::vector<StandinDevice> &devices, MidiHandle handle, MidiHandle first)
{
    return handle >= first && handle - first < devices.size() ? static_cast<int>(handle - first) : -1;
}

int Caps(const std::vector<StandinDevice> &devices, int number, MidiDeviceCaps &caps)
{
    if (number < 0 || number >= static_cast<int>(devices.size())) {
        return MidiCode::kError;
    }
    const StandinDevice &device = devices[static_cast<std::size_t>(number)];
    caps = {};
    std::copy_n(device.name.begin(), std::min(device.name.size(), caps.name.size()), caps.name.begin());
    return device.codes.caps;
}

} // namespace

int StandinMidi::midiOutGetNumDevs()
{
    return static_cast<int>(outs.size());
}

int StandinMidi::midiOutGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(outs, number, caps);
}

int StandinMidi::midiOutOpen(MidiHandle &handle, int number)
{
    calls.push_back("midiOutOpen " + std::to_string(number));
    handle = 0;
    if (number < 0 || number >= static_cast<int>(outs.size())) {
        return MidiCode::kError;
    }
    StandinDevice &device = outs[static_cast<std::size_t>(number)];
    if (device.codes.open == 0) {
        device.isOpen = true;
        handle = kFirstOutHandle + static_cast<MidiHandle>(number);
    }
    return device.codes.open;
}

int StandinMidi::midiOutClose(MidiHandle handle)
{
    calls.push_back("midiOutClose " + std::to_string(NumberOf(outs, handle, kFirstOutHandle)));
    StandinDevice *device = Open(outs, handle, kFirstOutHandle);
    if (device == nullptr) {
        return MidiCode::kSuccess;
    }
    device->isOpen = false;
    if (NumberOf(outs, handle, kFirstOutHandle) == linkOut_) {
        EndLink();
    }
    return device->codes.close;
}

int StandinMidi::midiOutShortMsg(MidiHandle handle, ShortMessage message)
{
    StandinDevice *device = Open(outs, handle, kFirstOutHandle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    sent.push_back(message.Packed());
    return device->codes.send;
}

int StandinMidi::midiInGetNumDevs()
{
    return static_cast<int>(ins.size());
}

int StandinMidi::midiInGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    return Caps(ins, number, caps);
}

int StandinMidi::midiInOpen(MidiHandle &handle, int number, MidiInCallback callback)
{
    calls.push_back("midiInOpen " + std::to_string(number));
    handle = 0;
    if (number < 0 || number >= static_cast<int>(ins.size())) {
        return MidiCode::kError;
    }
    StandinDevice &device = ins[static_cast<std::size_t>(number)];
    if (device.codes.open == 0) {
        device.isOpen = true;
        device.started = false;
        device.callback = callback;
        handle = kFirstInHandle + static_cast<MidiHandle>(number);
    }
    return device.codes.open;
}

int StandinMidi::midiInClose(MidiHandle handle)
{
    calls.push_back("midiInClose " + std::to_string(NumberOf(ins, handle, kFirstInHandle)));
    StandinDevice *device = Open(ins, handle, kFirstInHandle);
    if (device == nullptr) {
        return MidiCode::kSuccess;
    }
    if (device->codes.close == 0) {
        device->isOpen = false;
        if (NumberOf(ins, handle, kFirstInHandle) == linkIn_) {
            EndLink();
        }
    }
    return device->codes.close;
}

int StandinMidi::midiInStart(MidiHandle handle)
{
    thru.push_back({ThruEvent::Kind::Start, NumberOf(ins, handle, kFirstInHandle), -1, {}});
    StandinDevice *device = Open(ins, handle, kFirstInHandle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    device->started = device->codes.start == 0;
    return device->codes.start;
}

int StandinMidi::midiInStop(MidiHandle handle)
{
    thru.push_back({ThruEvent::Kind::Stop, NumberOf(ins, handle, kFirstInHandle), -1, {}});
    StandinDevice *device = Open(ins, handle, kFirstInHandle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    device->started = device->started && device->codes.stop != 0;
    return device->codes.stop;
}

int StandinMidi::midiConnect(MidiHandle in, MidiHandle out)
{
    const int inNumber = NumberOf(ins, in, kFirstInHandle);
    const int outNumber = NumberOf(outs, out, kFirstOutHandle);
    thru.push_back({ThruEvent::Kind::Connect, inNumber, outNumber, {}});
    StandinDevice *device = Open(ins, in, kFirstInHandle);
    if (device == nullptr || Open(outs, out, kFirstOutHandle) == nullptr) {
        return MidiCode::kError;
    }
    if (device->codes.connect == 0) {
        linkIn_ = inNumber;
        linkOut_ = outNumber;
    }
    return device->codes.connect;
}

int StandinMidi::midiDisconnect(MidiHandle in, MidiHandle out)
{
    const int inNumber = NumberOf(ins, in, kFirstInHandle);
    thru.push_back({ThruEvent::Kind::Disconnect, inNumber, NumberOf(outs, out, kFirstOutHandle), {}});
    StandinDevice *device = Open(ins, in, kFirstInHandle);
    if (device == nullptr) {
        return MidiCode::kError;
    }
    if (device->codes.disconnect == 0) {
        EndLink();
    }
    return device->codes.disconnect;
}

std::optional<MidiDeviceCounts> StandinMidi::CountAgain()
{
    return devicesCome ? std::optional(MidiDeviceCounts{midiOutGetNumDevs(), midiInGetNumDevs()}) : std::nullopt;
}

void StandinMidi::ReleaseAll()
{
    for (std::vector<StandinDevice> *devices : {&outs, &ins}) {
        for (StandinDevice &device : *devices) {
            device.isOpen = false;
            device.started = false;
            device.callback = {};
        }
    }
    EndLink();
}

void StandinMidi::EndLink()
{
    linkIn_ = -1;
    linkOut_ = -1;
}

bool StandinMidi::Receive(int in, const std::vector<std::uint8_t> &bytes)
{
    if (in < 0 || in >= static_cast<int>(ins.size()) || !ins[static_cast<std::size_t>(in)].isOpen) {
        return false;
    }
    StandinDevice &device = ins[static_cast<std::size_t>(in)];
    if (device.callback.proc != nullptr) {
        const std::uint32_t packed = ShortMessage(bytes).Packed();
        device.callback.proc(kFirstInHandle + static_cast<MidiHandle>(in), MidiInMessage::kData, device.callback.instance, packed, 0);
    }
    const bool linked = linkIn_ == in && linkOut_ >= 0 && outs[static_cast<std::size_t>(linkOut_)].isOpen;
    if (linked && device.started) {
        thru.push_back({ThruEvent::Kind::Message, in, linkOut_, bytes});
    }
    return true;
}

} // namespace velluto
