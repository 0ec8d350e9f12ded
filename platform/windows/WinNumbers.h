// Which device each of the program's numbers stands for. They are the system's own until a device comes or goes while the program runs:
// then the system's move up or down, and the program's stay. Used by WinMidi, once for outputs and once for inputs.
#pragma once

#include <string>
#include <vector>

namespace velluto {

// What the system lists, numbered from 0. The result codes are its own.
struct WinList {
    int (*count)() = nullptr;
    int (*name)(int systemNumber, std::string &name) = nullptr; // name is set only with success
};

class WinNumbers {
public:
    explicit WinNumbers(WinList list) : list_(list) {}

    // How many numbers there are; the first time as many as the system has devices.
    int Count();
    // The same after a look at all names: one that is new has the next number, one that is back its own, and none changes hands.
    int CountAgain();
    int Name(int number, std::string &name);
    // The system's number for the device, which may have moved; 68 where it has gone. A number that was never counted, as that of the
    // mapper, is the system's.
    int Find(int number, int &systemNumber);
    // The first device that is there; 0 where none is.
    int First();

private:
    struct Device {
        std::string name; // as the system first gave it; empty where it never did
        int systemNumber = 0;
    };

    [[nodiscard]] Device *Counted(int number);

    WinList list_;
    std::vector<Device> devices_; // by number
};

} // namespace velluto
