#include "unit/edit/PlainImage.h"

namespace velluto::test {

namespace {

int ByteOrZero(const std::string &image, std::int64_t position)
{
    const int byte = PlainByte(image, position);
    return byte < 0 ? 0 : byte;
}

int Number24(const std::string &image, std::int64_t position)
{
    return ByteOrZero(image, position) * 65536 + ByteOrZero(image, position + 1) * 256 + ByteOrZero(image, position + 2);
}

void PutText(std::string &image, std::int64_t position, const std::string &text)
{
    for (const char c : text) {
        PlainPut(image, position, c);
        position = position + 1;
    }
}

void PutNumber24(std::string &image, std::int64_t position, std::int64_t value)
{
    PlainPut(image, position, value >> 16);
    PlainPut(image, position + 1, value >> 8);
    PlainPut(image, position + 2, value);
}

} // namespace

std::size_t PlainTable::Checked(int place) const
{
    if (place < 1 || place > static_cast<int>(positions.size())) {
        throw PlainStop{"place " + std::to_string(place)};
    }
    return static_cast<std::size_t>(place - 1);
}

std::vector<std::int32_t> PlainTable::Flat() const
{
    std::vector<std::int32_t> all = positions;
    all.insert(all.end(), lengths.begin(), lengths.end());
    return all;
}

std::string PlainSlice(const std::string &image, std::int64_t position, std::int64_t length)
{
    if (length == 0) {
        return "";
    }
    if (length < 0 || position < 1 || position + length - 1 > static_cast<std::int64_t>(image.size())) {
        throw PlainStop{std::to_string(length) + " bytes from position " + std::to_string(position) + " of " +
                        std::to_string(image.size())};
    }
    return image.substr(static_cast<std::size_t>(position - 1), static_cast<std::size_t>(length));
}

int PlainByte(const std::string &image, std::int64_t position)
{
    if (position < 1 || position > static_cast<std::int64_t>(image.size())) {
        return -1;
    }
    return static_cast<unsigned char>(image[static_cast<std::size_t>(position - 1)]);
}

void PlainPut(std::string &image, std::int64_t position, std::int64_t byte)
{
    image.at(static_cast<std::size_t>(position - 1)) = static_cast<char>(byte & 255);
}

int PlainCount(const std::string &image)
{
    const std::string length = PlainSlice(image, 35, 2);
    return (PlainByte(length, 1) * 256 + PlainByte(length, 2)) / 24;
}

int PlainSlot(const std::string &image, int entry)
{
    return PlainByte(image, 37 + (entry - 1) * 24 + 20);
}

int PlainReadSlot(const std::string &image, int entry)
{
    return PlainByte(PlainSlice(image, 37 + (entry - 1) * 24 + 20, 1), 1);
}

std::string PlainEntries(const std::string &image, int from, int count)
{
    return PlainSlice(image, 37 + (from - 1) * 24, count * 24);
}

int PlainFindBehind(const std::string &image, int slot, int last)
{
    int e = 1;
    while (e <= last && PlainReadSlot(image, e) <= slot) {
        e = e + 1;
    }
    return e;
}

int PlainFind(const std::string &image, int row, int last)
{
    int e = 1;
    while (e <= last && PlainReadSlot(image, e) != row - 1) {
        e = e + 1;
    }
    return e;
}

void PlainRenumber(std::string &built, int slot)
{
    PlainPut(built, static_cast<std::int64_t>(built.size()) - 3, slot);
}

std::string PlainBodies(const std::string &image, PlainTable &table, int from, int to)
{
    const std::int64_t start = table.Position(from);
    const std::int64_t end = table.End(to);
    return PlainSlice(image, start, end - start);
}

int PlainLayout(const std::string &image)
{
    const int n = PlainShownCount(image);
    if (n == 0 || PlainSlot(image, 1) < 0) {
        return 0;
    }
    int i = 1;
    while (i <= n - 1 && PlainSlot(image, i + 1) != PlainSlot(image, 1)) {
        i = i + 1;
    }
    if (i == n) {
        return 0;
    }
    if (i == 1) {
        return 1;
    }
    return 2;
}

void PlainIndex(const std::string &image, PlainTable &table)
{
    const int n = PlainCount(image);
    if (n == 0) {
        return;
    }
    const int k = Number24(PlainSlice(image, 6, 3), 1) + 1;
    int q = k - 4 * n;
    for (int i = 1; i <= n && i <= 128; ++i) {
        table.Position(i) = Number24(PlainSlice(image, q + 1, 3), 1) + 1;
        if (i == n) {
            table.Length(i) = k - 16 - 4 * n - table.Position(i);
        } else {
            table.Length(i) = Number24(PlainSlice(image, q + 5, 3), 1) + 1 - table.Position(i);
        }
        q = q + 4;
    }
}

int PlainShownCount(const std::string &image)
{
    return image.size() < 36 ? 0 : PlainCount(image);
}

void PlainShownIndex(const std::string &image, PlainTable &table)
{
    const int n = PlainShownCount(image);
    const int k = Number24(image, 6) + 1;
    int q = k - 4 * n;
    for (int i = 1; i <= n && i <= static_cast<int>(table.positions.size()); ++i) {
        table.Position(i) = Number24(image, q + 1) + 1;
        table.Length(i) = i == n ? k - 16 - 4 * n - table.Position(i) : Number24(image, q + 5) + 1 - table.Position(i);
        q = q + 4;
    }
}

std::string PlainHeader()
{
    std::string head(36, '\0');
    PlainPut(head, 1, 1);
    PlainPut(head, 3, 1);
    PlainPut(head, 4, 20);
    PlainPut(head, 9, 2);
    PlainPut(head, 12, 24);
    PlainPut(head, 16, 12);
    PlainPut(head, 17, 11);
    PutText(head, 24, "KORF");
    PlainPut(head, 29, 5);
    PlainPut(head, 32, 24);
    return head;
}

std::string PlainEmptyImage()
{
    std::string image = PlainHeader() + std::string(24, '\0');
    PlainPut(image, 37, 254);
    PlainPut(image, 40, 24);
    PlainPut(image, 44, 16);
    PutText(image, 45, "KBEG");
    PlainPut(image, 52, 28);
    PutText(image, 53, "KEND");
    PlainPut(image, 60, 1);
    return image;
}

void PlainCumulate(PlainTable &table, int count)
{
    table.Position(1) = 37 + count * 24;
    for (int i = 2; i <= count; ++i) {
        table.Position(i) = table.End(i - 1);
    }
}

std::string PlainFinished(std::string built, PlainTable &table, int count)
{
    if (count < 0) {
        throw PlainStop{std::to_string(count) + " items"};
    }
    const int l = count * 24;
    PlainPut(built, 35, l / 256);
    PlainPut(built, 36, l % 256);
    const auto p = static_cast<std::int64_t>(built.size()) + 1;
    built += std::string(16, '\0') + std::string(static_cast<std::size_t>(4 * count), '\0') + std::string(8, '\0');
    PlainPut(built, p, 254);
    PlainPut(built, p + 3, 24);
    const int d = 4 * count + 16;
    PlainPut(built, p + 6, d / 256);
    PlainPut(built, p + 7, d % 256);
    PutText(built, p + 8, "KBEG");
    PlainPut(built, p + 15, 28);
    const std::int64_t e = p + d;
    std::int64_t q = p + 16;
    for (int i = 1; i <= count; ++i) {
        PutNumber24(built, q + 1, table.Position(i) - 1);
        q = q + 4;
    }
    PutText(built, e, "KEND");
    PutNumber24(built, 6, e - 1);
    PlainPut(built, e + 7, count + 1);
    return built;
}

} // namespace velluto::test
