// Instrument files byte by byte, without the program's own builder. Used by all tests that make such files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velluto::test {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kInstrumentHead = 36; // bytes in front of the directory

struct Item {
    std::string name; // up to 16 bytes; zeros follow
    int slot = 0;
    Bytes body;
};

inline void AppendText(Bytes &to, std::string_view text)
{
    to.insert(to.end(), text.begin(), text.end());
}

// A big-endian number of four bytes.
inline void Append32(Bytes &to, std::size_t value)
{
    for (const int shift : {24, 16, 8, 0}) {
        to.push_back(static_cast<std::uint8_t>(value >> shift));
    }
}

// An entry of the directory: the name and its slot, with the four bytes before the slot and the three behind it.
inline std::string DirectoryEntry(std::string name, int slot, const std::string &kept = "\x11\x22\x33\x44\x55\x66\x77")
{
    name.resize(16, '\0');
    return name + kept.substr(0, 4) + static_cast<char>(slot) + kept.substr(4);
}

// The head, what stands between it and the index, and the index of these offsets, which the head counts.
inline Bytes Framed(std::string_view between, const std::vector<std::size_t> &offsets)
{
    Bytes file{0x01, 0x00, 0x01, 0x14, 0, 0, 0, 0, 0x02, 0x00, 0x00, 0x18, 0x00, 0x00, 0x00, 0x0C, 0x0B, 0, 0, 0, 0, 0, 0};
    AppendText(file, "KORF");
    AppendText(file, std::string_view("\0\5\0\0\x18", 5));
    Append32(file, 24 * offsets.size());
    AppendText(file, between);
    Append32(file, 0xFE000018);
    Append32(file, 4 * offsets.size() + 16);
    AppendText(file, "KBEG");
    Append32(file, 28);
    for (const std::size_t offset : offsets) {
        Append32(file, offset);
    }
    const std::size_t end = file.size();
    AppendText(file, "KEND");
    Append32(file, offsets.size() + 1);
    for (std::size_t i = 0; i < 3; ++i) {
        file[5 + i] = static_cast<std::uint8_t>(end >> (16 - 8 * i));
    }
    return file;
}

inline Bytes InstrumentFile(const std::vector<Item> &items)
{
    std::string between;
    for (const Item &item : items) {
        between += DirectoryEntry(item.name, item.slot);
    }
    std::vector<std::size_t> offsets;
    for (const Item &item : items) {
        offsets.push_back(kInstrumentHead + between.size());
        between.append(item.body.begin(), item.body.end());
    }
    return Framed(between, offsets);
}

} // namespace velluto::test
