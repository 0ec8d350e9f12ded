// A winmm.dll on paper, for tests alone: MIDI devices that fail when told to, and a log of what was asked of them. Lies beside the
// program under test, which takes it for the system's own where WINEDLLOVERRIDES=winmm=n says so.
//
// It is told what to be by StandinWinmm, or by a file of the same commands, one a line, that the variable STANDIN_WINMM names; the
// log then goes on to the file of STANDIN_WINMM_LOG as well.
//
//     out NAME, in NAME          one more device; names are UTF-8
//     reset                      no devices, no faults, an empty log
//     fail CALL CODE             from now on the call gives this code and does nothing; with CODE 0 it works again
//     pull out N, pull in N      the device has gone: what is open on it answers 68 but to its close
//     plug out N, plug in N      it is back
//     hold 1, hold 0             exclusive messages are read only when the output is reset, or at once
//     receive N MESSAGE TIME     the input's thread delivers a packed message, hexadecimal, at that millisecond
#include "Winmm.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <deque>
#include <fstream>
#include <map>
#include <mutex>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr MMRESULT kGone = MIDIERR_NODEVICE;

struct Device {
    std::wstring name;
    bool pulled = false;
    bool inUse = false;
};

struct Open {
    std::size_t number = 0;
    bool output = true;
    bool started = false;
    Open *thru = nullptr; // the output that an input is connected to
    void(CALLBACK *proc)(HMIDIIN, UINT, DWORD_PTR, DWORD_PTR, DWORD_PTR) = nullptr;
    DWORD_PTR instance = 0;
};

struct Machine {
    std::recursive_mutex lock;
    std::vector<Device> outs;
    std::vector<Device> ins;
    std::map<std::string, MMRESULT> faults;
    std::deque<Open> opened; // never moves, so that a handle is an address
    std::vector<Open *> open;
    bool holdsExclusives = false;
    std::vector<MIDIHDR *> held;
    std::string log;
    std::string answer;
};

std::string Variable(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

void Note(Machine &machine, const std::string &line)
{
    machine.log += line + "\n";
    if (const std::string path = Variable("STANDIN_WINMM_LOG"); !path.empty()) {
        std::ofstream(path, std::ios::app | std::ios::binary) << line << '\n';
    }
}

std::wstring Wide(const std::string &utf8)
{
    std::wstring wide(utf8.size() + 1, L'\0');
    wide.resize(static_cast<std::size_t>(
                    std::max(1, ::MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), static_cast<int>(wide.size())))) -
                1);
    return wide;
}

std::string Hexadecimal(DWORD number)
{
    char text[16];
    std::snprintf(text, sizeof(text), "%06lX", number);
    return text;
}

bool IsOpen(const Machine &machine, const void *handle)
{
    return std::ranges::find(machine.open, handle) != machine.open.end();
}

Device &DeviceOf(Machine &machine, const Open &open)
{
    return (open.output ? machine.outs : machine.ins)[open.number];
}

// The input's own thread, as a driver has one.
void Deliver(Machine &machine, std::size_t number, DWORD message, DWORD time)
{
    for (Open *open : std::vector<Open *>(machine.open)) {
        if (!open->output && open->number == number && open->started) {
            std::thread([=] { open->proc(reinterpret_cast<HMIDIIN>(open), MIM_DATA, open->instance, message, time); }).join();
            if (open->thru != nullptr) {
                Note(machine, "thru " + std::to_string(open->thru->number) + " " + Hexadecimal(message));
            }
        }
    }
}

void Command(Machine &machine, const std::string &line)
{
    std::istringstream words(line);
    std::string verb;
    std::string what;
    words >> verb;
    if (verb == "out" || verb == "in") {
        std::getline(words >> std::ws, what);
        (verb == "out" ? machine.outs : machine.ins).push_back({Wide(what)});
    } else if (verb == "reset") {
        machine.outs.clear();
        machine.ins.clear();
        machine.faults.clear();
        machine.open.clear();
        machine.holdsExclusives = false;
        machine.held.clear();
        machine.log.clear();
    } else if (verb == "fail") {
        MMRESULT code = 0;
        words >> what >> code;
        machine.faults[what] = code;
    } else if (verb == "pull" || verb == "plug") {
        std::size_t number = 0;
        words >> what >> number;
        (what == "out" ? machine.outs : machine.ins).at(number).pulled = verb == "pull";
    } else if (verb == "hold") {
        words >> machine.holdsExclusives;
    } else if (verb == "receive") {
        std::size_t number = 0;
        DWORD message = 0;
        DWORD time = 0;
        words >> number >> std::hex >> message >> std::dec >> time;
        Deliver(machine, number, message, time);
    }
}

Machine &TheMachine()
{
    static Machine machine;
    static const bool told = [] {
        std::ifstream script(Variable("STANDIN_WINMM"));
        for (std::string line; std::getline(script, line);) {
            Command(machine, line);
        }
        return true;
    }();
    (void)told;
    return machine;
}

// One call: logged with its result; work gives that where no fault was laid.
template <class Work>
MMRESULT Call(const std::string &name, const std::string &about, Work work)
{
    Machine &machine = TheMachine();
    const std::lock_guard guard(machine.lock);
    const auto fault = machine.faults.find(name);
    const MMRESULT result = fault != machine.faults.end() && fault->second != 0 ? fault->second : work(machine);
    Note(machine, name + (about.empty() ? "" : " " + about) + " = " + std::to_string(result));
    return result;
}

std::string NumberOf(const void *handle)
{
    const Machine &machine = TheMachine();
    return IsOpen(machine, handle) ? std::to_string(static_cast<const Open *>(handle)->number) : "?";
}

// Of an open device: work is asked where the handle is good and the device is there.
template <class Work>
MMRESULT CallOn(const std::string &name, void *handle, const std::string &about, Work work)
{
    return Call(name, NumberOf(handle) + (about.empty() ? "" : " " + about), [&](Machine &machine) -> MMRESULT {
        if (!IsOpen(machine, handle)) {
            return MMSYSERR_INVALHANDLE;
        }
        Open &open = *static_cast<Open *>(handle);
        return DeviceOf(machine, open).pulled ? kGone : work(machine, open);
    });
}

template <class Caps>
MMRESULT FillCaps(const std::string &name, std::vector<Device> Machine::*devices, UINT_PTR number, Caps *caps, UINT size)
{
    return Call(name, std::to_string(static_cast<INT_PTR>(number)), [&](Machine &machine) -> MMRESULT {
        const std::vector<Device> &there = machine.*devices;
        Caps about{};
        if (number == MIDI_MAPPER || number == static_cast<UINT_PTR>(-1)) {
            std::wcscpy(about.szPname, L"MIDI Mapper");
        } else if (number >= there.size()) {
            return MMSYSERR_BADDEVICEID;
        } else if (there[number].pulled) {
            return kGone;
        } else {
            std::copy_n(there[number].name.begin(), std::min<std::size_t>(there[number].name.size(), MAXPNAMELEN - 1), about.szPname);
        }
        std::memcpy(caps, &about, std::min<std::size_t>(size, sizeof(about)));
        return MMSYSERR_NOERROR;
    });
}

MMRESULT OpenDevice(Machine &machine, Open open, Open *&opened)
{
    std::vector<Device> &devices = open.output ? machine.outs : machine.ins;
    if (open.number >= devices.size()) {
        return MMSYSERR_BADDEVICEID;
    }
    if (devices[open.number].pulled) {
        return kGone;
    }
    if (devices[open.number].inUse) {
        return MMSYSERR_ALLOCATED;
    }
    devices[open.number].inUse = true;
    opened = &machine.opened.emplace_back(open);
    machine.open.push_back(opened);
    return MMSYSERR_NOERROR;
}

MMRESULT CloseDevice(Machine &machine, void *handle)
{
    if (!IsOpen(machine, handle)) {
        return MMSYSERR_INVALHANDLE;
    }
    DeviceOf(machine, *static_cast<Open *>(handle)).inUse = false;
    std::erase(machine.open, handle);
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
