// The rows of Styles and STS: where an item's row stands, what it holds, and what files in disorder lead to.
#include "files/StyleRows.h"
#include "unit/files/BankFiles.h"

namespace velluto::test {
namespace {

class StyleRowsTest : public ::testing::Test {
protected:
    // The rows that show the file's Styles as a window's load does.
    std::vector<std::string> AtLoad(const Bytes &bytes, int count, int step)
    {
        PutRowNumbers(buffer);
        IndexItems(bytes, table);
        PutStylesAtLoad(buffer, bytes, table, count, step);
        return RowsOf(buffer);
    }
    std::vector<std::string> Styles(const Bytes &bytes)
    {
        PutRowNumbers(buffer);
        IndexItems(bytes, table);
        PutStyles(buffer, bytes, table);
        return RowsOf(buffer);
    }
    std::vector<std::string> Sts(const Bytes &bytes)
    {
        PutRowNumbers(buffer);
        IndexItems(bytes, table);
        PutSts(buffer, bytes, table);
        return RowsOf(buffer);
    }
    std::vector<std::string> Overview(const Bytes &bytes)
    {
        IndexItems(bytes, table);
        PutOverviewRows(buffer, bytes, table);
        return RowsOf(buffer);
    }
    // A file of one Style in slot 0 whose index gives it that length, whatever its body.
    static Bytes OfClaimedLength(std::int32_t length)
    {
        Bytes bytes = InstrumentFile({Sized("Bossa", 0, 4), Sized("Beat", 1, 4)});
        // The second word of the index: where the second body begins.
        const std::size_t word = bytes.size() - 8 - 4;
        const std::int32_t second = 36 + 48 + length;
        bytes.at(word + 1) = static_cast<std::uint8_t>(second >> 16);
        bytes.at(word + 2) = static_cast<std::uint8_t>(second >> 8);
        bytes.at(word + 3) = static_cast<std::uint8_t>(second);
        return bytes;
    }

    std::string buffer;
    ItemTable table{};
};

TEST_F(StyleRowsTest, ANewFileHasNumbersAndSixteenBlanks)
{
    const std::vector<std::string> rows = NewStyleRows();
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[0], " 01                 ");
    EXPECT_EQ(rows[15], " 16                 ");
}

TEST_F(StyleRowsTest, AnEmptyPlaceOfAFileIsItsNumberAndBlanksTo28Characters)
{
    PutRowNumbers(buffer);
    EXPECT_EQ(buffer.size(), 448U);
    const std::vector<std::string> rows = RowsOf(buffer);
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[0], " 01                         ");
    EXPECT_EQ(rows[9], " 10                         ");
}

TEST_F(StyleRowsTest, AnItemShowsItsNameAndItsSizeThatEndsAtCharacter26)
{
    const Bytes bytes = InstrumentFile({Sized("Bossa", 0, 4), Sized("Sixteen letters!", 2, 12345), Sized("Beat", 15, 123456)});
    const std::vector<std::string> rows = AtLoad(bytes, 3, 1);
    EXPECT_EQ(rows[0], " 01 Bossa                4  ");
    EXPECT_EQ(rows[1], " 02                         ");
    EXPECT_EQ(rows[2], " 03 Sixteen letters! 12345  ");
    EXPECT_EQ(rows[15], " 16 Beat            123456  ");
}

TEST_F(StyleRowsTest, EntriesMayComeInAnyOrder)
{
    const std::vector<std::string> rows = AtLoad(FileWithItems({{"Late", 9}, {"Early", 1}}), 2, 1);
    EXPECT_EQ(rows[1], " 02 Early                2  ");
    EXPECT_EQ(rows[9], " 10 Late                 1  ");
}

TEST_F(StyleRowsTest, Slot15IsAddressedAtCharacter425AndSlot16IsLost)
{
    PutInRowBuffer(buffer = std::string(448, '.'), 15 * 28 + 5, "Last");
    EXPECT_EQ(buffer.substr(424, 4), "Last");
    const std::vector<std::string> rows = AtLoad(FileWithItems({{"Gone", 16}, {"Far", 200}, {"Here", 0}, {"Edge", 255}}), 4, 1);
    EXPECT_EQ(buffer.size(), 448U);
    EXPECT_EQ(rows[0], " 01 Here                 3  ");
    for (std::size_t i = 1; i < 16; ++i) {
        EXPECT_EQ(rows[i].find_first_not_of(" 0123456789"), std::string::npos) << rows[i];
    }
}

TEST_F(StyleRowsTest, WhatDoesNotFitTheRowBufferIsLost)
{
    buffer = std::string(448, '.');
    PutInRowBuffer(buffer, 447, "abcd");
    EXPECT_EQ(buffer.substr(445), ".ab");
    PutInRowBuffer(buffer, -1, "abcd");
    EXPECT_EQ(buffer.substr(0, 3), "cd.");
    PutInRowBuffer(buffer, 449, "x");
    EXPECT_EQ(buffer.size(), 448U);
}

TEST_F(StyleRowsTest, ASizeOfSevenDigitsGivesNoPaddingAndTheRowStillFits)
{
    EXPECT_EQ(AtLoad(OfClaimedLength(999999), 2, 1)[0], " 01 Bossa           999999  ");
    EXPECT_EQ(AtLoad(OfClaimedLength(1234567), 2, 1)[0], " 01 Bossa           1234567 ");
    EXPECT_EQ(AtLoad(OfClaimedLength(12345678), 2, 1)[0], " 01 Bossa           12345678");
    EXPECT_EQ(AtLoad(OfClaimedLength(0), 2, 1)[0], " 01 Bossa                0  ");
}

TEST_F(StyleRowsTest, ALengthBelowZeroTakesTheSignPlace)
{
    EXPECT_EQ(AtLoad(OfClaimedLength(-5), 2, 1)[0], " 01 Bossa                -5 ");
}

TEST_F(StyleRowsTest, ALaterItemOfTheSameSlotWritesOverTheEarlier)
{
    const std::vector<std::string> rows = AtLoad(FileWithItems({{"First", 0}, {"Second", 3}, {"Third", 3}}), 3, 1);
    EXPECT_EQ(rows[3], " 04 Third                3  ");
}

TEST_F(StyleRowsTest, ZerosOfANameBecomeBlanksFromItsFifthCharacterOn)
{
    const Bytes bytes = InstrumentFile({Sized(WithZeros("A\0B\0C\0D"), 0, 1), Sized("", 1, 1)});
    const std::vector<std::string> rows = AtLoad(bytes, 2, 1);
    EXPECT_EQ(rows[0], WithZeros(" 01 A\0B\0C D              1  "));
    EXPECT_EQ(rows[1], WithZeros(" 02 \0\0\0\0                 1  ")) << "the row ends there as a list shows it";
}

TEST_F(StyleRowsTest, InterleavedEveryStyleIsFollowedByItsSts)
{
    const Bytes bytes = FileWithItems({{"Bossa", 0}, {"Bossa STS", 0}, {"Beat", 4}, {"Beat STS", 4}});
    for (const auto &styles : {AtLoad(bytes, 2, 2), Styles(bytes)}) {
        EXPECT_EQ(styles[0], " 01 Bossa                1  ");
        EXPECT_EQ(styles[4], " 05 Beat                 3  ");
    }
    const std::vector<std::string> sts = Sts(bytes);
    EXPECT_EQ(sts[0], " 01 Bossa STS            2  ");
    EXPECT_EQ(sts[4], " 05 Beat STS             4  ");
    EXPECT_EQ(sts[1], " 02                         ");
}

TEST_F(StyleRowsTest, GroupedAllStsStandBehindAllStyles)
{
    const Bytes bytes = FileWithItems({{"Bossa", 0}, {"Beat", 1}, {"Bossa STS", 0}, {"Beat STS", 1}});
    for (const auto &styles : {AtLoad(bytes, 2, 1), Styles(bytes)}) {
        EXPECT_EQ(styles[0], " 01 Bossa                1  ");
        EXPECT_EQ(styles[1], " 02 Beat                 2  ");
    }
    const std::vector<std::string> sts = Sts(bytes);
    EXPECT_EQ(sts[0], " 01 Bossa STS            3  ");
    EXPECT_EQ(sts[1], " 02 Beat STS             4  ");
}

TEST_F(StyleRowsTest, AStyleWithoutAnStsMakesTheStsLoseTheirStep)
{
    // Bossa with STS, Beat without, Waltz with: five entries make two Styles and two STS.
    const Bytes bytes = FileWithItems({{"Bossa", 0}, {"Bossa STS", 0}, {"Beat", 1}, {"Waltz", 2}, {"Waltz STS", 2}});
    const std::vector<std::string> styles = Styles(bytes);
    EXPECT_EQ(styles[0], " 01 Bossa                1  ");
    EXPECT_EQ(styles[1], " 02 Beat                 3  ");
    EXPECT_EQ(styles[2], " 03                         ") << "beyond half of the entries";
    const std::vector<std::string> sts = Sts(bytes);
    EXPECT_EQ(sts[0], " 01 Bossa STS            2  ");
    EXPECT_EQ(sts[1], " 02 Waltz STS            5  ") << "two entries further on";
    EXPECT_EQ(sts[2], " 03                         ");
}

TEST_F(StyleRowsTest, AWalkThatRunsPastTheDirectoryTakesBodiesForEntries)
{
    // The STS of the second Style, two entries further on, lies in the body of the first item, which follows the directory.
    Bytes body(48, '.');
    const std::string name = "From a body     ";
    std::copy(name.begin(), name.end(), body.begin());
    const Bytes bytes = InstrumentFile({{"Bossa", 0, body}, Sized("Bossa STS", 0, 2), Sized("Beat", 1, 3), Sized("Waltz", 2, 4)});
    const std::vector<std::string> sts = Sts(bytes);
    EXPECT_EQ(sts[0], " 01 Bossa STS            2  ");
    EXPECT_EQ(sts[1], " 02 From a body          0  ") << "its length comes from an item that is not there";
}

TEST_F(StyleRowsTest, OverviewRowsBringTheirNumberAndEmptyPlacesAreBlank)
{
    const std::vector<std::string> rows = Overview(FileWithItems({{WithZeros("A\0C"), 0}, {"A STS", 0}, {"Beat", 9}, {"Beat STS", 9}}));
    ASSERT_EQ(rows.size(), 16U);
    EXPECT_EQ(rows[0], " 01 A C                  1  ") << "all zeros are blanks here";
    EXPECT_EQ(rows[1], std::string(28, ' '));
    EXPECT_EQ(rows[9], " 10 Beat                 3  ");
}

TEST_F(StyleRowsTest, AnOverviewShowsTheStylesOfBothArrangementsWith32Entries)
{
    std::vector<std::pair<std::string, int>> interleaved;
    std::vector<std::pair<std::string, int>> grouped;
    for (int slot = 0; slot < 16; ++slot) {
        interleaved.emplace_back("Style " + std::to_string(slot + 1), slot);
        interleaved.emplace_back("STS", slot);
        grouped.emplace_back("Style " + std::to_string(slot + 1), slot);
    }
    for (int slot = 0; slot < 16; ++slot) {
        grouped.emplace_back("STS", slot);
    }
    for (const auto &items : {interleaved, grouped}) {
        const std::vector<std::string> rows = Overview(FileWithItems(items));
        for (int slot = 0; slot < 16; ++slot) {
            const std::string name = "Style " + std::to_string(slot + 1);
            EXPECT_EQ(rows.at(static_cast<std::size_t>(slot)).substr(4, name.size()), name);
        }
    }
}

TEST_F(StyleRowsTest, AnOverviewShowsHalfOfAFileOfStylesOnlyAndNothingOfOneEntry)
{
    const std::vector<std::string> half = Overview(FileWithItems({{"One", 0}, {"Two", 1}, {"Three", 2}, {"Four", 3}, {"Five", 4}}));
    EXPECT_EQ(half[0], " 01 One                  1  ");
    EXPECT_EQ(half[1], " 02 Two                  2  ");
    EXPECT_EQ(half[2], std::string(28, ' '));
    EXPECT_EQ(Overview(FileWithItems({{"One", 0}})), std::vector<std::string>(16, std::string(28, ' ')));
}

TEST_F(StyleRowsTest, ItemsThatTheIndexHasNoRoomForHaveNoLength)
{
    std::vector<std::pair<std::string, int>> items(200, {"Same", 7});
    const std::vector<std::string> rows = AtLoad(FileWithItems(items), 200, 1);
    EXPECT_EQ(rows[7], " 08 Same                 0  ");
}

TEST_F(StyleRowsTest, NoBytesOutsideTheImageAreRead)
{
    // The head claims 254 entries; the image ends within the second.
    Bytes bytes = FileWithItems({{"Bossa", 0}});
    bytes[34] = 24 * 254 / 256;
    bytes[35] = 24 * 254 % 256;
    bytes.resize(36 + 24 + 10);
    bytes.shrink_to_fit();
    for (const auto &rows : {AtLoad(bytes, 254, 1), Styles(bytes)}) {
        EXPECT_EQ(rows[0].substr(0, 20), " 01 Bossa           ");
        EXPECT_EQ(rows[1], " 02                         ");
    }
    EXPECT_EQ(Sts(bytes)[0].substr(0, 20), std::string(" 01").append(17, ' ')) << "127 entries further on there is nothing";
    EXPECT_EQ(Overview(bytes)[0].substr(0, 20), " 01 Bossa           ");
}

} // namespace
} // namespace velluto::test
