// The rows of the factory windows, record by record.
#include "banks/FactoryRows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace velluto::test {
namespace {

std::string Three(int number)
{
    std::string digits = std::to_string(number);
    return std::string(3 - digits.size(), '0') + digits;
}

// Each record tells its own number, and which of its characters are read.
FactoryTables NumberedTables()
{
    FactoryTables tables;
    for (int record = 1; record <= kPcgTableRecords; ++record) {
        tables.PcgTable.at(static_cast<std::size_t>(record)) = "1234Prog " + Three(record) + "     12a345b678!!";
    }
    for (int record = 1; record <= kStyTableRecords; ++record) {
        tables.StyTable.at(static_cast<std::size_t>(record)) = "12345*Style " + Three(record) + "      !!";
    }
    return tables;
}

TEST(FactoryRows, EachBankListsItsRecordsWithItsHeadingsAndRestarts)
{
    const struct {
        int kind;
        int first;
        int last;
        std::vector<int> headings;
        std::vector<int> restarts;
    } banks[] = {
        {2, 1, 117, {1, 2, 35, 36, 37, 64, 65, 66, 99, 100, 101}, {3, 38, 67, 102}},
        {3, 119, 252, {119, 120, 166, 167, 168, 170, 171, 172}, {121, 169, 173}},
        {4, 254, 404, {254, 255, 327, 328, 329, 353, 354, 355}, {256, 330, 356}},
        {5, 406, 513, {406, 407, 424, 425, 426, 469, 470, 471}, {408, 427, 472}},
        {6, 515, 640, {515, 516, 587, 588, 589}, {517, 590}},
        {7, 642, 745, {642, 643, 693, 694, 695}, {644, 696}},
    };
    const FactoryTables tables = NumberedTables();
    for (const auto &bank : banks) {
        std::vector<std::string> expected;
        int number = 1;
        for (int record = bank.first; record <= bank.last; ++record) {
            if (std::ranges::count(bank.restarts, record) != 0) {
                number = 1;
            }
            const bool heading = std::ranges::count(bank.headings, record) != 0;
            const std::string name = "Prog " + Three(record) + "     ";
            expected.push_back(heading ? name + "12a34" : Three(number).substr(1) + " " + name);
            ++number;
        }
        EXPECT_EQ(FactoryProgramRows(tables, bank.kind), expected) << bank.kind;
    }
}

TEST(FactoryRows, BankABeginsWithTwoHeadingsAndRecord3IsNumber1)
{
    const std::vector<std::string> rows = FactoryProgramRows(NumberedTables(), 2);
    ASSERT_EQ(rows.size(), 117U);
    EXPECT_EQ(rows[0], "Prog 001     12a34");
    EXPECT_EQ(rows[1], "Prog 002     12a34");
    EXPECT_EQ(rows[2], "01 Prog 003     ");
    EXPECT_EQ(rows[33], "32 Prog 034     ");
    EXPECT_EQ(rows[34], "Prog 035     12a34");
    EXPECT_EQ(rows[37], "01 Prog 038     ");
}

TEST(FactoryRows, BankBHasOneItemAloneBetweenTwoGroupsOfHeadings)
{
    const std::vector<std::string> rows = FactoryProgramRows(NumberedTables(), 3);
    EXPECT_EQ(rows[169 - 119], "01 Prog 169     ");
    EXPECT_EQ(rows[170 - 119], "Prog 170     12a34");
    EXPECT_EQ(rows[173 - 119], "01 Prog 173     ");
    EXPECT_EQ(rows[252 - 119], "80 Prog 252     ");
}

TEST(FactoryRows, BankFHas104RowsAndEndsWithRecord745)
{
    const std::vector<std::string> rows = FactoryProgramRows(NumberedTables(), 7);
    ASSERT_EQ(rows.size(), 104U);
    EXPECT_EQ(rows.back(), "50 Prog 745     ");
}

TEST(FactoryRows, NoOtherKindHasRows)
{
    for (const int kind : {0, 1, 8, 14}) {
        EXPECT_TRUE(FactoryProgramRows(NumberedTables(), kind).empty()) << kind;
    }
}

TEST(FactoryRows, RecordsThatWereNeverReadGiveNumbersWithoutNames)
{
    const std::vector<std::string> rows = FactoryProgramRows(FactoryTables(), 2);
    EXPECT_EQ(rows[0], "");
    EXPECT_EQ(rows[2], "01 ");
    EXPECT_EQ(FactoryStyleRows(FactoryTables(), 15)[2], "01  ");
}

TEST(FactoryRows, AStyleGroupIsTwoPagesWithBlankRowsAroundTheirHeadings)
{
    const std::vector<std::string> rows = FactoryStyleRows(NumberedTables(), 15);
    ASSERT_EQ(rows.size(), 148U);
    EXPECT_EQ(rows[0], "*Style 002");
    EXPECT_EQ(rows[1], " ");
    EXPECT_EQ(rows[2], "01  Style 003");
    EXPECT_EQ(rows[17], "16  Style 018");
    EXPECT_EQ(rows[18], " ");
    EXPECT_EQ(rows[19], "*Style 019");
    EXPECT_EQ(rows[20], " ");
    EXPECT_EQ(rows[21], "01  Style 020");
    EXPECT_EQ(rows[36], "16  Style 035");
    EXPECT_EQ(rows[37], "*Style 036");
    EXPECT_EQ(rows[38], " ");
    EXPECT_EQ(rows[39], "01  Style 037");
    EXPECT_EQ(rows[147], "16  Style 137");
}

// The first row of each page, as recall knows the pages.
TEST(FactoryRows, ItemsStandWhereRecallLooksForThem)
{
    for (const int kind : {15, 16}) {
        const std::vector<std::string> rows = FactoryStyleRows(NumberedTables(), kind);
        std::vector<bool> item(rows.size());
        int record = kind == 15 ? 2 : 121;
        for (const int first : {2, 21, 39, 58, 76, 95, 113, 132}) {
            EXPECT_EQ(rows.at(static_cast<std::size_t>(first - 2)), "*Style " + Three(record)) << first;
            for (int i = 0; i < 16; ++i) {
                const auto row = static_cast<std::size_t>(first + i);
                EXPECT_EQ(rows.at(row), Three(i + 1).substr(1) + "  Style " + Three(record + 1 + i));
                item.at(row) = true;
            }
            record += 17;
        }
        for (std::size_t row = 0; row < rows.size(); ++row) {
            EXPECT_EQ(rows[row].size() > 3 && rows[row][2] == ' ', item[row]) << row;
        }
    }
}

TEST(FactoryRows, TheSecondStyleListBeginsWithTheLastSeventeenRecordsOfTheFirst)
{
    const std::vector<std::string> first = FactoryStyleRows(NumberedTables(), 15);
    const std::vector<std::string> second = FactoryStyleRows(NumberedTables(), 16);
    ASSERT_EQ(second.size(), 148U);
    EXPECT_EQ(second[0], "*Style 121");
    EXPECT_EQ(second[147], "16  Style 256");
    EXPECT_EQ(std::vector<std::string>(second.begin(), second.begin() + 18), std::vector<std::string>(first.begin() + 130, first.end()));
}

TEST(FactoryRows, AllFifteenAndSixteenCharactersOfAStyleRecordAreShown)
{
    FactoryTables tables = NumberedTables();
    tables.StyTable[2] = "12345SixteenCharacter!!";
    tables.StyTable[3] = "123456FifteenCharacte!!";
    const std::vector<std::string> rows = FactoryStyleRows(tables, 15);
    EXPECT_EQ(rows[0], "SixteenCharacter");
    EXPECT_EQ(rows[2], "01  FifteenCharacte");
}

} // namespace
} // namespace velluto::test
