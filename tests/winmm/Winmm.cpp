// A winmm.dll on paper, for tests alone: the calls of the system's own, answered by the machine beside.
#include "Machine.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <utility>

using namespace winmm;

namespace {

template <class Caps>
MMRESULT FillCaps(const std::string &name, Devices Machine::*devices, UINT_PTR number, Caps *caps, UINT size)
{
    return Call(name, std::to_string(static_cast<INT_PTR>(number)), [&](Machine &machine) -> MMRESULT {
        const Devices &there = machine.*devices;
        Caps about{};
        if (number == MIDI_MAPPER || number == static_cast<UINT_PTR>(-1)) {
            std::wcscpy(about.szPname, L"MIDI Mapper");
        } else if (number >= there.size()) {
            return MMSYSERR_BADDEVICEID;
        } else if (there[number]->pulled) {
            return kGone;
        } else {
            const std::wstring &full = there[number]->name;
            std::copy_n(full.begin(), std::min<std::size_t>(full.size(), MAXPNAMELEN - 1), about.szPname);
        }
        std::memcpy(caps, &about, std::min<std::size_t>(size, sizeof(about)));
        return MMSYSERR_NOERROR;
    });
}

MMRESULT OpenDevice(Machine &machine, Open open, Open *&opened)
{
    const Devices &devices = open.output ? machine.outs : machine.ins;
    if (open.number >= devices.size()) {
        return MMSYSERR_BADDEVICEID;
    }
    open.device = devices[open.number];
    if (open.device->pulled) {
        return kGone;
    }
    if (open.device->inUse) {
        return MMSYSERR_ALLOCATED;
    }
    open.device->inUse = true;
    opened = &machine.opened.emplace_back(open);
    machine.open.push_back(opened);
    return MMSYSERR_NOERROR;
}

MMRESULT CloseDevice(Machine &machine, void *handle)
{
    if (!IsOpen(machine, handle)) {
        return MMSYSERR_INVALHANDLE;
    }
    static_cast<Open *>(handle)->device->inUse = false;
    std::erase(machine.open, handle);
    return MMSYSERR_NOERROR;
}

// Of a number alone, and of none that is open. It changes nothing, and is no line of the log.
MMRESULT Tell(const Devices &devices, const void *number, UINT message, DWORD_PTR first, DWORD_PTR second)
{
    const auto at = reinterpret_cast<std::size_t>(number);
    if (at >= devices.size()) {
        return MMSYSERR_BADDEVICEID;
    }
    const std::wstring &place = devices[at]->place;
    const std::size_t size = (place.size() + 1) * sizeof(wchar_t);
    if (place.empty() || devices[at]->pulled) {
        return MMSYSERR_NOTSUPPORTED;
    }
    if (message == DRV_QUERYDEVICEINTERFACESIZE) {
        *reinterpret_cast<ULONG *>(first) = static_cast<ULONG>(size);
        return MMSYSERR_NOERROR;
    }
    if (message != DRV_QUERYDEVICEINTERFACE || second < size) {
        return MMSYSERR_INVALPARAM;
    }
    std::memcpy(reinterpret_cast<void *>(first), place.c_str(), size);
    return MMSYSERR_NOERROR;
}

} // namespace

extern "C" {

__declspec(dllexport) const char *StandinWinmm(const char *command)
{
    Machine &machine = TheMachine();
    const std::lock_guard guard(machine.lock);
    Command(machine, command);
    machine.answer = machine.log;
    return machine.answer.c_str();
}

__declspec(dllexport) UINT WINAPI midiOutGetNumDevs()
{
    return static_cast<UINT>(TheMachine().outs.size());
}

__declspec(dllexport) UINT WINAPI midiInGetNumDevs()
{
    return static_cast<UINT>(TheMachine().ins.size());
}

__declspec(dllexport) MMRESULT WINAPI midiOutGetDevCapsW(UINT_PTR number, LPMIDIOUTCAPSW caps, UINT size)
{
    return FillCaps("midiOutGetDevCaps", &Machine::outs, number, caps, size);
}

__declspec(dllexport) MMRESULT WINAPI midiInGetDevCapsW(UINT_PTR number, LPMIDIINCAPSW caps, UINT size)
{
    return FillCaps("midiInGetDevCaps", &Machine::ins, number, caps, size);
}

__declspec(dllexport) MMRESULT WINAPI midiOutMessage(HMIDIOUT number, UINT message, DWORD_PTR first, DWORD_PTR second)
{
    return Tell(TheMachine().outs, number, message, first, second);
}

__declspec(dllexport) MMRESULT WINAPI midiInMessage(HMIDIIN number, UINT message, DWORD_PTR first, DWORD_PTR second)
{
    return Tell(TheMachine().ins, number, message, first, second);
}

__declspec(dllexport) MMRESULT WINAPI
    midiOutOpen(LPHMIDIOUT handle, UINT number, DWORD_PTR /*callback*/, DWORD_PTR /*instance*/, DWORD flags)
{
    return Call("midiOutOpen", std::to_string(static_cast<int>(number)) + " " + std::to_string(flags), [&](Machine &machine) {
        Open *opened = nullptr;
        const MMRESULT result = OpenDevice(machine, {.number = number == MIDI_MAPPER ? 0 : number}, opened);
        *handle = reinterpret_cast<HMIDIOUT>(opened);
        return result;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiOutClose(HMIDIOUT handle)
{
    return Call("midiOutClose", NumberOf(handle), [&](Machine &machine) { return CloseDevice(machine, handle); });
}

__declspec(dllexport) MMRESULT WINAPI midiOutShortMsg(HMIDIOUT handle, DWORD message)
{
    return CallOn("midiOutShortMsg", handle, Hexadecimal(message), [](Machine &, Open &) { return MMSYSERR_NOERROR; });
}

__declspec(dllexport) MMRESULT WINAPI midiOutPrepareHeader(HMIDIOUT handle, LPMIDIHDR header, UINT /*size*/)
{
    return CallOn("midiOutPrepareHeader", handle, "", [&](Machine &, Open &) {
        header->dwFlags |= MHDR_PREPARED;
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiOutUnprepareHeader(HMIDIOUT handle, LPMIDIHDR header, UINT /*size*/)
{
    return Call("midiOutUnprepareHeader", NumberOf(handle), [&](Machine &machine) -> MMRESULT {
        if (std::ranges::find(machine.held, header) != machine.held.end()) {
            return MIDIERR_STILLPLAYING;
        }
        header->dwFlags &= ~static_cast<DWORD>(MHDR_PREPARED);
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiOutLongMsg(HMIDIOUT handle, LPMIDIHDR header, UINT /*size*/)
{
    std::string bytes;
    for (DWORD at = 0; at < header->dwBufferLength && at < 16; ++at) {
        char text[4];
        std::snprintf(text, sizeof(text), "%02X", static_cast<unsigned>(static_cast<unsigned char>(header->lpData[at])));
        bytes += text;
    }
    return CallOn("midiOutLongMsg", handle, bytes, [&](Machine &machine, Open &) -> MMRESULT {
        if ((header->dwFlags & MHDR_PREPARED) == 0) {
            return MIDIERR_UNPREPARED;
        }
        if (machine.holdsExclusives) {
            machine.held.push_back(header);
        } else {
            header->dwFlags |= MHDR_DONE;
        }
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiOutReset(HMIDIOUT handle)
{
    return Call("midiOutReset", NumberOf(handle), [](Machine &machine) {
        for (MIDIHDR *header : std::exchange(machine.held, {})) {
            header->dwFlags |= MHDR_DONE;
        }
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI timeBeginPeriod(UINT period)
{
    return Call("timeBeginPeriod", std::to_string(period), [](Machine &) { return MMSYSERR_NOERROR; });
}

__declspec(dllexport) MMRESULT WINAPI timeEndPeriod(UINT period)
{
    return Call("timeEndPeriod", std::to_string(period), [](Machine &) { return MMSYSERR_NOERROR; });
}

__declspec(dllexport) MMRESULT WINAPI midiInOpen(LPHMIDIIN handle, UINT number, DWORD_PTR callback, DWORD_PTR instance, DWORD flags)
{
    return Call("midiInOpen", std::to_string(number) + " " + std::to_string(flags), [&](Machine &machine) {
        Open *opened = nullptr;
        Open wanted{.number = number, .output = false, .instance = instance};
        wanted.proc = reinterpret_cast<decltype(wanted.proc)>(callback);
        const MMRESULT result = OpenDevice(machine, wanted, opened);
        *handle = reinterpret_cast<HMIDIIN>(opened);
        if (result == MMSYSERR_NOERROR) {
            opened->proc(*handle, MIM_OPEN, instance, 0, 0);
        }
        return result;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiInClose(HMIDIIN handle)
{
    return Call("midiInClose", NumberOf(handle), [&](Machine &machine) {
        const MMRESULT result = CloseDevice(machine, handle);
        if (result == MMSYSERR_NOERROR) {
            const Open &open = *reinterpret_cast<const Open *>(handle);
            open.proc(handle, MIM_CLOSE, open.instance, 0, 0);
        }
        return result;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiInStart(HMIDIIN handle)
{
    return CallOn("midiInStart", handle, "", [](Machine &, Open &open) {
        open.started = true;
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiInStop(HMIDIIN handle)
{
    return CallOn("midiInStop", handle, "", [](Machine &, Open &open) {
        open.started = false;
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiConnect(HMIDI in, HMIDIOUT out, LPVOID /*reserved*/)
{
    return CallOn("midiConnect", in, NumberOf(out), [&](Machine &machine, Open &open) -> MMRESULT {
        if (!IsOpen(machine, out)) {
            return MMSYSERR_INVALHANDLE;
        }
        if (open.thru != nullptr) {
            return MIDIERR_NOTREADY;
        }
        open.thru = reinterpret_cast<Open *>(out);
        return MMSYSERR_NOERROR;
    });
}

__declspec(dllexport) MMRESULT WINAPI midiDisconnect(HMIDI in, HMIDIOUT out, LPVOID /*reserved*/)
{
    return CallOn("midiDisconnect", in, NumberOf(out), [&](Machine &, Open &open) -> MMRESULT {
        if (open.thru != reinterpret_cast<Open *>(out)) {
            return MMSYSERR_INVALPARAM;
        }
        open.thru = nullptr;
        return MMSYSERR_NOERROR;
    });
}

} // extern "C"
