#include "platform/windows/WinNumbers.h"

#include "platform/MidiDevices.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kAway = -1; // as a system's number: the device is not there

} // namespace

WinNumbers::Device *WinNumbers::Counted(int number)
{
    return number >= 0 && number < static_cast<int>(devices_.size()) ? &devices_[static_cast<std::size_t>(number)] : nullptr;
}

int WinNumbers::Count()
{
    if (!devices_.empty()) {
        return CountAgain();
    }
    for (int number = 0, count = list_.count(); number < count; ++number) {
        devices_.push_back({"", number});
    }
    return static_cast<int>(devices_.size());
}

int WinNumbers::CountAgain()
{
    std::vector<std::string> names(static_cast<std::size_t>(list_.count())); // of those whose number is still to be found
    for (std::size_t at = 0; at < names.size(); ++at) {
        (void)list_.name(static_cast<int>(at), names[at]);
    }
    for (Device &device : devices_) {
        if (device.name.empty()) {
            continue;
        }
        const auto found = std::ranges::find(names, device.name);
        device.systemNumber = found != names.end() ? static_cast<int>(found - names.begin()) : kAway;
        if (found != names.end()) {
            found->clear();
        }
    }
    for (std::size_t at = 0; at < names.size(); ++at) {
        if (names[at].empty()) {
            continue;
        }
        if (at < devices_.size() && devices_[at].name.empty()) {
            devices_[at].name = names[at];
        } else {
            devices_.push_back({names[at], static_cast<int>(at)});
        }
    }
    return static_cast<int>(devices_.size());
}

int WinNumbers::Name(int number, std::string &name)
{
    Device *device = Counted(number);
    if (device != nullptr && device->systemNumber == kAway) {
        return MidiCode::kNoDevice;
    }
    const int result = list_.name(device != nullptr ? device->systemNumber : number, name);
    if (device != nullptr && device->name.empty() && result == MidiCode::kSuccess) {
        device->name = name;
    }
    return result;
}

int WinNumbers::Find(int number, int &systemNumber)
{
    const Device *device = Counted(number);
    systemNumber = device != nullptr ? device->systemNumber : number;
    if (device == nullptr || device->name.empty()) {
        return MidiCode::kSuccess;
    }
    std::string name;
    if (systemNumber == kAway || list_.name(systemNumber, name) != MidiCode::kSuccess || name != device->name) {
        CountAgain();
        systemNumber = Counted(number)->systemNumber;
    }
    return systemNumber != kAway ? MidiCode::kSuccess : MidiCode::kNoDevice;
}

int WinNumbers::First()
{
    int systemNumber = 0;
    for (int number = 0; number < static_cast<int>(devices_.size()); ++number) {
        if (Find(number, systemNumber) == MidiCode::kSuccess) {
            return number;
        }
    }
    return 0;
}

} // namespace velluto
