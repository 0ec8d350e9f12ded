#include "platform/windows/WinNumbers.h"

#include "platform/MidiDevices.h"

#include <algorithm>
#include <iterator>

namespace velluto {

namespace {

constexpr int kAway = -1; // as a system's number: the device is not there, or nobody has the number

} // namespace

// A device of the system's whose number is still to be found.
struct WinNumbers::Listed {
    WinDevice told; // without a name where the system said nothing
    int systemNumber = 0;
};

WinNumbers::Device *WinNumbers::Counted(int number)
{
    return number >= 0 && number < static_cast<int>(devices_.size()) ? &devices_[static_cast<std::size_t>(number)] : nullptr;
}

int WinNumbers::Uncounted(int number) const
{
    return number < 0 || devices_.empty() ? number : std::max(number, list_.count());
}

int WinNumbers::Count()
{
    const bool isFirst = devices_.empty();
    std::vector<Listed> there;
    for (int at = 0, count = list_.count(); at < count; ++at) {
        Listed &listed = there.emplace_back(Listed{.told = {}, .systemNumber = at});
        (void)list_.look(at, listed.told);
    }
    FollowNamed(there);
    PlaceKnown(there);
    FollowNameless(there);
    if (!isFirst) { // one that has said nothing so far has no number yet
        std::erase_if(there, [](const Listed &listed) { return listed.told.name.empty(); });
    }
    PlaceNew(there);
    return static_cast<int>(devices_.size());
}

// Finds those again that have a number: each itself, and then, where there is none that is the same, one of its name.
void WinNumbers::FollowNamed(std::vector<Listed> &there)
{
    for (Device &device : devices_) {
        if (!device.told.name.empty()) {
            device.systemNumber = kAway;
        }
    }
    const auto follow = [&](auto same) {
        for (Device &device : devices_) {
            if (device.told.name.empty() || device.systemNumber != kAway) {
                continue;
            }
            const auto found = std::ranges::find_if(there, [&](const Listed &listed) { return same(listed.told, device.told); });
            if (found != there.end()) {
                device = {.told = std::move(found->told), .systemNumber = found->systemNumber};
                there.erase(found);
            }
        }
    };
    follow([](const WinDevice &a, const WinDevice &b) { return a == b; });
    follow([](const WinDevice &a, const WinDevice &b) { return a.name == b.name; });
}

// One that has said nothing of itself is known by the system's number alone, until it does or another has that.
void WinNumbers::FollowNameless(std::vector<Listed> &there)
{
    for (Device &device : devices_) {
        if (!device.told.name.empty() || device.systemNumber == kAway) {
            continue;
        }
        const auto found = std::ranges::find(there, device.systemNumber, &Listed::systemNumber);
        if (found == there.end()) {
            device.systemNumber = kAway;
        } else {
            device.told = std::move(found->told);
            there.erase(found);
        }
    }
}

void WinNumbers::PlaceKnown(std::vector<Listed> &there)
{
    for (const KnownDevice &known : known_) {
        const auto found = std::ranges::find_if(there, [&](const Listed &listed) { return listed.told.name == known.name; });
        const Device *const device = Counted(known.number);
        if (found != there.end() && (device == nullptr || (device->told.name.empty() && device->systemNumber == kAway))) {
            Place(known.number, *found);
            there.erase(found);
        }
    }
}

void WinNumbers::PlaceNew(const std::vector<Listed> &there)
{
    for (const Listed &listed : there) {
        const int number = FreeNumber(Taken(), known_);
        if (number >= 0) {
            Place(number, listed);
        }
    }
}

void WinNumbers::Place(int number, const Listed &listed)
{
    const auto at = static_cast<std::size_t>(number);
    devices_.resize(std::max(devices_.size(), at + 1), Device{.told = {}, .systemNumber = kAway});
    devices_[at] = {.told = listed.told, .systemNumber = listed.systemNumber};
}

std::vector<bool> WinNumbers::Taken() const
{
    std::vector<bool> taken;
    std::ranges::transform(devices_, std::back_inserter(taken),
                           [](const Device &device) { return !device.told.name.empty() || device.systemNumber != kAway; });
    return taken;
}

int WinNumbers::Name(int number, std::string &name)
{
    const Device *device = Counted(number);
    if (device != nullptr && device->systemNumber == kAway) {
        return MidiCode::kNoDevice;
    }
    WinDevice told;
    const int result = list_.look(device != nullptr ? device->systemNumber : Uncounted(number), told);
    if (result == MidiCode::kSuccess) {
        name = told.name;
    }
    return result;
}

int WinNumbers::Find(int number, int &systemNumber)
{
    const Device *device = Counted(number);
    if (device == nullptr) {
        systemNumber = Uncounted(number);
        return MidiCode::kSuccess;
    }
    WinDevice told; // nothing where the system says nothing
    if (device->systemNumber != kAway) {
        (void)list_.look(device->systemNumber, told);
    }
    if (device->systemNumber == kAway || told != device->told) {
        Count();
    }
    systemNumber = Counted(number)->systemNumber;
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

std::vector<KnownDevice> WinNumbers::ToKeep(int chosen) const
{
    std::vector<std::string> names;
    std::ranges::transform(devices_, std::back_inserter(names), [](const Device &device) { return device.told.name; });
    return NumbersToKeep(names, known_, chosen);
}

} // namespace velluto
