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

// An entry of the placements, by offset from its first byte.
namespace PlacementAt {
constexpr std::size_t kTop = 0;
constexpr std::size_t kLeft = 2;
constexpr std::size_t kWidth = 4;
constexpr std::size_t kHeight = 6;
constexpr std::size_t kState = 8;
constexpr std::size_t kRole = 9;
constexpr std::size_t kMinWidth = 10;
constexpr std::size_t kMinHeight = 12;
constexpr std::size_t kLength = 14;
} // namespace PlacementAt

// The record of a document slot; the first five fields are those of a recent file too.
namespace DocumentAt {
constexpr std::size_t kPath = 1;
constexpr std::size_t kTop = 235;
constexpr std::size_t kLeft = 237;
constexpr std::size_t kWidth = 239;
constexpr std::size_t kHeight = 241;
constexpr std::size_t kState = 243;
constexpr std::size_t kRole = 244;
constexpr std::size_t kTag6 = 245;
constexpr std::size_t kTag7 = 246;
constexpr std::size_t kMinWidth = 247;
constexpr std::size_t kMinHeight = 249;
} // namespace DocumentAt

namespace RecentAt {
constexpr std::size_t kFlag = 245;
constexpr std::size_t kKind = 246;
} // namespace RecentAt

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

std::uint16_t StoredLimitedPosition(std::int16_t position)
{
    return StoredPosition(std::clamp<std::int16_t>(position, -kPositionOffset, kPositionOffset));
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

void TakePlacement(const SettingsRecord &record, std::size_t at, WindowPlacement &placement)
{
    placement.Top = Position(record.Word(at + PlacementAt::kTop));
    placement.Left = Position(record.Word(at + PlacementAt::kLeft));
    placement.Width = record.Word(at + PlacementAt::kWidth);
    placement.Height = record.Word(at + PlacementAt::kHeight);
    placement.State = record.Byte(at + PlacementAt::kState);
    placement.Role = record.Byte(at + PlacementAt::kRole);
    placement.MinWidth = record.Word(at + PlacementAt::kMinWidth);
    placement.MinHeight = record.Word(at + PlacementAt::kMinHeight);
}

void PutPlacement(SettingsRecord &record, std::size_t at, const WindowPlacement &placement)
{
    record.PutWord(at + PlacementAt::kTop, StoredPosition(placement.Top));
    record.PutWord(at + PlacementAt::kLeft, StoredPosition(placement.Left));
    record.PutWord(at + PlacementAt::kWidth, placement.Width);
    record.PutWord(at + PlacementAt::kHeight, placement.Height);
    record.PutByte(at + PlacementAt::kState, placement.State);
    record.PutByte(at + PlacementAt::kRole, placement.Role);
    record.PutWord(at + PlacementAt::kMinWidth, placement.MinWidth);
    record.PutWord(at + PlacementAt::kMinHeight, placement.MinHeight);
}

template <class Record>
void TakePathAndPlace(const SettingsRecord &record, Record &entry)
{
    entry.Path.Set(record.Text(DocumentAt::kPath, kPathLength));
    entry.Top = Position(record.Word(DocumentAt::kTop));
    entry.Left = Position(record.Word(DocumentAt::kLeft));
    entry.Width = Length(record.Word(DocumentAt::kWidth));
    entry.Height = Length(record.Word(DocumentAt::kHeight));
}

template <class Record>
void PutPathAndPlace(SettingsRecord &record, const Record &entry)
{
    record.PutText(DocumentAt::kPath, kPathLength, entry.Path.All());
    record.PutWord(DocumentAt::kTop, StoredLimitedPosition(entry.Top));
    record.PutWord(DocumentAt::kLeft, StoredLimitedPosition(entry.Left));
    record.PutWord(DocumentAt::kWidth, static_cast<std::uint16_t>(entry.Width));
    record.PutWord(DocumentAt::kHeight, static_cast<std::uint16_t>(entry.Height));
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
    settings.Lingua = record.Byte(General::kLingua) == Language::English ? Language::English : Language::Italian;
    settings.LastChannel = record.Byte(General::kLastChannel);
    settings.MidiOutDev = Device(record.Byte(General::kMidiOutDev));
    settings.MidiInDev = Device(record.Byte(General::kMidiInDev));
    for (std::size_t i = 0; i < KeyboardByte::Split; ++i) {
        settings.KeyboardRecord[i] = record.Byte(General::kKeyboard + i);
    }
    for (std::size_t k = 0; k < settings.PlacementTable.size(); ++k) {
        TakePlacement(record, General::kPlacements + k * PlacementAt::kLength, settings.PlacementTable[k]);
    }
    for (std::size_t i = 0; i < settings.ChannelRole.size(); ++i) {
        settings.ChannelRole[i] = record.Byte(General::kChannelRoles + i);
    }
}

void PutGeneral(SettingsRecord &record, const Settings &settings, bool statusBarChecked)
{
    for (const FlagField &flag : kFlags) {
        const bool on = flag.value == &Settings::StatusBarOn ? statusBarChecked : settings.*flag.value;
        record.PutByte(flag.position, on ? 1 : 0);
    }
    PutLanguage(record, settings.Lingua);
    record.PutByte(General::kLastChannel, settings.LastChannel);
    record.PutByte(General::kMidiOutDev, static_cast<std::uint8_t>(settings.MidiOutDev & 0xFF));
    record.PutByte(General::kMidiInDev, static_cast<std::uint8_t>(settings.MidiInDev & 0xFF));
    for (std::size_t i = 0; i < KeyboardByte::Split; ++i) {
        record.PutByte(General::kKeyboard + i, settings.KeyboardRecord[i]);
    }
    for (std::size_t k = 0; k < settings.PlacementTable.size(); ++k) {
        PutPlacement(record, General::kPlacements + k * PlacementAt::kLength, settings.PlacementTable[k]);
    }
    for (std::size_t i = 0; i < settings.ChannelRole.size(); ++i) {
        record.PutByte(General::kChannelRoles + i, settings.ChannelRole[i]);
    }
}

void TakeDocument(const SettingsRecord &record, DocRecord &document)
{
    TakePathAndPlace(record, document);
    document.State = record.Byte(DocumentAt::kState);
    document.Role = record.Byte(DocumentAt::kRole);
    document.Tag6 = record.Byte(DocumentAt::kTag6);
    document.Tag7 = record.Byte(DocumentAt::kTag7);
    document.MinWidth = Length(record.Word(DocumentAt::kMinWidth));
    document.MinHeight = Length(record.Word(DocumentAt::kMinHeight));
}

SettingsRecord DocumentBytes(const DocRecord &document)
{
    SettingsRecord record('\0');
    PutPathAndPlace(record, document);
    record.PutByte(DocumentAt::kState, document.State);
    record.PutByte(DocumentAt::kTag6, document.Tag6);
    record.PutWord(DocumentAt::kMinWidth, static_cast<std::uint16_t>(document.MinWidth));
    record.PutWord(DocumentAt::kMinHeight, static_cast<std::uint16_t>(document.MinHeight));
    return record;
}

void TakeRecent(const SettingsRecord &record, RecentRecord &recent)
{
    TakePathAndPlace(record, recent);
    recent.Flag = record.Byte(RecentAt::kFlag);
    recent.Kind = record.Byte(RecentAt::kKind);
}

SettingsRecord RecentBytes(const RecentRecord &recent)
{
    SettingsRecord record('\0');
    PutPathAndPlace(record, recent);
    record.PutByte(RecentAt::kFlag, recent.Flag);
    record.PutByte(RecentAt::kKind, recent.Kind);
    return record;
}

} // namespace velluto
