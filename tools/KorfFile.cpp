#include "tools/KorfFile.h"

#include <algorithm>
#include <iterator>

namespace makers {

namespace {

void AppendNumber(Bytes &bytes, std::uint64_t value)
{
    for (int shift = 24; shift >= 0; shift -= 8) {
        bytes.push_back(static_cast<std::uint8_t>(value >> static_cast<unsigned>(shift)));
    }
}

// The eight bytes before every chunk: its type, a version, and the length of what follows, high byte first.
void AppendFrame(Bytes &bytes, std::uint8_t type, std::array<std::uint8_t, 3> version, std::uint64_t length)
{
    bytes.push_back(type);
    bytes.insert(bytes.end(), version.begin(), version.end());
    AppendNumber(bytes, length);
}

} // namespace

void AppendText(Bytes &bytes, std::string_view text)
{
    std::transform(text.begin(), text.end(), std::back_inserter(bytes), [](char c) { return static_cast<std::uint8_t>(c); });
}

Bytes MakeKorfFile(const std::vector<Item> &items)
{
    constexpr std::array<std::uint8_t, 3> kOuterVersion = {0x00, 0x01, 0x14};
    constexpr std::array<std::uint8_t, 3> kInnerVersion = {0x00, 0x00, 0x18};
    constexpr std::uint64_t kFrameLength = 8;
    constexpr std::uint64_t kEntryLength = 24;

    Bytes inside; // all but the outer frame
    const auto offset = [&inside] { return kFrameLength + inside.size(); };

    constexpr std::array<std::uint8_t, 12> kIdentity = {0x0B, 0, 0, 0, 0, 0, 0, 'K', 'O', 'R', 'F', 0};
    AppendFrame(inside, 0x02, kInnerVersion, kIdentity.size());
    inside.insert(inside.end(), kIdentity.begin(), kIdentity.end());

    const std::uint64_t directory = offset();
    AppendFrame(inside, 0x05, kInnerVersion, kEntryLength * items.size());
    for (const Item &item : items) {
        AppendText(inside, item.name);
        inside.insert(inside.end(), item.kept.begin(), item.kept.begin() + 4);
        inside.push_back(item.place);
        inside.insert(inside.end(), item.kept.begin() + 4, item.kept.end());
    }

    std::vector<std::uint64_t> bodies;
    for (const Item &item : items) {
        bodies.push_back(offset());
        inside.insert(inside.end(), item.body.begin(), item.body.end());
    }

    // The index: where the directory begins, where each body begins, and how many pieces that makes.
    AppendFrame(inside, 0xFE, kInnerVersion, 4 * items.size() + 16);
    AppendText(inside, "KBEG");
    AppendNumber(inside, directory);
    for (const std::uint64_t body : bodies) {
        AppendNumber(inside, body);
    }
    AppendText(inside, "KEND");
    AppendNumber(inside, items.size() + 1);

    Bytes file;
    AppendFrame(file, 0x01, kOuterVersion, inside.size());
    file.insert(file.end(), inside.begin(), inside.end());
    return file;
}

} // namespace makers
