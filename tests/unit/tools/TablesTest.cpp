// What make-tables makes of its sources, and what it says of a source with a mistake in it.
#include "tools/FactoryFiles.h"
#include "tools/SourceLines.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

namespace makers {
namespace {

using velluto::test::TempFolder;

// Sources as small as they can be; each group takes lines of its own, so that complaints can be told by their line.

// Group n (from 0) is in line 2n + 1 and its only sound in line 2n + 2.
std::string Programs()
{
    std::string text;
    for (const char bank : std::string("AAAABBBCCCDDDEEFF")) {
        text += std::string("group ") + bank + ", Heading\n" + bank + ", Name, 121, 5, 6\n";
    }
    return text;
}

// Page n (from 0) is in line 17n + 1.
std::string Styles()
{
    std::string text;
    for (const char *bank : {"1", "2", "3", "4", "5", "6", "7", "8/9", "10", "11", "12", "13", "14", "15", "16"}) {
        text += std::string("group ") + bank + ", Page " + bank + "\n";
        for (int style = 0; style < 16; ++style) {
            text += std::string(bank) + ", Style\n";
        }
    }
    return text;
}

// Bank n (from 1) is in line 9n - 8.
std::string Performances()
{
    std::string text;
    for (int bank = 1; bank <= 10; ++bank) {
        text += "group " + std::to_string(bank) + "\n";
        for (int place = 0; place < 8; ++place) {
            text += std::to_string(bank) + ", Name\n";
        }
    }
    return text;
}

class TablesTest : public testing::Test {
protected:
    std::filesystem::path Put(const std::string &name, const std::string &text)
    {
        velluto::test::WriteBytes(folder_.At(name), velluto::test::Bytes(text.begin(), text.end()));
        return folder_.At(name);
    }
    // The text as a file, its first `from` replaced.
    std::filesystem::path Changed(const std::string &name, std::string text, const std::string &from, const std::string &to)
    {
        const auto at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return Put(name, text.replace(at, from.size(), to));
    }
    static std::string Text(const MadeFile &file, std::size_t record, std::size_t length)
    {
        const auto first = file.bytes.begin() + static_cast<std::ptrdiff_t>((record - 1) * length);
        return {first, first + static_cast<std::ptrdiff_t>(length)};
    }
    template <class Make>
    static std::string Complaint(Make make)
    {
        try {
            (void)make();
        } catch (const SourceError &error) {
            return error.what();
        }
        return "none";
    }
    std::string ProgramsComplaint(const std::string &from, const std::string &to)
    {
        return Complaint([&] { return MakeProgramTable(Changed("p.txt", Programs(), from, to)); });
    }
    std::string StylesComplaint(const std::string &from, const std::string &to)
    {
        return Complaint([&] { return MakeStyleTable(Changed("s.txt", Styles(), from, to)); });
    }
    std::string PerformancesComplaint(const std::string &from, const std::string &to)
    {
        return Complaint([&] { return MakePerformanceBanks(Changed("f.txt", Performances(), from, to)); });
    }

private:
    TempFolder folder_;
};

TEST_F(TablesTest, ASoundStandsInItsRecordAndTheRestOfItsGroupHasItsAddress)
{
    const MadeFile table = MakeProgramTable(Changed("p.txt", Programs(), "A, Name,", "A, The thirteen,0,12,127\nA, Name,"));
    EXPECT_EQ(table.name, "Velluto-pcg.txt");
    EXPECT_EQ(table.bytes.size(), 745U * 30);
    EXPECT_EQ(Text(table, 1, 30), "  1 Heading                 \r\n");
    EXPECT_EQ(Text(table, 2, 30), "  2                         \r\n");
    EXPECT_EQ(Text(table, 3, 30), "  3 The thirteen   0  12 127\r\n");
    EXPECT_EQ(Text(table, 4, 30), "  4 Name         121   5   6\r\n");
    EXPECT_EQ(Text(table, 5, 30), "  5                0  12 127\r\n");
    EXPECT_EQ(Text(table, 34, 30), " 34                0  12 127\r\n");
    EXPECT_EQ(Text(table, 35, 30), " 35                         \r\n");
    EXPECT_EQ(Text(table, 36, 30), " 36 Heading                 \r\n");
    EXPECT_EQ(Text(table, 118, 30), "118                         \r\n");
    EXPECT_EQ(Text(table, 169, 30), "169 Name         121   5   6\r\n");
    EXPECT_EQ(Text(table, 745, 30), "745              121   5   6\r\n");
}

TEST_F(TablesTest, TheLongestNamesFit)
{
    const MadeFile table = MakeProgramTable(Changed("p.txt", Programs(), "Heading\nA, Name", "Eighteen charactrs\nA, Thirteen char"));
    EXPECT_EQ(Text(table, 1, 30), "  1 Eighteen charactrs      \r\n");
    EXPECT_EQ(Text(table, 3, 30), "  3 Thirteen char121   5   6\r\n");
}

TEST_F(TablesTest, AStyleIsInItsRecord)
{
    const MadeFile table = MakeStyleTable(Changed("s.txt", Styles(), "Page 1\n1, Style", "Sixteen characts\n1, Fifteen letters"));
    EXPECT_EQ(table.name, "Velluto-sty.txt");
    EXPECT_EQ(table.bytes.size(), 271U * 23);
    EXPECT_EQ(Text(table, 1, 23), "  1                  \r\n");
    EXPECT_EQ(Text(table, 2, 23), "  2  Sixteen characts\r\n");
    EXPECT_EQ(Text(table, 3, 23), "  3   Fifteen letters\r\n");
    EXPECT_EQ(Text(table, 4, 23), "  4   Style          \r\n");
    EXPECT_EQ(Text(table, 121, 23), "121  Page 8/9        \r\n");
    EXPECT_EQ(Text(table, 240, 23), "240  Page 16         \r\n");
    EXPECT_EQ(Text(table, 256, 23), "256   Style          \r\n");
    EXPECT_EQ(Text(table, 257, 23), "257                  \r\n");
}

TEST_F(TablesTest, APerformanceIsInItsBanksFileWithABodyOfNoBytes)
{
    const std::vector<MadeFile> banks = MakePerformanceBanks(Changed("f.txt", Performances(), "10, Name", "10, Mine"));
    ASSERT_EQ(banks.size(), 10U);
    EXPECT_EQ(banks[0].name, "Velluto-Bank01.prf");
    EXPECT_EQ(banks[9].name, "Velluto-Bank10.prf");
    ASSERT_EQ(banks[9].bytes.size(), 36U + 8 * 24 + 24 + 8 * 4);
    const auto entry = banks[9].bytes.begin() + 36;
    EXPECT_EQ(std::string(entry, entry + 24), "Mine" + std::string(20, '\0'));
    EXPECT_EQ(std::string(entry + 7 * 24, entry + 8 * 24), "Name" + std::string(16, '\0') + '\x07' + std::string(3, '\0'));
}

TEST_F(TablesTest, MistakesInASoundAreToldByTheirLine)
{
    const std::string sound = "A, Name, 121, 5, 6";
    EXPECT_EQ(ProgramsComplaint(sound, "A, Fourteen chars, 121, 0, 0"), "p.txt:2: \"Fourteen chars\" is longer than 13 characters");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Pi\xC3\xA9no, 121, 0, 0"), "p.txt:2: \"Pi\xC3\xA9no\" is not plain ASCII");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Piano, 128, 0, 0"), "p.txt:2: \"128\" is no number from 0 to 127");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Piano, 121, -1, 0"), "p.txt:2: \"-1\" is no number from 0 to 127");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Piano, 121, 0, 1x"), "p.txt:2: \"1x\" is no number from 0 to 127");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Piano, 121, 0,"), "p.txt:2: \"\" is no number from 0 to 127");
    EXPECT_EQ(ProgramsComplaint(sound, "A, Piano, 121, 0"), "p.txt:2: not 5 fields between commas");
    EXPECT_EQ(ProgramsComplaint(sound, "B, Piano, 121, 0, 0"), "p.txt:2: not in a group of its bank");
}

TEST_F(TablesTest, MistakesInAGroupAreToldByItsLine)
{
    EXPECT_EQ(ProgramsComplaint("group A, Heading", ""), "p.txt:2: not in a group of its bank");
    EXPECT_EQ(ProgramsComplaint("Heading", "1 Heading"), "p.txt:1: a heading begins with a letter");
    EXPECT_EQ(ProgramsComplaint(", Heading", ""), "p.txt:1: a heading begins with a letter");
    EXPECT_EQ(ProgramsComplaint("Heading", "Nineteen characters"), "p.txt:1: \"Nineteen characters\" is longer than 18 characters");
    EXPECT_EQ(ProgramsComplaint("group A, Heading", "group A, Heading\ngroup A, Heading"), "p.txt: 18 groups, not 17");
    EXPECT_EQ(ProgramsComplaint("A, Name, 121, 5, 6", ""), "p.txt:1: this group has 1 to 32 sounds");
    // Only one place: the second group of bank B, in line 11.
    const std::string sound = "B, Name, 121, 5, 6\n";
    EXPECT_EQ(
        ProgramsComplaint("group B, Heading\n" + sound + "group B, Heading\n", "group B, Heading\n" + sound + "group B, Heading\n" + sound),
        "p.txt:11: this group has 1 to 1 sounds");
    EXPECT_EQ(ProgramsComplaint("group A, Heading\nA", "group B, Heading\nB"), "p.txt:1: this group is of bank A");
}

TEST_F(TablesTest, MistakesInStylesAndPerformancesAreTold)
{
    EXPECT_EQ(StylesComplaint("1, Style\n", ""), "s.txt:1: this page has 16 Styles");
    EXPECT_EQ(StylesComplaint("1, Style", "1, Sixteen letters!"), "s.txt:2: \"Sixteen letters!\" is longer than 15 characters");
    EXPECT_EQ(StylesComplaint("Page 2", "At Home"),
              "s.txt:18: a heading has no blank in the third place, by which a click would take it for a Style");
    EXPECT_EQ(PerformancesComplaint("1, Name\n", ""), "f.txt:1: this bank has 8 Performances");
    EXPECT_EQ(PerformancesComplaint("2, Name", "2, Seventeen letters"), "f.txt:11: \"Seventeen letters\" is longer than 16 characters");
}

TEST_F(TablesTest, ASourceThatIsNotThereIsTold)
{
    EXPECT_EQ(Complaint([] { return MakeStyleTable("/nowhere/styles.txt"); }), "/nowhere/styles.txt: cannot be read");
}

TEST_F(TablesTest, LineEndsOfEitherKindAndRemarksCount)
{
    const std::vector<SourceGroup> groups = ReadGroups(Put("any.txt", "# one\r\n\r\ngroup A, Two # three\r\nA, four ,\t5 # six\r\n"), 3);
    ASSERT_EQ(groups.size(), 1U);
    EXPECT_EQ(groups[0].head.fields, (std::vector<std::string>{"A", "Two"}));
    ASSERT_EQ(groups[0].entries.size(), 1U);
    EXPECT_EQ(groups[0].entries[0].fields, (std::vector<std::string>{"A", "four", "5"}));
    EXPECT_EQ(groups[0].entries[0].where, "any.txt:4");
}

} // namespace
} // namespace makers
