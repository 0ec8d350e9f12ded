#include "platform/rtmidi/DeviceNumbers.h"

#include "platform/rtmidi/ProductName.h"

#include <algorithm>
#include <iterator>

namespace velluto {

namespace {

constexpr std::string_view kBridge = "Midi-Bridge:";
constexpr std::string_view kThrough = "Midi Through";

bool IsFree(const std::vector<ListedPort> &devices, int number)
{
    return number >= static_cast<int>(devices.size()) || devices[static_cast<std::size_t>(number)].system == nullptr;
}

void Place(std::vector<ListedPort> &devices, int number, ListedPort port)
{
    const auto at = static_cast<std::size_t>(number);
    devices.resize(std::max(devices.size(), at + 1));
    devices[at] = std::move(port);
}

// Takes those out that have their number already, or come back to it with other numbers in their name.
void PassOverNumbered(std::vector<ListedPort> &devices, std::vector<ListedPort> &ports)
{
    std::vector<ListedPort *> away;
    for (ListedPort &device : devices) {
        if (std::erase(ports, device) == 0 && device.system != nullptr) {
            away.push_back(&device);
        }
    }
    for (ListedPort *device : away) {
        const auto back = std::ranges::find_if(ports, [&](const ListedPort &port) {
            return port.system == device->system && LastingName(port.name) == LastingName(device->name);
        });
        if (back != ports.end()) {
            *device = *back;
            ports.erase(back);
        }
    }
}

std::vector<bool> Taken(const std::vector<ListedPort> &devices)
{
    std::vector<bool> taken;
    std::ranges::transform(devices, std::back_inserter(taken), [](const ListedPort &device) { return device.system != nullptr; });
    return taken;
}

// Gives known ports their numbers, as far as these are free.
template <typename Same>
void PlaceKnown(std::vector<ListedPort> &devices, std::vector<ListedPort> &ports, std::span<const KnownDevice> known, Same same)
{
    for (const KnownDevice &device : known) {
        const auto port = std::ranges::find_if(ports, [&](const ListedPort &one) { return same(one.name, device.name); });
        if (port != ports.end() && IsFree(devices, device.number)) {
            Place(devices, device.number, std::move(*port));
            ports.erase(port);
        }
    }
}

} // namespace

std::string_view LastingName(std::string_view name)
{
    const auto withoutDigits = [](std::string_view text) { return text.substr(0, text.find_last_not_of("0123456789") + 1); };
    const std::string_view client = withoutDigits(name);
    if (client.size() == name.size() || !client.ends_with(':')) {
        return name;
    }
    const std::string_view numbered = client.substr(0, client.size() - 1);
    const std::string_view rest = withoutDigits(numbered);
    return rest.size() == numbered.size() || !rest.ends_with(' ') ? name : rest.substr(0, rest.size() - 1);
}

void LeaveOutBridged(std::vector<ListedPort> &ports)
{
    std::vector<std::string> ofAlsa; // the ports' own names
    for (const ListedPort &port : ports) {
        const std::string_view lasting = LastingName(port.name);
        const std::size_t colon = lasting.find(':');
        if (lasting.size() < port.name.size() && colon + 1 < lasting.size()) {
            ofAlsa.emplace_back(lasting.substr(colon + 1));
        }
    }
    std::erase_if(ports, [&](const ListedPort &port) {
        if (!port.name.starts_with(kBridge)) {
            return false;
        }
        const std::string bridged = port.name.substr(kBridge.size());
        return IsOwnPort(bridged) || std::ranges::any_of(ofAlsa, [&](const std::string &name) {
                   return bridged.ends_with(name) || bridged.find(name + " (") != std::string::npos;
               });
    });
}

void NumberPorts(std::vector<ListedPort> &devices, std::vector<ListedPort> ports, std::span<const KnownDevice> known)
{
    PassOverNumbered(devices, ports);
    PlaceKnown(devices, ports, known, [](std::string_view a, std::string_view b) { return a == b; });
    PlaceKnown(devices, ports, known, [](std::string_view a, std::string_view b) { return LastingName(a) == LastingName(b); });
    std::stable_partition(ports.begin(), ports.end(), [](const ListedPort &port) { return port.name.find(kThrough) == std::string::npos; });
    for (ListedPort &port : ports) {
        const int number = FreeNumber(Taken(devices), known);
        if (number >= 0) {
            Place(devices, number, std::move(port));
        }
    }
}

std::vector<std::string> NamesOf(const std::vector<ListedPort> &devices)
{
    std::vector<std::string> names;
    std::ranges::transform(devices, std::back_inserter(names), &ListedPort::name);
    return names;
}

} // namespace velluto
