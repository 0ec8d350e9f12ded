// The settings file's bytes: a record of 500, and what stands where in each kind of record. Used by SettingsFile,
// which knows the file; here nothing is read from a disk.
#pragma once

#include "app/Settings.h"

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace velluto {

inline constexpr std::size_t kSettingsRecordLength = 500;

// Positions count from 1. A position beyond the record is a programming error.
class SettingsRecord {
public:
    explicit SettingsRecord(char fill = ' ') { bytes_.fill(static_cast<std::uint8_t>(fill)); }

    [[nodiscard]] std::uint8_t Byte(std::size_t position) const { return bytes_.at(position - 1); }
    void PutByte(std::size_t position, std::uint8_t value) { bytes_.at(position - 1) = value; }
    // Numbers of two bytes, high byte first.
    [[nodiscard]] std::uint16_t Word(std::size_t position) const;
    void PutWord(std::size_t position, std::uint16_t value);
    // count bytes as they stand.
    [[nodiscard]] std::string Text(std::size_t position, std::size_t count) const;
    // Writes at most count bytes of the text, and nothing behind its end.
    void PutText(std::size_t position, std::size_t count, std::string_view text);

    [[nodiscard]] std::span<std::uint8_t> Bytes() { return bytes_; }
    [[nodiscard]] std::span<const std::uint8_t> Bytes() const { return bytes_; }

private:
    std::array<std::uint8_t, kSettingsRecordLength> bytes_{};
};

// The first seven bytes are the program's name.
[[nodiscard]] bool HasMagic(const SettingsRecord &record);
void PutMagic(SettingsRecord &record);
void PutLanguage(SettingsRecord &record, std::uint8_t lingua);

// Record 1. Numbers that no device or language has become "none" and Italian. Putting leaves the bytes that the
// program does not own as they are.
void TakeGeneral(const SettingsRecord &record, Settings &settings);
void PutGeneral(SettingsRecord &record, const Settings &settings, bool statusBarChecked);

// Records 4 to 61. Role and Tag7 are read but written as 0: they last until the program ends.
void TakeDocument(const SettingsRecord &record, DocRecord &document);
[[nodiscard]] SettingsRecord DocumentBytes(DocRecord document);

// Records 62 to 77.
void TakeRecent(const SettingsRecord &record, RecentRecord &recent);
[[nodiscard]] SettingsRecord RecentBytes(const RecentRecord &recent);

} // namespace velluto
