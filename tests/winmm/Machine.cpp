#include "Machine.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

namespace winmm {

namespace {

std::string Variable(const char *name)
{
    const char *value = std::getenv(name);
    return value != nullptr ? value : "";
}

std::wstring Wide(const std::string &utf8)
{
    std::wstring wide(utf8.size() + 1, L'\0');
    wide.resize(static_cast<std::size_t>(
                    std::max(1, ::MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide.data(), static_cast<int>(wide.size())))) -
                1);
    return wide;
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

} // namespace

void Note(Machine &machine, const std::string &line)
{
    machine.log += line + "\n";
    if (const std::string path = Variable("STANDIN_WINMM_LOG"); !path.empty()) {
        std::ofstream(path, std::ios::app | std::ios::binary) << line << '\n';
    }
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

std::string NumberOf(const void *handle)
{
    const Machine &machine = TheMachine();
    return IsOpen(machine, handle) ? std::to_string(static_cast<const Open *>(handle)->number) : "?";
}

} // namespace winmm
