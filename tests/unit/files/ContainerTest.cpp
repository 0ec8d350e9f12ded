// The container, byte by byte.
#include "files/StyleRows.h"
#include "unit/files/InstrumentFiles.h"

namespace velluto::test {
namespace {

Bytes ToBytes(const std::string &text)
{
    return {text.begin(), text.end()};
}

// Finishes an image that holds head, entries and bodies.
void BuildDirectory(std::string &image, const ItemTable &table, int count)
{
    image += BuildIndex(image, static_cast<std::int64_t>(image.size()), table, count);
}

const Bytes kHead{0x01, 0x00, 0x01, 0x14, 0, 0,    0,    0,    0x02, 0x00, 0x00, 0x18, 0,    0,    0, 0x0C, 0x0B, 0,
                  0,    0,    0,    0,    0, 0x4B, 0x4F, 0x52, 0x46, 0x00, 0x05, 0x00, 0x00, 0x18, 0, 0,    0,    0};

TEST(Container, HeaderIs36BytesWithoutLengths)
{
    std::string image = "left over";
    BuildHeader(image);
    EXPECT_EQ(ToBytes(image), kHead);
}

TEST(Container, EmptyImageIs60BytesWithOuterLengthZero)
{
    std::string image = "left over";
    BuildEmptyImage(image);
    Bytes expected = kHead;
    expected.insert(expected.end(), {0xFE, 0x00, 0x00, 0x18, 0x00, 0x00, 0x00, 0x10, 0x4B, 0x42, 0x45, 0x47,
                                     0x00, 0x00, 0x00, 0x1C, 0x4B, 0x45, 0x4E, 0x44, 0x00, 0x00, 0x00, 0x01});
    EXPECT_EQ(ToBytes(image), expected);
    EXPECT_TRUE(IsInstrumentFile(expected));
}

TEST(Container, DirectoryOfNoItemsEqualsTheEmptyImageButForTheOuterLength)
{
    std::string empty;
    BuildEmptyImage(empty);
    std::string image;
    BuildHeader(image);
    BuildDirectory(image, ItemTable{}, 0);
    ASSERT_EQ(image.size(), 60U);
    EXPECT_EQ(image[7], 52);
    image[7] = 0;
    EXPECT_EQ(image, empty);
}

TEST(Container, DirectoryFinishesHeadEntriesAndBodies)
{
    const Bytes file = InstrumentFile({{"First", 3, {1, 2, 3}}, {"Second", 64, Bytes(70000, 9)}, {"Third", 65, {}}});
    // Head without lengths, three entries, the bodies.
    std::string image(file.begin(), file.end() - (24 + 4 * 3));
    for (const std::size_t at : {5U, 6U, 7U, 34U, 35U}) {
        image[at] = 0;
    }
    ItemTable table{};
    table[0] = 36 + 72 + 1;
    table[1] = table[0] + 3;
    table[2] = table[1] + 70000;
    BuildDirectory(image, table, 3);
    EXPECT_EQ(ToBytes(image), file);
}

TEST(Container, DirectoryOfMoreItemsThanTheTableHoldsStaysInsideIt)
{
    std::string image;
    BuildHeader(image);
    image.append(300 * 24, '\0');
    ItemTable table{};
    table.fill(1000);
    BuildDirectory(image, table, 300);
    ASSERT_EQ(image.size(), 36U + 300 * 24 + 16 + 4 * 300 + 8);
    EXPECT_EQ(static_cast<std::uint8_t>(image[34]) * 256 + static_cast<std::uint8_t>(image[35]), 300 * 24);
    EXPECT_EQ(static_cast<std::uint8_t>(image.back()), 301 % 256) << "one byte only";
}

TEST(Container, DirectoryOnAnImageWithoutAHeadWritesNothingOutside)
{
    std::string image;
    BuildDirectory(image, ItemTable{}, 0);
    EXPECT_EQ(image.size(), 24U);
    BuildDirectory(image, ItemTable{}, -1);
    EXPECT_EQ(image.size(), 48U);
}

TEST(Container, CountIsTheDirectoryLengthIn24sTruncated)
{
    Bytes file = InstrumentFile({{"A", 0, {}}, {"B", 1, {}}});
    EXPECT_EQ(CountItems(file), 2);
    file[35] = 71;
    EXPECT_EQ(CountItems(file), 2);
    file[35] = 72;
    EXPECT_EQ(CountItems(file), 3);
    file[34] = 0xFF;
    file[35] = 0xFF;
    EXPECT_EQ(CountItems(file), 2730);
}

TEST(Container, AnImageShorterThanItsHeadCountsNoItems)
{
    Bytes head(35, 0xFF);
    EXPECT_EQ(CountItems(head), 0);
    head.push_back(0xFF);
    EXPECT_EQ(CountItems(head), 2730);
    EXPECT_EQ(CountItems({}), 0);
}

TEST(Container, IndexGivesPositionsAndLengths)
{
    const Bytes file = InstrumentFile({{"A", 0, Bytes(10, 1)}, {"B", 1, {}}, {"C", 2, Bytes(700, 3)}});
    ItemTable table{};
    IndexItems(file, table);
    EXPECT_EQ(table[0], 36 + 72 + 1);
    EXPECT_EQ(table[128], 10);
    EXPECT_EQ(table[1], 36 + 72 + 11);
    EXPECT_EQ(table[129], 0);
    EXPECT_EQ(table[2], 36 + 72 + 11);
    EXPECT_EQ(table[130], 700);
}

TEST(Container, TheLastItemReachesToTheIndexChunk)
{
    // Bytes between the last body and the index belong to the last item.
    Bytes file = InstrumentFile({{"A", 0, {1, 2}}, {"B", 1, {3, 4, 5, 6, 7}}});
    const std::size_t second = file.size() - 8 - 4;
    file[second + 3] = static_cast<std::uint8_t>(36 + 48 + 3); // its body begins one byte later
    ItemTable table{};
    IndexItems(file, table);
    EXPECT_EQ(table[128], 3);
    EXPECT_EQ(table[129], 4);
}

TEST(Container, TheTopByteOfAnIndexEntryIsNeverRead)
{
    Bytes file = InstrumentFile({{"A", 0, {1, 2}}});
    ItemTable clean{};
    IndexItems(file, clean);
    file[file.size() - 12] = 0xEE;
    file[4] = 0xEE;
    ItemTable table{};
    IndexItems(file, table);
    EXPECT_EQ(table, clean);
}

TEST(Container, IndexOfAnImageWithoutItemsKeepsWhatWasThere)
{
    ItemTable table{};
    table.fill(77);
    ItemTable before = table;
    IndexItems(InstrumentFile({}), table);
    EXPECT_EQ(table, before);
    IndexItems({}, table);
    EXPECT_EQ(table, before);
}

TEST(Container, IndexLeavesTheElementsBeyondTheItemsAlone)
{
    ItemTable table{};
    table.fill(77);
    IndexItems(InstrumentFile({{"A", 0, {1}}}), table);
    EXPECT_EQ(table[0], 61);
    EXPECT_EQ(table[1], 77);
    EXPECT_EQ(table[128], 1);
    EXPECT_EQ(table[129], 77);
}

TEST(Container, NoMoreThan128ItemsAreIndexed)
{
    std::vector<Item> items;
    for (int i = 0; i < 200; ++i) {
        items.push_back({"Item", i % 128, Bytes(static_cast<std::size_t>(i), 1)});
    }
    const Bytes file = InstrumentFile(items);
    ASSERT_TRUE(IsInstrumentFile(file));
    ItemTable table{};
    IndexItems(file, table);
    EXPECT_EQ(table[0], 36 + 200 * 24 + 1);
    EXPECT_EQ(table[127], 36 + 200 * 24 + 1 + 127 * 126 / 2);
    EXPECT_EQ(table[128], 0);
    EXPECT_EQ(table[255], 127) << "item 128 ends where item 129 begins";
}

TEST(Container, APieceBeyondTheEndGivesWhatThereIs)
{
    const Bytes bytes{10, 11, 12, 13};
    const auto piece = [&bytes](std::int64_t position, std::int64_t length) {
        const ImageBlock view = Piece(bytes, position, length);
        return Bytes(view.begin(), view.end());
    };
    EXPECT_EQ(piece(2, 2), (Bytes{11, 12}));
    EXPECT_EQ(piece(3, 9), (Bytes{12, 13}));
    EXPECT_EQ(piece(5, 1), Bytes{});
    EXPECT_EQ(piece(900, 1), Bytes{});
    EXPECT_EQ(piece(2, -5), Bytes{});
    EXPECT_EQ(piece(0, 2), Bytes{10}) << "what lies before the image is not there";
    EXPECT_EQ(piece(-10, 5), Bytes{});
    EXPECT_EQ(piece(1, INT32_MAX), bytes);
}

// The same bytes, in pieces of random lengths that lie in blocks of their own.
FileImage InPieces(const Bytes &file, std::mt19937 &random)
{
    FileImage image;
    for (std::size_t offset = 0; offset < file.size();) {
        const std::size_t length = std::min<std::size_t>(file.size() - offset, 1 + random() % 60);
        image.Append(
            ImageOf(Bytes(file.begin() + static_cast<std::ptrdiff_t>(offset), file.begin() + static_cast<std::ptrdiff_t>(offset + length))),
            0, length);
        offset += length;
    }
    return image;
}

TEST(Container, AnImageInPiecesReadsAsOneBlock)
{
    std::mt19937 random(3); // NOLINT: the same files in every run
    for (int round = 0; round < 300; ++round) {
        Bytes file = RandomFile(random);
        if (round % 2 == 1) { // damaged, and cut off anywhere
            file[random() % file.size()] ^= static_cast<std::uint8_t>(1 + random() % 255);
            file.resize(random() % (file.size() + 1));
        }
        const FileImage image = InPieces(file, random);
        const ImageView pieces = image.View();
        const int n = CountItems(file);
        ASSERT_EQ(CountItems(pieces), n);
        ASSERT_EQ(HasInstrumentMarks(pieces), HasInstrumentMarks(file));
        ASSERT_EQ(IsInstrumentFile(pieces), IsInstrumentFile(file));
        ASSERT_EQ(ClassifyStyleLayout(pieces), ClassifyStyleLayout(file));
        ItemTable whole{};
        ItemTable table{};
        IndexItems(file, whole);
        IndexItems(pieces, table);
        ASSERT_EQ(table, whole);
        for (int entry = -3; entry < n + 2; ++entry) {
            ASSERT_EQ(EntrySlot(pieces, entry), EntrySlot(file, entry));
            ASSERT_EQ(EntryName(pieces, entry), EntryName(file, entry));
        }
    }
}

TEST(Container, EntriesGiveSlotAndRawName)
{
    const Bytes file = InstrumentFile({{"Grand Piano", 5, {}}, {std::string("\xE9t\xE9  \0 x", 8), 127, {}}});
    EXPECT_EQ(EntrySlot(file, 0), 5);
    EXPECT_EQ(EntrySlot(file, 1), 127);
    EXPECT_EQ(EntryName(file, 0), std::string("Grand Piano\0\0\0\0\0", 16));
    EXPECT_EQ(EntryName(file, 1), std::string("\xE9t\xE9  \0 x\0\0\0\0\0\0\0\0", 16));
    EXPECT_EQ(EntrySlot(file, 900), -1);
    EXPECT_EQ(EntryName(file, 900), "");
    EXPECT_EQ(EntryName(ImageBlock(file).first(36 + 7), 0), "Grand P");
}

TEST(Container, ItsBytesDecideWhetherItIsAnInstrumentFile)
{
    const Bytes good = InstrumentFile({{"A", 0, {1}}});
    EXPECT_TRUE(IsInstrumentFile(good));
    for (const std::size_t tested : {0U, 1U, 2U, 3U, 4U, 8U, 9U, 10U, 11U, 12U, 13U, 14U, 15U, 23U, 24U, 25U, 26U}) {
        Bytes bad = good;
        bad[tested] ^= 0x40;
        EXPECT_FALSE(IsInstrumentFile(bad)) << "offset " << tested;
    }
    for (const std::size_t untested : {5U, 6U, 7U, 16U, 17U, 22U, 27U, 28U, 31U}) {
        Bytes other = good;
        other[untested] ^= 0x40;
        EXPECT_TRUE(IsInstrumentFile(other)) << "offset " << untested;
    }
    Bytes wrongCount = good;
    wrongCount.back() = 3;
    EXPECT_FALSE(IsInstrumentFile(wrongCount));
    EXPECT_FALSE(IsInstrumentFile({}));
}

TEST(Container, DamagedIndexesNeverLeadOutsideTheImage)
{
    std::mt19937 random(20050514);
    for (int round = 0; round < 2000; ++round) {
        Bytes file = RandomFile(random);
        // Any bytes behind the fixed patterns, and any end.
        const std::size_t damaged = random() % 60;
        for (std::size_t i = 0; i < damaged; ++i) {
            const std::size_t at = 5 + random() % (file.size() - 5);
            file[at] = static_cast<std::uint8_t>(random());
        }
        file.resize(random() % 3 == 0 ? random() % (file.size() + 1) : file.size());
        ItemTable table{};
        IndexItems(file, table);
        for (std::size_t item = 0; item < 128; ++item) {
            const ImageBlock body = Piece(file, table[item], table[item + 128]);
            ASSERT_LE(body.size(), file.size());
        }
        const int n = CountItems(file);
        for (int entry = 0; entry < n; ++entry) {
            ASSERT_LE(EntryName(file, entry).size(), 16U);
            ASSERT_LE(EntrySlot(file, entry), 255);
        }
    }
}

} // namespace
} // namespace velluto::test
