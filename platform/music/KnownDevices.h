// The numbers that devices had, kept in a small file beside the settings, which know a device by its number alone. A line for each
// device, such as "out 2 * PA80:PA80 MIDI 1 24:0"; the star marks the output that was chosen last. Used by MachineMidi and WinMidi.
#pragma once

#include "platform/FileStore.h"

#include <span>
#include <string_view>
#include <vector>

namespace velluto {

// Numbers from 0 that are kept, as many as the program has places for.
inline constexpr int kNumbersKept = 7;

struct KnownDevice {
    int number = 0;
    bool chosen = false;
    std::string name;
    bool operator==(const KnownDevice &) const = default;
};

// By number, each of which is there once at most.
struct KnownDevices {
    std::vector<KnownDevice> outs;
    std::vector<KnownDevice> ins;
    bool operator==(const KnownDevices &) const = default;
};

// For a device that nobody knows, the first number that is not taken: those of known devices that are not there last, and that of a chosen
// one never. None (-1) where that is all that is left of those that are kept: what lies beyond would be seen by nobody.
int FreeNumber(const std::vector<bool> &taken, std::span<const KnownDevice> known);

// What is to be kept of the names by number, "" where nobody has one; those of the absent stay. The mark goes to that number; where it is
// none, it stays where it was.
std::vector<KnownDevice> NumbersToKeep(std::span<const std::string> names, std::span<const KnownDevice> known, int chosen);

// What is no such line is passed over, and so is all but the first of two with one number.
KnownDevices ParseKnownDevices(std::string_view text);
std::string KnownDevicesText(const KnownDevices &known);

// Nothing is known where the file is missing, foreign or cannot be read.
KnownDevices ReadKnownDevices(FileStore &files, const std::string &path);
// In one step: the file of before stays where that fails, without a word.
void WriteKnownDevices(const std::string &path, const KnownDevices &known);

} // namespace velluto
