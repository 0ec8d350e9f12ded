#include "files/Korf.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace velluto {

namespace {

using namespace Korf;

constexpr std::string_view kOuterMark("\x01\x00\x01\x14\x00", 5);
constexpr std::string_view kIdentityMark("\x02\x00\x00\x18\x00\x00\x00\x0C", 8);
constexpr std::string_view kFileMark = "KORF";
constexpr std::string_view kBeginMark = "KBEG";
constexpr std::string_view kEndMark = "KEND";

// Type bytes and further bytes of the chunk frames.
constexpr int kOuterType = 0x01;
constexpr int kIdentityType = 0x02;
constexpr int kDirectoryType = 0x05;
constexpr int kIndexType = 0xFE;
constexpr int kOuterFourth = 0x14;
constexpr int kFourth = 0x18;
constexpr int kIdentityLength = 0x0C;
constexpr int kIdentityFirst = 0x0B;

// The byte at a 1-based position, 0 outside the image.
int ByteAt(ImageView image, std::int64_t position)
{
    return position >= 1 && position <= static_cast<std::int64_t>(image.size()) ? image[static_cast<std::size_t>(position - 1)] : 0;
}

// What there is of a piece in an image of size bytes.
struct Stretch {
    std::size_t offset; // 0-based
    std::size_t length;
};
Stretch Inside(std::size_t size, std::int64_t position, std::int64_t length)
{
    const auto all = static_cast<std::int64_t>(size);
    const std::int64_t from = std::clamp<std::int64_t>(position - 1, 0, all);
    const std::int64_t to = std::clamp<std::int64_t>(position - 1 + std::max<std::int64_t>(length, 0), from, all);
    return {static_cast<std::size_t>(from), static_cast<std::size_t>(to - from)};
}

// The 24-bit number at a 1-based position.
std::int32_t Number24(ImageView image, std::int64_t position)
{
    return ByteAt(image, position) * 65536 + ByteAt(image, position + 1) * 256 + ByteAt(image, position + 2);
}

bool HasAt(ImageView image, std::size_t offset, std::string_view wanted)
{
    return image.size() >= offset + wanted.size() && image.Text(offset, wanted.size()) == wanted;
}

// Writes the low eight bits of the value at a 0-based offset; nothing outside the image.
void PutByte(std::string &image, std::int64_t offset, std::int64_t value)
{
    if (offset >= 0 && offset < static_cast<std::int64_t>(image.size())) {
        image[static_cast<std::size_t>(offset)] = static_cast<char>(value & 0xFF);
    }
}

void PutNumber16(std::string &image, std::int64_t offset, std::int64_t value)
{
    PutByte(image, offset, value >> 8);
    PutByte(image, offset + 1, value);
}

// The lower three bytes of a 32-bit field at a 0-based offset; its top byte stays as it is.
void PutNumber24(std::string &image, std::int64_t offset, std::int64_t value)
{
    PutByte(image, offset + 1, value >> 16);
    PutNumber16(image, offset + 2, value);
}

void PutText(std::string &image, std::int64_t offset, std::string_view text)
{
    for (const char c : text) {
        PutByte(image, offset++, static_cast<unsigned char>(c));
    }
}

// The index chunk without its file offsets, written over zero bytes. length is that of its payload.
void PutIndexFrame(std::string &image, std::int64_t offset, std::int64_t length)
{
    PutByte(image, offset, kIndexType);
    PutByte(image, offset + 3, kFourth);
    PutNumber16(image, offset + 6, length);
    PutText(image, offset + 8, kBeginMark);
    PutByte(image, offset + 15, kDirectoryChunk);
    PutText(image, offset + length, kEndMark);
}

} // namespace

ImageBlock Piece(ImageBlock image, std::int64_t position, std::int64_t length)
{
    const Stretch inside = Inside(image.size(), position, length);
    return image.subspan(inside.offset, inside.length);
}

int CountItems(ImageView image)
{
    if (image.size() < static_cast<std::size_t>(kHeadLength)) {
        return 0;
    }
    return (ByteAt(image, kDirectoryLength + 1) * 256 + ByteAt(image, kDirectoryLength + 2)) / kEntryLength;
}

int EntrySlot(ImageView image, int entry)
{
    const Stretch byte = Inside(image.size(), kHeadLength + std::int64_t{entry} * kEntryLength + kEntrySlot + 1, 1);
    return byte.length == 0 ? -1 : image[byte.offset];
}

std::string EntryName(ImageView image, int entry)
{
    const Stretch name = Inside(image.size(), kHeadLength + std::int64_t{entry} * kEntryLength + 1, kNameLength);
    return image.Text(name.offset, name.length);
}

void IndexItems(ImageView image, ItemTable &table)
{
    const std::int32_t end = Number24(image, kOuterLength + 2) + 1; // 1-based position of "KEND"
    IndexItems(
        CountItems(image), end, [image](std::int64_t position) { return ByteAt(image, position); }, table);
}

bool HasInstrumentMarks(ImageView head)
{
    return HasAt(head, kMark, kFileMark) && HasAt(head, 0, kOuterMark) && HasAt(head, kIdentityChunk, kIdentityMark);
}

bool IsInstrumentFile(ImageView image)
{
    return HasInstrumentMarks(image) && CountItems(image) == image[image.size() - 1] - 1;
}

void BuildHeader(std::string &image)
{
    image.assign(kHeadLength, '\0');
    PutByte(image, 0, kOuterType);
    PutByte(image, 2, 1);
    PutByte(image, 3, kOuterFourth);
    PutByte(image, kIdentityChunk, kIdentityType);
    PutByte(image, kIdentityChunk + 3, kFourth);
    PutByte(image, kIdentityChunk + 7, kIdentityLength);
    PutByte(image, kIdentityChunk + 8, kIdentityFirst);
    PutText(image, kMark, kFileMark);
    PutByte(image, kDirectoryChunk, kDirectoryType);
    PutByte(image, kDirectoryChunk + 3, kFourth);
}

void BuildEmptyImage(std::string &image)
{
    BuildHeader(image);
    image.append(kIndexHead + kIndexTail, '\0');
    PutIndexFrame(image, kHeadLength, kIndexHead);
    PutByte(image, static_cast<std::int64_t>(image.size()) - 1, 1);
}

std::string BuildIndex(std::string &head, std::int64_t length, const ItemTable &table, int count)
{
    const std::int64_t items = std::max(count, 0);
    const std::int64_t payload = kIndexWord * items + kIndexHead;
    std::string index(static_cast<std::size_t>(payload + kIndexTail), '\0');
    PutIndexFrame(index, 0, payload);
    const std::int64_t known = std::min<std::int64_t>(items, static_cast<std::int64_t>(table.size()));
    for (std::int64_t i = 0; i < known; ++i) {
        PutNumber24(index, kIndexHead + kIndexWord * i, table[static_cast<std::size_t>(i)] - 1);
    }
    PutByte(index, payload + kIndexTail - 1, items + 1);
    PutNumber16(head, kDirectoryLength, items * kEntryLength);
    PutNumber24(head, kOuterLength, length + payload);
    return index;
}

} // namespace velluto
