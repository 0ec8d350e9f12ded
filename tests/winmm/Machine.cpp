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

void Insert(Devices &devices, std::size_t at, const std::string &name)
{
    devices.insert(devices.begin() + static_cast<std::ptrdiff_t>(at), std::make_shared<Device>(Device{.name = Wide(name), .place = {}}));
}

void Remove(Devices &devices, std::size_t at)
{
    devices.at(at)->pulled = true;
    devices.erase(devices.begin() + static_cast<std::ptrdiff_t>(at));
}

// The input's own thread, as a driver has one.
void Deliver(Machine &machine, std::size_t number, DWORD message, DWORD time)
{
    const std::shared_ptr<Device> &device = machine.ins.at(number);
    for (Open *open : std::vector<Open *>(machine.open)) {
        if (open->device == device && open->started) {
            std::thread([=] { open->proc(reinterpret_cast<HMIDIIN>(open), MIM_DATA, open->instance, message, time); }).join();
            if (open->thru != nullptr) {
                Note(machine, "thru " + std::to_string(open->thru->number) + " " + Hexadecimal(message));
            }
        }
    }
}

// What has come to the end of the file of commands, by whole lines.
void ObeyFile(Machine &machine)
{
    static const std::string path = Variable("STANDIN_WINMM");
    if (path.empty()) {
        return;
    }
    std::ifstream file(path, std::ios::binary);
    file.seekg(machine.obeyed);
    for (std::string line; std::getline(file, line) && !file.eof();) {
        machine.obeyed = file.tellg();
        Command(machine, line);
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

void Command(Machine &machine, const std::string &line)
{
    std::istringstream words(line);
    std::string verb;
    std::string what;
    words >> verb;
    if (verb == "out" || verb == "in") {
        Devices &devices = verb == "out" ? machine.outs : machine.ins;
        std::getline(words >> std::ws, what);
        Insert(devices, devices.size(), what);
    } else if (verb == "insert" || verb == "remove") {
        std::size_t number = 0;
        std::string name;
        words >> what >> number;
        Devices &devices = what == "out" ? machine.outs : machine.ins;
        if (verb == "remove") {
            Remove(devices, number);
        } else {
            std::getline(words >> std::ws, name);
            Insert(devices, number, name);
        }
    } else if (verb == "place") {
        std::size_t number = 0;
        std::string place;
        words >> what >> number;
        std::getline(words >> std::ws, place);
        (what == "out" ? machine.outs : machine.ins).at(number)->place = Wide(place);
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
        (what == "out" ? machine.outs : machine.ins).at(number)->pulled = verb == "pull";
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
    const std::lock_guard guard(machine.lock);
    ObeyFile(machine);
    return machine;
}

std::string NumberOf(const void *handle)
{
    const Machine &machine = TheMachine();
    return IsOpen(machine, handle) ? std::to_string(static_cast<const Open *>(handle)->number) : "?";
}

} // namespace winmm
