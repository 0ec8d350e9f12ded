// The machine behind the winmm.dll on paper: MIDI devices that fail when told to, and a log of what was asked of them. The dll lies beside
// the program under test, which takes it for the system's own where WINEDLLOVERRIDES=winmm=n says so.
//
// It is told what to be by StandinWinmm, or by a file of the same commands, one a line, that the variable STANDIN_WINMM names; the
// log then goes on to the file of STANDIN_WINMM_LOG as well. Lines that are put to the file's end later are obeyed at the next call.
//
//     out NAME, in NAME          one more device; names are UTF-8
//     insert out N NAME          one more in the midst of them; that number and those above it move up
//     remove out N, remove in N  the device goes as by pull, and the numbers above it move down
//     place out N TEXT, place in N TEXT  the driver tells by which interface the device is reached; without this it does not
//     reset                      no devices, no faults, an empty log
//     fail CALL CODE             from now on the call gives this code and does nothing; with CODE 0 it works again
//     pull out N, pull in N      the device has gone: what is open on it answers 68 but to its close
//     plug out N, plug in N      it is back
//     hold 1, hold 0             exclusive messages are read only when the output is reset, or at once
//     receive N MESSAGE TIME     the input's thread delivers a packed message, hexadecimal, at that millisecond
#pragma once

#include "Winmm.h"

#include <deque>
#include <ios>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace winmm {

inline constexpr MMRESULT kGone = MIDIERR_NODEVICE;

struct Device {
    std::wstring name;
    std::wstring place; // empty where its driver tells none
    bool pulled = false;
    bool inUse = false;
};

using Devices = std::vector<std::shared_ptr<Device>>;

struct Open {
    std::size_t number = 0; // as it was opened
    std::shared_ptr<Device> device = nullptr;
    bool output = true;
    bool started = false;
    Open *thru = nullptr; // the output that an input is connected to
    void(CALLBACK *proc)(HMIDIIN, UINT, DWORD_PTR, DWORD_PTR, DWORD_PTR) = nullptr;
    DWORD_PTR instance = 0;
};

struct Machine {
    std::recursive_mutex lock;
    Devices outs;
    Devices ins;
    std::map<std::string, MMRESULT> faults;
    std::deque<Open> opened; // never moves, so that a handle is an address
    std::vector<Open *> open;
    bool holdsExclusives = false;
    std::vector<MIDIHDR *> held;
    std::streamoff obeyed = 0; // bytes of the file of commands
    std::string log;
    std::string answer;
};

Machine &TheMachine();
void Command(Machine &machine, const std::string &line);
void Note(Machine &machine, const std::string &line); // in the log
std::string Hexadecimal(DWORD number);
bool IsOpen(const Machine &machine, const void *handle);
std::string NumberOf(const void *handle); // of its device

// One call: logged with its result; work gives that where no fault was laid.
template <class Work>
MMRESULT Call(const std::string &name, const std::string &about, Work work)
{
    Machine &machine = TheMachine();
    const std::lock_guard guard(machine.lock);
    const auto fault = machine.faults.find(name);
    const MMRESULT result = fault != machine.faults.end() && fault->second != 0 ? fault->second : static_cast<MMRESULT>(work(machine));
    Note(machine, name + (about.empty() ? "" : " " + about) + " = " + std::to_string(result));
    return result;
}

// Of an open device: work is asked where the handle is good and the device is there.
template <class Work>
MMRESULT CallOn(const std::string &name, void *handle, const std::string &about, Work work)
{
    const std::lock_guard guard(TheMachine().lock);
    return Call(name, NumberOf(handle) + (about.empty() ? "" : " " + about), [&](Machine &machine) -> MMRESULT {
        if (!IsOpen(machine, handle)) {
            return MMSYSERR_INVALHANDLE;
        }
        Open &open = *static_cast<Open *>(handle);
        return open.device->pulled ? kGone : static_cast<MMRESULT>(work(machine, open));
    });
}

} // namespace winmm
