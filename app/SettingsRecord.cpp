#include "app/SettingsRecord.h"

#include "app/Catalogue.h"

#include <algorithm>
#include <limits>

namespace velluto {

namespace {

// Record 1.
namespace General {
constexpr std::size_t kMagic = 1;
constexpr std::size_t kMidiInDev = 19;
constexpr std::size_t kMidiOutDev = 20;
constexpr std::size_t kLastChannel = 23;
constexpr std::size_t kLingua = 25;
constexpr std::size_t kKeyboard = 30;
constexpr std::size_t kPlacements = 51;
constexpr std::size_t kChannelRoles = 485;
} // namespace General

enum class ReadAs { NotZero, ExactlyOne };

struct FlagField {
    std::size_t position;
    bool Settings::*value;
    ReadAs readAs;
};

constexpr std::array<FlagField, 5> kFlags{{
    {17, &Settings::ReservedFlag17, ReadAs::ExactlyOne},
    {18, &Settings::PlayerPanelOpen, ReadAs::NotZero},
    {21, &Settings::ThruOn, ReadAs::NotZero},
    {22, &Settings::PcgUserAssigned, ReadAs::NotZero},
    {27, &Settings::StatusBarOn, ReadAs::NotZero},
}};

constexpr std::size_t kPlacementLength = 14;
constexpr int kPositionOffset = 16000; // stored positions are this much higher
constexpr int kHighestTableDevice = 7;

// The two bytes wrap, so every one of their values comes back as it went.
std::int16_t Position(std::uint16_t stored)
{
    return static_cast<std::int16_t>(static_cast<std::uint16_t>(stored - kPositionOffset));
}

std::uint16_t StoredPosition(std::int16_t position)
{
    return static_cast<std::uint16_t>(position + kPositionOffset);
}

// A size that the windows never produce takes the largest value that a record can hold.
std::int16_t Length(std::uint16_t stored)
{
    return static_cast<std::int16_t>(std::min<std::uint16_t>(stored, std::numeric_limits<std::int16_t>::max()));
}

int Device(std::uint8_t stored)
{
    return stored <= kHighestTableDevice ? stored : kNoMidiDevice;
}

// The two ways over the fields of a record, each at its position. The functions below tell once where each field stands.
struct Taking {
    const SettingsRecord &record;
    void Path(std::size_t at, PathText &path) const { path.Set(record.Text(at, kPathLength)); }
    void Byte(std::size_t at, std::uint8_t &field) const { field = record.Byte(at); }
    void Place(std::size_t at, std::int16_t &field) const { field = Position(record.Word(at)); }
    void LimitedPlace(std::size_t at, std::int16_t &field) const { Place(at, field); }
    void Size(std::size_t at, std::uint16_t &field) const { field = record.Word(at); }
    void Size(std::size_t at, std::int16_t &field) const { field = Length(record.Word(at)); }
};

struct Putting {
    SettingsRecord &record;
    void Path(std::size_t at, const PathText &path) const { record.PutText(at, kPathLength, path.All()); }
    void Byte(std::size_t at, std::uint8_t field) const { record.PutByte(at, field); }
    void Place(std::size_t at, std::int16_t field) const { record.PutWord(at, StoredPosition(field)); }
    void LimitedPlace(std::size_t at, std::int16_t field) const
    {
        Place(at, std::clamp<std::int16_t>(field, -kPositionOffset, kPositionOffset));
    }
    template <class Field>
    void Size(std::size_t at, Field field) const
    {
        record.PutWord(at, static_cast<std::uint16_t>(field));
    }
};

// at is the position of the entry's first byte.
template <class Way, class Placement>
void PlacementFields(Way way, std::size_t at, Placement &placement)
{
    way.Place(at, placement.Top);
    way.Place(at + 2, placement.Left);
    way.Size(at + 4, placement.Width);
    way.Size(at + 6, placement.Height);
    way.Byte(at + 8, placement.State);
    way.Byte(at + 9, placement.Role);
    way.Size(at + 10, placement.MinWidth);
    way.Size(at + 12, placement.MinHeight);
}

// What documents and recent files have alike.
template <class Way, class Record>
void PathAndPlace(Way way, Record &entry)
{
    way.Path(1, entry.Path);
    way.LimitedPlace(235, entry.Top);
    way.LimitedPlace(237, entry.Left);
    way.Size(239, entry.Width);
    way.Size(241, entry.Height);
}

template <class Way, class Record>
void DocumentFields(Way way, Record &document)
{
    PathAndPlace(way, document);
    way.Byte(243, document.State);
    way.Byte(244, document.Role);
    way.Byte(245, document.Tag6);
    way.Byte(246, document.Tag7);
    way.Size(247, document.MinWidth);
    way.Size(249, document.MinHeight);
}

template <class Way, class Record>
void RecentFields(Way way, Record &recent)
{
    PathAndPlace(way, recent);
    way.Byte(245, recent.Flag);
    way.Byte(246, recent.Kind);
}

// Record 1 but for its name and its flags.
template <class Way, class Kept>
void GeneralFields(Way way, Kept &settings)
{
    way.Byte(General::kLingua, settings.Lingua);
    way.Byte(General::kLastChannel, settings.LastChannel);
    for (std::size_t i = 0; i < KeyboardByte::Split; ++i) {
        way.Byte(General::kKeyboard + i, settings.KeyboardRecord[i]);
    }
    for (std::size_t k = 0; k < settings.PlacementTable.size(); ++k) {
        PlacementFields(way, General::kPlacements + k * kPlacementLength, settings.PlacementTable[k]);
    }
    for (std::size_t i = 0; i < settings.ChannelRole.size(); ++i) {
        way.Byte(General::kChannelRoles + i, settings.ChannelRole[i]);
    }
}

} // namespace

std::uint16_t SettingsRecord::Word(std::size_t position) const
{
    return static_cast<std::uint16_t>(Byte(position) << 8 | Byte(position + 1));
}

void SettingsRecord::PutWord(std::size_t position, std::uint16_t value)
{
    PutByte(position, static_cast<std::uint8_t>(value >> 8));
    PutByte(position + 1, static_cast<std::uint8_t>(value & 0xFF));
}

std::string SettingsRecord::Text(std::size_t position, std::size_t count) const
{
    const auto part = Bytes().subspan(position - 1, count);
    return {part.begin(), part.end()};
}

void SettingsRecord::PutText(std::size_t position, std::size_t count, std::string_view text)
{
    std::copy_n(text.begin(), std::min(count, text.size()), Bytes().subspan(position - 1, count).begin());
}

bool HasMagic(const SettingsRecord &record)
{
    return record.Text(General::kMagic, kProgramName.size()) == kProgramName;
}

void PutMagic(SettingsRecord &record)
{
    record.PutText(General::kMagic, kProgramName.size(), kProgramName);
}

void PutLanguage(SettingsRecord &record, std::uint8_t lingua)
{
    record.PutByte(General::kLingua, lingua);
}

void TakeGeneral(const SettingsRecord &record, Settings &settings)
{
    for (const FlagField &flag : kFlags) {
        const std::uint8_t stored = record.Byte(flag.position);
        settings.*flag.value = flag.readAs == ReadAs::ExactlyOne ? stored == 1 : stored != 0;
    }
    GeneralFields(Taking{record}, settings);
    if (settings.Lingua != Language::English) {
        settings.Lingua = Language::Italian;
    }
    settings.MidiOutDev = Device(record.Byte(General::kMidiOutDev));
    settings.MidiInDev = Device(record.Byte(General::kMidiInDev));
}

void PutGeneral(SettingsRecord &record, const Settings &settings, bool statusBarChecked)
{
    for (const FlagField &flag : kFlags) {
        const bool on = flag.value == &Settings::StatusBarOn ? statusBarChecked : settings.*flag.value;
        record.PutByte(flag.position, on ? 1 : 0);
    }
    GeneralFields(Putting{record}, settings);
    record.PutByte(General::kMidiOutDev, static_cast<std::uint8_t>(settings.MidiOutDev & 0xFF));
    record.PutByte(General::kMidiInDev, static_cast<std::uint8_t>(settings.MidiInDev & 0xFF));
}

void TakeDocument(const SettingsRecord &record, DocRecord &document)
{
    DocumentFields(Taking{record}, document);
}

SettingsRecord DocumentBytes(DocRecord document)
{
    document.Role = 0;
    document.Tag7 = 0;
    SettingsRecord record('\0');
    DocumentFields(Putting{record}, document);
    return record;
}

void TakeRecent(const SettingsRecord &record, RecentRecord &recent)
{
    RecentFields(Taking{record}, recent);
}

SettingsRecord RecentBytes(const RecentRecord &recent)
{
    SettingsRecord record('\0');
    RecentFields(Putting{record}, recent);
    return record;
}

} // namespace velluto
