#include "scenarios/ProgramFile.h"

#include <string_view>

namespace velluto::scenarios {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kEntryLength = 24;
constexpr std::size_t kNameLength = 16;
constexpr std::size_t kFirstBodyLength = 40;

void Append(Bytes &file, std::string_view text)
{
    file.insert(file.end(), text.begin(), text.end());
}

void AppendNumber(Bytes &file, std::size_t number, int bytes)
{
    for (int shift = 8 * (bytes - 1); shift >= 0; shift -= 8) {
        file.push_back(static_cast<std::uint8_t>(number >> shift));
    }
}

void AppendEntry(Bytes &file, const ProgramItem &item)
{
    std::string name = item.name.substr(0, kNameLength);
    name.resize(kNameLength, ' ');
    Append(file, name);
    AppendNumber(file, 0x01020304, 4);
    AppendNumber(file, static_cast<std::size_t>(item.slot), 1);
    AppendNumber(file, 0x050607, 3);
}

} // namespace

std::vector<std::uint8_t> ProgramFile(const std::vector<ProgramItem> &items)
{
    const std::size_t count = items.size();
    Bytes file = {1, 0, 1, 0x14, 0, 0, 0, 0, 2, 0, 0, 0x18, 0, 0, 0, 12, 0x0B, 0, 0, 0, 0, 0, 0};
    Append(file, "KORF");
    Append(file, std::string_view("\0\5\0\0\x18\0\0", 7));
    AppendNumber(file, kEntryLength * count, 2);
    for (const ProgramItem &item : items) {
        AppendEntry(file, item);
    }
    std::vector<std::size_t> offsets;
    for (std::size_t i = 0; i < count; ++i) {
        offsets.push_back(file.size());
        for (std::size_t k = 0; k < kFirstBodyLength + i; ++k) {
            file.push_back(static_cast<std::uint8_t>(items[i].slot * 7 + static_cast<int>(k)));
        }
    }
    Append(file, std::string_view("\xFE\0\0\x18\0\0", 6));
    AppendNumber(file, 4 * count + 16, 2);
    Append(file, "KBEG");
    AppendNumber(file, 28, 4);
    for (const std::size_t offset : offsets) {
        AppendNumber(file, offset, 4);
    }
    const std::size_t outerLength = file.size();
    Append(file, "KEND");
    AppendNumber(file, count + 1, 4);
    for (std::size_t i = 0; i < 4; ++i) {
        file[4 + i] = static_cast<std::uint8_t>(outerLength >> (24 - 8 * i));
    }
    return file;
}

} // namespace velluto::scenarios
