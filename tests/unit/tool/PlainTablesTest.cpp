// The tables as plain text, both ways.
#include "tool/PlainTables.h"

#include "unit/support/TestProgram.h"
#include "unit/tool/ListReaders.h"

#include <gtest/gtest.h>
#include <sstream>

namespace velluto::tool {
namespace {

// The lines that say something, without remarks.
std::vector<std::string> Said(const std::string &text)
{
    std::vector<std::string> said;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line = line.substr(0, line.find('#'));
        line.erase(line.find_last_not_of(' ') + 1);
        if (!line.empty()) {
            said.push_back(line);
        }
    }
    return said;
}

std::string Replaced(std::string text, const std::string &from, const std::string &to)
{
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return text.replace(at, from.size(), to);
}

class PlainTablesTest : public testing::Test {
protected:
    std::string ProgramsRefused(const std::string &from, const std::string &to)
    {
        return Complaint([&] { return MakePrograms(Replaced(programs, from, to), speaker); });
    }
    std::string StylesRefused(const std::string &from, const std::string &to)
    {
        return Complaint([&] { return MakeStyles(Replaced(styles, from, to), speaker); });
    }

    const Speaker speaker{};
    // As short as they can be: group n, from 0, in line 2n + 1, or of Styles in line 17n + 1.
    const std::string programs = [] {
        std::string text;
        for (const char bank : std::string("AAAABBBCCCDDDEEFF")) {
            text += std::string("group ") + bank + ", Heading\n" + bank + ", Name, 121, 5, 6\n";
        }
        return text;
    }();
    const std::string styles = [] {
        std::string text;
        for (int page = 0; page < kStylePages; ++page) {
            const std::string bank = StylePageName(page);
            text += "group " + bank + ", Page" + bank + "\n";
            for (int style = 0; style < kStylesOnPage; ++style) {
                text += bank + ", Style\n";
            }
        }
        return text;
    }();
};

TEST_F(PlainTablesTest, WhatShipsIsMadeAsItsMakerMakesIt)
{
    EXPECT_EQ(MakePrograms(File(VELLUTO_TABLES "/programs.txt"), speaker).Bytes(), File(VELLUTO_DATA "/Velluto-pcg.txt"));
    EXPECT_EQ(MakeStyles(File(VELLUTO_TABLES "/styles.txt"), speaker).Bytes(), File(VELLUTO_DATA "/Velluto-sty.txt"));
}

TEST_F(PlainTablesTest, WhatIsExportedIsTheSourceItWasMadeOf)
{
    EXPECT_EQ(Said(PlainPrograms(ProgramTable(File(VELLUTO_DATA "/Velluto-pcg.txt")), speaker)),
              Said(File(VELLUTO_TABLES "/programs.txt")));
    EXPECT_EQ(Said(PlainStyles(StyleTable(File(VELLUTO_DATA "/Velluto-sty.txt")), speaker)), Said(File(VELLUTO_TABLES "/styles.txt")));
}

TEST_F(PlainTablesTest, AnyNamesComeBack)
{
    RecordTable table = MakePrograms(programs, speaker);
    table.Put(1, PcgField::Heading, "Piano, #1");
    table.Put(3, PcgField::Name, "a,b#c\"d\"");
    table.Put(4, PcgField::Name, "  blank");
    table.Put(5, PcgField::Name, "Caff\xE8 \x80\x81");
    PutAddress(table, 7, {120, 127, 99}); // no name, an address of its own
    const std::string text = PlainPrograms(table, speaker);
    EXPECT_EQ(MakePrograms(text, speaker).Bytes(), table.Bytes());
    const std::string italian = PlainPrograms(table, Speaker{kItalianBase});
    EXPECT_EQ(MakePrograms(italian, speaker).Bytes(), table.Bytes());
    EXPECT_NE(italian, text);
}

TEST_F(PlainTablesTest, ANameWithControlCharactersStaysOneLine)
{
    RecordTable table = MakePrograms(programs, speaker);
    table.Put(3, PcgField::Name, "a\nb");
    EXPECT_EQ(NameIn(MakePrograms(PlainPrograms(table, speaker), speaker).Record(3), PcgField::Name), "a?b");
}

TEST_F(PlainTablesTest, PlacesWithoutALineHaveTheFirstSoundsNumbers)
{
    const RecordTable table = MakePrograms(Replaced(programs, "A, Name, 121, 5, 6", "A, Thirteen char,0,12,127\r"), speaker);
    EXPECT_EQ(table.Record(1), "  1 Heading                 \r\n");
    EXPECT_EQ(table.Record(3), "  3 Thirteen char  0  12 127\r\n");
    EXPECT_EQ(table.Record(34), " 34                0  12 127\r\n");
    EXPECT_EQ(table.Record(118), "118                         \r\n");
}

TEST_F(PlainTablesTest, MistakesAreToldByTheirLine)
{
    const std::string sound = "A, Name, 121, 5, 6";
    EXPECT_EQ(ProgramsRefused(sound, "A, Fourteen chars, 121, 0, 0"), "2: \"Fourteen chars\" is longer than 13 letters");
    EXPECT_EQ(ProgramsRefused(sound, "A, \xE3\x83\x94, 121, 0, 0"), "2: \"\xE3\x83\x94\" has a letter that the table does not know");
    EXPECT_EQ(ProgramsRefused(sound, "A, N, 128, 0, 0"), "2: \"128\" is no number from 0 to 127");
    EXPECT_EQ(ProgramsRefused(sound, "A, N, 121, 0"), "2: not 5 fields between commas");
    EXPECT_EQ(ProgramsRefused(sound, "A, \"N, 121, 0, 1"), "2: the quotes do not end");
    EXPECT_EQ(ProgramsRefused(sound, "B, N, 121, 0, 1"), "2: not in a group of its bank");
    EXPECT_EQ(ProgramsRefused(sound, ""), "1: this group has 1 to 32 sounds");
    EXPECT_EQ(ProgramsRefused("group A, Heading", ""), "2: not in a group of its bank");
    EXPECT_EQ(ProgramsRefused("Heading", "1st"), "1: a heading begins with a letter");
    EXPECT_EQ(ProgramsRefused("group A, Heading\nA", "group B, Heading\nB"), "1: this group is of bank A");
    EXPECT_EQ(ProgramsRefused("group A, Heading", "group A, x\ngroup A, Heading"), "0: 18 groups, not 17");
    EXPECT_EQ(StylesRefused("1, Style\n", ""), "1: this page has 16 Styles");
    EXPECT_EQ(StylesRefused("1, Style", "1, Sixteen letters!"), "2: \"Sixteen letters!\" is longer than 15 letters");
    EXPECT_EQ(StylesRefused("Page2", "At Home"), "18: a heading has no blank in the third place");
}

} // namespace
} // namespace velluto::tool
