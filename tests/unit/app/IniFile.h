// The bytes of a settings file, for the tests of the application core: records and positions count from 1, as the
// file's own description counts them.
#pragma once

#include "unit/support/TestProgram.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace velluto::test {

inline constexpr std::size_t kRecordLength = 500;
inline constexpr std::size_t kRecords = 80;

struct IniFile {
    Bytes bytes;

    // A file as a first run leaves it before its end: the first record of zeros, the others of blanks.
    static IniFile Created(int lingua)
    {
        IniFile ini;
        ini.bytes.assign(kRecordLength * kRecords, ' ');
        std::fill_n(ini.bytes.begin(), kRecordLength, std::uint8_t{0});
        ini.PutText(1, 1, "Velluto");
        ini.At(1, 25) = static_cast<std::uint8_t>(lingua);
        return ini;
    }
    static IniFile Of(const TestProgram &run) { return {run.Ini()}; }

    std::uint8_t &At(std::size_t record, std::size_t position) { return bytes.at((record - 1) * kRecordLength + position - 1); }
    int Word(std::size_t record, std::size_t position) { return At(record, position) * 256 + At(record, position + 1); }
    void PutWord(std::size_t record, std::size_t position, int value)
    {
        At(record, position) = static_cast<std::uint8_t>(value / 256);
        At(record, position + 1) = static_cast<std::uint8_t>(value % 256);
    }
    std::string Text(std::size_t record, std::size_t position, std::size_t count)
    {
        std::string text;
        for (std::size_t i = 0; i < count; ++i) {
            text += static_cast<char>(At(record, position + i));
        }
        return text;
    }
    void PutText(std::size_t record, std::size_t position, std::string_view text)
    {
        for (std::size_t i = 0; i < text.size(); ++i) {
            At(record, position + i) = static_cast<std::uint8_t>(text[i]);
        }
    }
    // A path field: blank-padded to 234 bytes at the start of the record.
    void PutPath(std::size_t record, std::string_view path)
    {
        PutText(record, 1, std::string(234, ' '));
        PutText(record, 1, path);
    }
    // All 500 bytes of a record.
    std::string Record(std::size_t record) { return Text(record, 1, kRecordLength); }

    void WriteTo(const TestProgram &run) const { WriteBytes(run.At("Velluto.ini"), bytes); }
};

inline std::string Padded(std::string_view text, std::size_t length)
{
    std::string padded(text);
    padded.resize(length, ' ');
    return padded;
}

} // namespace velluto::test
