// Which device each of the program's numbers stands for. Where nothing is known of devices the numbers are the system's own; a known one
// has its number again. When devices come or go the system's move up or down, and the program's stay. Used by WinMidi, once for outputs
// and once for inputs.
#pragma once

#include "platform/music/KnownDevices.h"

#include <string>
#include <utility>
#include <vector>

namespace velluto {

// What the system says of a device.
struct WinDevice {
    std::string name;
    std::string place; // the interface that its driver is reached by, which tells it from others of its name; empty where nobody says
    bool operator==(const WinDevice &) const = default;
};

// What the system lists, numbered from 0. The result codes are its own.
struct WinList {
    int (*count)() = nullptr;
    int (*look)(int systemNumber, WinDevice &device) = nullptr; // device is set only with success
};

class WinNumbers {
public:
    explicit WinNumbers(WinList list, std::vector<KnownDevice> known = {}) : list_(list), known_(std::move(known)) {}

    // How many numbers there are, after a look at all devices: one that is new has the next free number, one that is back its own, and
    // none changes hands. Of those with one name each is told by its place; where that is new too, and between runs, the first comes first.
    int Count();
    int Name(int number, std::string &name);
    // The system's number for the device, which may have moved; 68 where it has gone. The mapper, below 0, is the system's own, and so are
    // all numbers before the first count; afterwards one that was not counted is given one that the system does not have.
    int Find(int number, int &systemNumber);
    // The first device that is there; 0 where none is.
    int First();
    // What the next run has to know. chosen: a number, or none below 0.
    [[nodiscard]] std::vector<KnownDevice> ToKeep(int chosen) const;

private:
    struct Device {
        WinDevice told; // what the system last said of it; without a name where it never did, or where nobody has the number
        int systemNumber = 0;
    };
    struct Listed;

    [[nodiscard]] Device *Counted(int number);
    [[nodiscard]] int Uncounted(int number) const;
    void FollowNamed(std::vector<Listed> &there);
    void FollowNameless(std::vector<Listed> &there);
    void PlaceKnown(std::vector<Listed> &there);
    void PlaceNew(const std::vector<Listed> &there);
    void Place(int number, const Listed &listed);
    [[nodiscard]] std::vector<bool> Taken() const;

    WinList list_;
    std::vector<KnownDevice> known_;
    std::vector<Device> devices_; // by number
};

} // namespace velluto
