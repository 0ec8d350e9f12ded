// The container once more, as plainly as it can be told: whole strings, 1-based positions, a new string for each step.
// The model of the editing commands (PlainEditor.h) stands on it; nothing here shares a line with the program.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velluto::test {

// Thrown by a step that has nothing to work on: bytes outside an image, a place outside a table, a negative length.
struct PlainStop {
    std::string why;
};

// Where items lie in an image, by place from 1. A place that the table has not stops.
struct PlainTable {
    explicit PlainTable(std::size_t places) : positions(places), lengths(places) {}
    std::vector<std::int32_t> positions; // 1-based
    std::vector<std::int32_t> lengths;   // bytes

    std::int32_t &Position(int place) { return positions.at(Checked(place)); }
    std::int32_t &Length(int place) { return lengths.at(Checked(place)); }
    // The position behind the last byte of the item.
    std::int32_t End(int place) { return Position(place) + Length(place); }
    [[nodiscard]] std::size_t Checked(int place) const;
    // All positions, then all lengths.
    [[nodiscard]] std::vector<std::int32_t> Flat() const;
    bool operator==(const PlainTable &) const = default;
};

// The bytes from the 1-based position on. A piece of no length is empty wherever it lies; any other that is not wholly
// inside the image stops, and so does a negative length.
std::string PlainSlice(const std::string &image, std::int64_t position, std::int64_t length);
// The byte at the 1-based position, -1 outside.
int PlainByte(const std::string &image, std::int64_t position);
void PlainPut(std::string &image, std::int64_t position, std::int64_t byte);

int PlainCount(const std::string &image);
// The slot byte of an entry, counted from 1; outside the image it is -1, or stops.
int PlainSlot(const std::string &image, int entry);
int PlainReadSlot(const std::string &image, int entry);
// `count` entries from an entry on, counted from 1.
std::string PlainEntries(const std::string &image, int from, int count);
// The first of entries 1 to `last` for the 1-based row, `last` + 1 where none is.
int PlainFind(const std::string &image, int row, int last);
// The first of entries 1 to `last` with a slot above the given one, `last` + 1 where none is.
int PlainFindBehind(const std::string &image, int slot, int last);
// Gives the last entry of an image under construction a new slot.
void PlainRenumber(std::string &built, int slot);
// From the first byte of item `from` to the last of item `to`.
std::string PlainBodies(const std::string &image, PlainTable &table, int from, int to);

// 0 Styles only, 1 each Style followed by its STS, 2 all Styles and then all STS.
int PlainLayout(const std::string &image);
// Fills the table from the image's index, word by word. A word outside the image stops; items beyond 128 are left out.
void PlainIndex(const std::string &image, PlainTable &table);
// The same for a window or a listing, which never stop: bytes outside count as 0.
int PlainShownCount(const std::string &image);
void PlainShownIndex(const std::string &image, PlainTable &table);
std::string PlainHeader();
std::string PlainEmptyImage();
// Positions from the lengths: the first behind the directory, each next behind the one before.
void PlainCumulate(PlainTable &table, int count);
// The image with its closing index.
std::string PlainFinished(std::string built, PlainTable &table, int count);

} // namespace velluto::test
