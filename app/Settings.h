// All that survives between runs, as the program holds it in memory. SettingsFile reads and writes it; every room
// reads and changes it during the run.
#pragma once

#include "app/FixedText.h"
#include "app/Language.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace velluto {

inline constexpr int kNoMidiDevice = 99;

// The parts of the instrument that a MIDI channel can serve, by their numbers.
inline constexpr int kRoleCount = 15;
inline constexpr std::array<std::string_view, kRoleCount> kRoleNames = {"OFF",  "LOWR", "UP.1", "UP.2", "UP.3", "DRUM",   "PERC",  "BASS",
                                                                        "ACC1", "ACC2", "ACC3", "ACC4", "ACC5", "GLOBAL", "CONTRL"};
inline constexpr int kUserAssignedRolePrograms = 2; // "UP.1"
inline constexpr int kUserAssignedRoleControl = 14; // "CONTRL"

// What the record of a child window says of it.
namespace StoredState {
inline constexpr std::uint8_t Closed = 0;
inline constexpr std::uint8_t Normal = 1;
inline constexpr std::uint8_t Minimised = 2;
} // namespace StoredState

// Placement of the frame or of a window without a document. Geometry in twips.
struct WindowPlacement {
    std::int16_t Top = 0;
    std::int16_t Left = 0;
    std::uint16_t Width = 0;
    std::uint16_t Height = 0;
    std::uint8_t State = StoredState::Closed; // the frame's holds the number of its WindowState
    std::uint8_t Role = 2;
    std::uint16_t MinWidth = 0; // 0: never laid out
    std::uint16_t MinHeight = 0;
};

// The record of a document slot. Geometry in twips.
struct DocRecord {
    PathText Path;
    std::uint8_t Role = 0;
    std::uint8_t State = StoredState::Closed;
    std::int16_t Left = 0;
    std::int16_t Top = 0;
    std::int16_t Width = 0;
    std::int16_t Height = 0;
    std::uint8_t Tag6 = 0;
    std::uint8_t Tag7 = 0;
    std::int16_t MinWidth = 0; // 0: never placed
    std::int16_t MinHeight = 0;
};

struct RecentRecord {
    PathText Path;
    std::int16_t Top = 0;
    std::int16_t Left = 0;
    std::int16_t Width = 0;
    std::int16_t Height = 0;
    std::uint8_t Flag = 0;
    std::uint8_t Kind = 0;
};

// Entries of PlacementTable, counted from 0.
namespace PlacementEntry {
inline constexpr int Frame = 0;
inline constexpr int Keyboard = 7;
inline constexpr int Monitor = 8;
inline constexpr int Guide = 10;
inline constexpr int Notebook = 11;
inline constexpr int About = 12;
inline constexpr int Player = 16;
inline constexpr int ChannelSetup = 28;
} // namespace PlacementEntry

// Bytes of the KeyboardRecord, and what a first run has in them.
namespace KeyboardByte {
inline constexpr std::size_t Channel = 0;
inline constexpr std::size_t ClickKey = 1;
inline constexpr std::size_t HoldNote = 2;
inline constexpr std::size_t Shift = 3;
inline constexpr std::size_t FirstSlider = 4;
inline constexpr std::size_t Split = 15; // kept in memory only, and read by nobody
} // namespace KeyboardByte
inline constexpr std::array<std::uint8_t, 16> kKeyboardDefaults{0, 1, 0, 2, 100, 64, 64, 64, 0, 0, 64, 0, 0, 0, 0, 0};

struct Settings {
    // A fresh record holds the values of a first run, in Italian; the factory Performance banks follow by
    // AssignFactoryBanks.
    Settings();

    std::uint8_t Lingua = Language::Italian;
    bool ReservedFlag17 = false;
    bool PlayerPanelOpen = false;
    bool ThruOn = false;
    bool PcgUserAssigned = false;
    bool StatusBarOn = true;
    int MidiInDev = kNoMidiDevice;
    int MidiOutDev = kNoMidiDevice;
    std::uint8_t LastChannel = 0; // 0-based; 99 when no channel was found
    std::array<std::uint8_t, 16> KeyboardRecord = kKeyboardDefaults;
    std::array<WindowPlacement, 29> PlacementTable{}; // index 0 to 28
    std::array<std::uint8_t, 16> ChannelRole{};       // entry c - 1 for MIDI channel c
    std::array<DocRecord, 13> PcgDocTable{};          // 1 to 12
    std::array<DocRecord, 21> StyDocTable{};          // 0 to 20
    std::array<DocRecord, 29> PrfDocTable{};          // 0 to 28
    std::array<RecentRecord, 17> RecentTable{};       // 1 to 16, newest first
    std::string LastDir;
    std::string PlayerDir;
    std::string PlayerName;
    std::string PlayerFile;
};

// Ties the factory Performance files to entries 9 to 18 of PrfDocTable, as a first run does. firstBank is the path of
// "Velluto-Bank01.prf"; the others differ in its two digits. An entry that cannot hold its path stays empty.
void AssignFactoryBanks(Settings &settings, const std::string &firstBank);

} // namespace velluto
