// The container of the instrument's files, byte by byte: its fixed head, its directory, its closing index. Every room
// that lists, edits or prints items asks here where an item lies; nobody else knows an offset.
#pragma once

#include "view/FileImage.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace velluto {

using ImageBlock = std::span<const std::uint8_t>; // an image of one block

// Offsets in the file and lengths, in bytes, 0-based. All numbers in the file are big-endian.
namespace Korf {
inline constexpr int kOuterLength = 4;      // 4 bytes, the top one always 0: the offset of "KEND"
inline constexpr int kIdentityChunk = 8;    // FileIdentityChunk: names the format
inline constexpr int kMark = 23;            // "KORF"
inline constexpr int kDirectoryChunk = 28;  // ItemDirectoryChunk: holds the entries
inline constexpr int kDirectoryLength = 34; // 2 bytes: 24 for each item
inline constexpr int kHeadLength = 36;      // the entries follow, one DirectoryEntry for each item
inline constexpr int kEntryLength = 24;
inline constexpr int kNameLength = 16; // at the beginning of an entry
inline constexpr int kEntrySlot = 20;  // in an entry: the item's 0-based place in its bank
inline constexpr int kIndexHead = 16;  // from the type of the IndexChunk to its first file offset
inline constexpr int kIndexWord = 4;   // one file offset
inline constexpr int kIndexTail = 8;   // "KEND" and the count
inline constexpr int kMostItems = 128; // what an ItemTable has room for
} // namespace Korf

// Elements 0 to 127: 1-based position of item 1 to 128 in the image; 128 to 255: its length in bytes.
using ItemTable = std::array<std::int32_t, 2 * Korf::kMostItems>;

// The piece of the image that begins at the 1-based position: what there is of it, nothing outside the image.
[[nodiscard]] ImageBlock Piece(ImageBlock image, std::int64_t position, std::int64_t length);

// How many items the head tells of; 0 for an image shorter than its head. No promise that the bytes are there.
[[nodiscard]] int CountItems(ImageView image);
// The slot byte of the 0-based entry, or -1 where the image ends before it.
[[nodiscard]] int EntrySlot(ImageView image, int entry);
// The 16 name bytes of the 0-based entry as they are, fewer where the image ends.
[[nodiscard]] std::string EntryName(ImageView image, int entry);

// Fills the table from the image's own index; items beyond 128 are left out, bytes beyond the image read as 0. An image
// without items leaves the table as it was: ask CountItems first. Positions and lengths are those that the image
// claims, negative ones too; Piece makes them safe.
void IndexItems(ImageView image, ItemTable &table);

// The same for an image that is not one block: n items, the 1-based position of "KEND", and byteAt(position) for the bytes
// of the index.
template <class ByteAt>
void IndexItems(int n, std::int32_t end, ByteAt byteAt, ItemTable &table)
{
    const auto fileOffset = [&](std::int64_t word) { // its top byte is never read
        return byteAt(word + 1) * 65536 + byteAt(word + 2) * 256 + byteAt(word + 3);
    };
    std::int64_t word = std::int64_t{end} - Korf::kIndexWord * n;
    for (int i = 1; i <= std::min(n, Korf::kMostItems); ++i, word += Korf::kIndexWord) {
        const std::int32_t position = fileOffset(word) + 1;
        table[static_cast<std::size_t>(i - 1)] = position; // stays where byteAt cannot give the next word
        // The last item reaches to the index chunk, every other one to the next.
        const std::int32_t next = i == n ? end - Korf::kIndexHead - Korf::kIndexWord * n : fileOffset(word + Korf::kIndexWord) + 1;
        table[static_cast<std::size_t>(i - 1 + Korf::kMostItems)] = next - position;
    }
}

// Is this the head of an instrument's file: the mark and the two fixed patterns. The byte at offset 16 and the outer
// length are not looked at.
[[nodiscard]] bool HasInstrumentMarks(ImageView head);
// The marks, and a last byte that is one more than the count of items.
[[nodiscard]] bool IsInstrumentFile(ImageView image);

// Sets the image to the 36 bytes that every file begins with, with no length in them yet.
void BuildHeader(std::string &image);
// Sets the image to the 60-byte file of no items. Its outer length is 0 on purpose: only the first edit frames it.
void BuildEmptyImage(std::string &image);
// The index of an image of which head is what there is up to the bodies, and length counts all bytes so far. Writes the lengths into
// the head; the index ends the image. The first count elements of the table are the 1-based positions of the bodies.
[[nodiscard]] std::string BuildIndex(std::string &head, std::int64_t length, const ItemTable &table, int count);

} // namespace velluto
