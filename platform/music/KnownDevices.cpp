#include "platform/music/KnownDevices.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace velluto {

namespace {

constexpr std::uint64_t kLongestFile = 65536;
constexpr std::size_t kLongestName = 1024;
constexpr std::string_view kOut = "out ";
constexpr std::string_view kIn = "in ";
constexpr std::string_view kMarked = " * ";
constexpr std::string_view kUnmarked = " - ";

bool IsName(std::string_view name)
{
    const auto isControl = [](char c) { return (c >= 0 && c < ' ') || c == 0x7F; };
    return !name.empty() && name.size() <= kLongestName && std::ranges::none_of(name, isControl);
}

void TakeLine(std::vector<KnownDevice> &devices, std::string_view line)
{
    if (line.size() < 1 + kMarked.size()) {
        return;
    }
    const int number = line[0] - '0';
    const std::string_view mark = line.substr(1, kMarked.size());
    const std::string_view name = line.substr(1 + kMarked.size());
    const bool isTaken = std::ranges::find(devices, number, &KnownDevice::number) != devices.end();
    if (number >= 0 && number < kNumbersKept && !isTaken && (mark == kMarked || mark == kUnmarked) && IsName(name)) {
        devices.push_back({number, mark == kMarked, std::string(name)});
    }
}

void Append(std::string &text, std::string_view kind, const std::vector<KnownDevice> &devices)
{
    for (const KnownDevice &device : devices) {
        if (IsName(device.name)) {
            text.append(kind).append(std::to_string(device.number)).append(device.chosen ? kMarked : kUnmarked).append(device.name);
            text += '\n';
        }
    }
}

} // namespace

int FreeNumber(const std::vector<bool> &taken, std::span<const KnownDevice> known)
{
    int ofAbsent = -1;
    bool ofChosen = false;
    for (int number = 0; number < kNumbersKept; ++number) {
        if (static_cast<std::size_t>(number) < taken.size() && taken[static_cast<std::size_t>(number)]) {
            continue;
        }
        const auto absent = std::ranges::find(known, number, &KnownDevice::number);
        if (absent == known.end()) {
            return number;
        }
        ofChosen = ofChosen || absent->chosen;
        if (!absent->chosen && ofAbsent < 0) {
            ofAbsent = number;
        }
    }
    return ofAbsent >= 0 || ofChosen ? ofAbsent : static_cast<int>(taken.size());
}

std::vector<KnownDevice> NumbersToKeep(std::span<const std::string> names, std::span<const KnownDevice> known, int chosen)
{
    std::vector<KnownDevice> kept;
    for (int number = 0; number < kNumbersKept; ++number) {
        const auto at = static_cast<std::size_t>(number);
        const auto before = std::ranges::find(known, number, &KnownDevice::number);
        const bool wasChosen = before != known.end() && before->chosen;
        const bool isChosen = chosen >= 0 ? number == chosen : wasChosen;
        if (at < names.size() && !names[at].empty()) {
            kept.push_back({number, isChosen, names[at]});
        } else if (before != known.end()) {
            kept.push_back({number, isChosen, before->name});
        }
    }
    return kept;
}

KnownDevices ParseKnownDevices(std::string_view text)
{
    KnownDevices known;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(kOut)) {
            TakeLine(known.outs, line.substr(kOut.size()));
        } else if (line.starts_with(kIn)) {
            TakeLine(known.ins, line.substr(kIn.size()));
        }
    }
    std::ranges::sort(known.outs, {}, &KnownDevice::number);
    std::ranges::sort(known.ins, {}, &KnownDevice::number);
    return known;
}

std::string KnownDevicesText(const KnownDevices &known)
{
    std::string text;
    Append(text, kOut, known.outs);
    Append(text, kIn, known.ins);
    return text;
}

KnownDevices ReadKnownDevices(FileStore &files, const std::string &path)
{
    SharedBytes bytes;
    if (ReadWhole(files, path, {kLongestFile, {FileError::kOther}}, bytes).Failed()) {
        return {};
    }
    return ParseKnownDevices({reinterpret_cast<const char *>(bytes.View().data()), bytes.size()});
}

void WriteKnownDevices(const std::string &path, const KnownDevices &known)
{
    const std::filesystem::path place(std::u8string(path.begin(), path.end()));
    std::filesystem::path made = place;
    made += ".new";
    std::error_code error;
    std::filesystem::remove(made, error); // a pipe of that name would wait for its other end
    std::ofstream file(made, std::ios::binary | std::ios::trunc);
    file << KnownDevicesText(known);
    file.close();
    if (file) {
        std::filesystem::rename(made, place, error);
    }
    if (!file || error) {
        std::filesystem::remove(made, error);
    }
}

} // namespace velluto
