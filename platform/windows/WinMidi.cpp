#include "platform/windows/WinMidi.h"

#include "platform/windows/WinPaths.h"
#include "platform/windows/Windows.h"

#include <algorithm>
#include <mmsystem.h>

namespace velluto {

// An open input. The system's thread reads it from the open on, until the close has returned.
struct WinMidi::Input {
    HMIDIIN system = nullptr;
    MidiHandle handle = 0;
    MidiInCallback callback;

    // On a thread of the system's, in which next to nothing may be done: it hands on what came, and does no more.
    static void CALLBACK Proc(HMIDIIN /*system*/, UINT message, DWORD_PTR instance, DWORD_PTR parameter1, DWORD_PTR parameter2)
    {
        const auto *input = reinterpret_cast<const Input *>(instance);
        if (input->callback.proc != nullptr) {
            input->callback.proc(input->handle, message, input->callback.instance, static_cast<std::uint32_t>(parameter1),
                                 static_cast<std::uint32_t>(parameter2));
        }
    }
};

namespace {

// What is not open any more, as the system says it.
constexpr int kNotOpen = MMSYSERR_INVALHANDLE;

UINT_PTR SystemNumber(int number)
{
    return static_cast<UINT_PTR>(static_cast<INT_PTR>(number)); // -1 is the mapper
}

// As many letters of the name as the field has room for, in UTF-8.
void PutName(const wchar_t *name, MidiDeviceCaps &caps)
{
    const std::string utf8 = Utf8Of(name);
    std::size_t length = std::min(utf8.size(), caps.name.size() - 1);
    while (length > 0 && length < utf8.size() && (static_cast<unsigned char>(utf8[length]) & 0xC0U) == 0x80U) {
        --length;
    }
    caps.name.fill('\0');
    std::copy_n(utf8.begin(), length, caps.name.begin());
}

} // namespace

WinMidi::WinMidi() = default;

WinMidi::~WinMidi()
{
    while (!inputs_.empty()) {
        const MidiHandle handle = inputs_.begin()->first;
        if (WinMidi::midiInClose(handle) != MMSYSERR_NOERROR) {
            const auto stuck = inputs_.find(handle);
            (void)stuck->second.release(); // the system may still call it: it stays until the process ends
            inputs_.erase(stuck);
        }
    }
    while (!outputs_.empty()) {
        const MidiHandle handle = outputs_.begin()->first;
        WinMidi::midiOutClose(handle);
        outputs_.erase(handle);
    }
}

WinMidi::SystemOutput WinMidi::FindOutput(MidiHandle handle) const
{
    const auto found = outputs_.find(handle);
    return found != outputs_.end() ? found->second : nullptr;
}

WinMidi::Input *WinMidi::FindInput(MidiHandle handle) const
{
    const auto found = inputs_.find(handle);
    return found != inputs_.end() ? found->second.get() : nullptr;
}

int WinMidi::midiOutGetNumDevs()
{
    return static_cast<int>(::midiOutGetNumDevs());
}

int WinMidi::midiOutGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    MIDIOUTCAPSW about{};
    const MMRESULT result = ::midiOutGetDevCapsW(SystemNumber(number), &about, sizeof(about));
    if (result == MMSYSERR_NOERROR) {
        PutName(about.szPname, caps);
    }
    return static_cast<int>(result);
}

int WinMidi::midiOutOpen(MidiHandle &handle, int number)
{
    HMIDIOUT system = nullptr;
    const MMRESULT result = ::midiOutOpen(&system, static_cast<UINT>(number), 0, 0, CALLBACK_NULL);
    if (result == MMSYSERR_NOERROR) {
        handle = ++last_;
        outputs_.emplace(handle, system);
    }
    return static_cast<int>(result);
}

int WinMidi::midiOutClose(MidiHandle handle)
{
    const SystemOutput output = FindOutput(handle);
    if (output == nullptr) {
        return MidiCode::kSuccess;
    }
    const MMRESULT result = ::midiOutClose(static_cast<HMIDIOUT>(output));
    if (result == MMSYSERR_NOERROR) {
        outputs_.erase(handle);
    }
    return static_cast<int>(result);
}

int WinMidi::midiOutShortMsg(MidiHandle handle, ShortMessage message)
{
    const SystemOutput output = FindOutput(handle);
    return output == nullptr ? kNotOpen : static_cast<int>(::midiOutShortMsg(static_cast<HMIDIOUT>(output), message.Packed()));
}

int WinMidi::midiInGetNumDevs()
{
    return static_cast<int>(::midiInGetNumDevs());
}

int WinMidi::midiInGetDevCapsA(int number, MidiDeviceCaps &caps)
{
    MIDIINCAPSW about{};
    const MMRESULT result = ::midiInGetDevCapsW(SystemNumber(number), &about, sizeof(about));
    if (result == MMSYSERR_NOERROR) {
        PutName(about.szPname, caps);
    }
    return static_cast<int>(result);
}

int WinMidi::midiInOpen(MidiHandle &handle, int number, MidiInCallback callback)
{
    auto input = std::make_unique<Input>();
    input->handle = last_ + 1; // known before the system calls for the first time, which it does inside the open
    input->callback = callback;
    const MMRESULT result = ::midiInOpen(&input->system, static_cast<UINT>(number), reinterpret_cast<DWORD_PTR>(&Input::Proc),
                                         reinterpret_cast<DWORD_PTR>(input.get()), CALLBACK_FUNCTION);
    if (result == MMSYSERR_NOERROR) {
        handle = ++last_;
        inputs_.emplace(handle, std::move(input));
    }
    return static_cast<int>(result);
}

int WinMidi::midiInClose(MidiHandle handle)
{
    const Input *input = FindInput(handle);
    if (input == nullptr) {
        return MidiCode::kSuccess;
    }
    const MMRESULT result = ::midiInClose(input->system);
    if (result == MMSYSERR_NOERROR) {
        inputs_.erase(handle);
    }
    return static_cast<int>(result);
}

int WinMidi::midiInStart(MidiHandle handle)
{
    const Input *input = FindInput(handle);
    return input == nullptr ? kNotOpen : static_cast<int>(::midiInStart(input->system));
}

int WinMidi::midiInStop(MidiHandle handle)
{
    const Input *input = FindInput(handle);
    return input == nullptr ? kNotOpen : static_cast<int>(::midiInStop(input->system));
}

int WinMidi::midiConnect(MidiHandle in, MidiHandle out)
{
    const Input *input = FindInput(in);
    const SystemOutput output = FindOutput(out);
    if (input == nullptr || output == nullptr) {
        return kNotOpen;
    }
    return static_cast<int>(::midiConnect(reinterpret_cast<HMIDI>(input->system), static_cast<HMIDIOUT>(output), nullptr));
}

int WinMidi::midiDisconnect(MidiHandle in, MidiHandle out)
{
    const Input *input = FindInput(in);
    const SystemOutput output = FindOutput(out);
    if (input == nullptr || output == nullptr) {
        return kNotOpen;
    }
    return static_cast<int>(::midiDisconnect(reinterpret_cast<HMIDI>(input->system), static_cast<HMIDIOUT>(output), nullptr));
}

} // namespace velluto
