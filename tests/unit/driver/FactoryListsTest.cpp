// The tables and banks that ship with the program: every row of the eight factory lists is clicked, and what goes out is
// held against the table's own bytes and against General MIDI level 2.
#include "GeneralMidi2.h"
#include "unit/driver/DriverTest.h"

#include <map>
#include <set>

namespace velluto::driver {
namespace {

constexpr int kPcgRecords = 745;
constexpr int kPcgLength = 30;
constexpr int kStyRecords = 271;
constexpr int kStyLength = 23;

std::string Data(const std::string &name)
{
    return std::string(VELLUTO_DATA) + "/" + name;
}

std::string FileText(const std::string &path)
{
    const test::Bytes bytes = test::ReadBytes(path);
    return {bytes.begin(), bytes.end()};
}

std::string Trimmed(std::string text)
{
    text.erase(text.find_last_not_of(' ') + 1);
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return text;
}

std::string TwoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// A sound as the table has it.
struct Sound {
    std::string name;
    int msb;
    int lsb;
    int program;
};

// A group of the panel: the record of its heading and those of its places.
struct Group {
    char bank;
    const char *heading;
    int record;
    int first;
    int last;
};
const std::vector<Group> kGroups{
    {'A', "Piano", 1, 3, 34},          {'A', "E.Piano", 36, 38, 63},          {'A', "Mallet/Bell", 65, 67, 98},
    {'A', "Accordion", 100, 102, 117}, {'B', "Organ", 119, 121, 165},         {'B', "Digital Drawbars", 167, 169, 169},
    {'B', "Guitar", 171, 173, 252},    {'C', "String/Vocals", 254, 256, 326}, {'C', "Trumpet/Trombone", 328, 330, 352},
    {'C', "Brass", 354, 356, 404},     {'D', "Sax", 406, 408, 423},           {'D', "Woodwind", 425, 427, 468},
    {'D', "Synth 1", 470, 472, 513},   {'E', "Synth 2", 515, 517, 586},       {'E', "Bass", 588, 590, 640},
    {'F', "Drum/Perc", 642, 644, 692}, {'F', "SFX", 694, 696, 745},
};

class FactoryListsTest : public DriverTest {
protected:
    void SetUp() override
    {
        for (const char *name : {"Velluto-pcg.txt", "Velluto-sty.txt"}) {
            std::filesystem::copy_file(Data(name), name);
        }
        Ok("device out One");
        Ok("device in One");
        Ok("start en");
        Ok("menu mnuDevMIDIOut(0)");
        Ok("sent");
    }
    static std::string Record(int number) { return kPrograms.substr(static_cast<std::size_t>(number - 1) * kPcgLength, kPcgLength); }
    static Sound SoundAt(int number)
    {
        const std::string record = Record(number);
        return {Trimmed(record.substr(4, 13)), std::stoi(record.substr(17, 3)), std::stoi(record.substr(21, 3)),
                std::stoi(record.substr(25, 3))};
    }
    static const Group *GroupOf(int record)
    {
        const auto found =
            std::ranges::find_if(kGroups, [record](const Group &group) { return record >= group.first && record <= group.last; });
        return found == kGroups.end() ? nullptr : &*found;
    }
    std::vector<std::string> RowsOf(const std::string &window)
    {
        return Ok("show " + window + " List1").at("controls").at("List1").at("rows").get<std::vector<std::string>>();
    }
    Json SentBy(const std::string &window, std::size_t row)
    {
        Ok("click " + window + " List1 " + std::to_string(row));
        return Ok("sent").at("messages");
    }

    inline static const std::string kPrograms = FileText(Data("Velluto-pcg.txt"));
    inline static const std::string kStyles = FileText(Data("Velluto-sty.txt"));
};

TEST_F(FactoryListsTest, EachRecordIsALineOfText)
{
    ASSERT_EQ(kPrograms.size(), static_cast<std::size_t>(kPcgRecords) * kPcgLength);
    ASSERT_EQ(kStyles.size(), static_cast<std::size_t>(kStyRecords) * kStyLength);
    for (const auto &[text, length] : {std::pair(kPrograms, kPcgLength), std::pair(kStyles, kStyLength)}) {
        for (std::size_t at = 0; at < text.size(); at += static_cast<std::size_t>(length)) {
            const std::string record = text.substr(at, static_cast<std::size_t>(length));
            EXPECT_EQ(record.substr(record.size() - 2), "\r\n");
            EXPECT_TRUE(std::ranges::all_of(record.substr(0, record.size() - 2), [](char c) { return c >= ' ' && c <= '~'; })) << record;
        }
    }
}

TEST_F(FactoryListsTest, TheGroupsStandUnderTheirHeadings)
{
    std::map<int, std::string> headings;
    for (const Group &group : kGroups) {
        headings[group.record] = group.heading;
    }
    for (int record = 1; record <= kPcgRecords; ++record) {
        if (GroupOf(record) == nullptr) {
            EXPECT_EQ(Trimmed(Record(record).substr(4, 24)), headings[record]) << record;
        }
    }
}

TEST_F(FactoryListsTest, EveryRowOfTheSixBanksSelectsWhatItsRecordSays)
{
    const struct {
        char bank;
        int first;
        int last;
    } banks[] = {{'A', 1, 117}, {'B', 119, 252}, {'C', 254, 404}, {'D', 406, 513}, {'E', 515, 640}, {'F', 642, 745}};
    for (const auto &bank : banks) {
        const std::string window = "frmBank117(" + std::to_string(bank.bank - 'A' + 2) + ")";
        Ok(std::string("menu mnuBank") + bank.bank);
        const std::vector<std::string> rows = RowsOf(window);
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(bank.last - bank.first + 1));
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const int record = bank.first + static_cast<int>(row);
            const Group *group = GroupOf(record);
            if (group == nullptr) {
                EXPECT_EQ(rows[row], Record(record).substr(4, 18));
                EXPECT_EQ(SentBy(window, row), Json::array()) << record;
                continue;
            }
            EXPECT_EQ(group->bank, bank.bank);
            EXPECT_EQ(rows[row], TwoDigits(record - group->first + 1) + " " + Record(record).substr(4, 13));
            const Sound sound = SoundAt(record);
            EXPECT_EQ(SentBy(window, row), Json::parse("[[176,0," + std::to_string(sound.msb) + "],[176,32," + std::to_string(sound.lsb) +
                                                       "],[192," + std::to_string(sound.program) + "]]"))
                << record;
        }
    }
}

// What a row of a Style list is, told from where it lies in its group of 37 rows.
struct StyleRow {
    int record = 0; // 0: a blank row
    int bank = 0;   // 1 to 16
    int number = 0; // 1 to 16; 0 in a heading
};

StyleRow StyleRowAt(int list, int row)
{
    const int group = row / 37;
    const int in = row % 37;
    const int record = (list == 1 ? 2 : 121) + 34 * group;
    const int bank = 8 * (list - 1) + 2 * group + 1;
    if (in == 0 || in == 19) {
        return {record + (in == 0 ? 0 : 17), bank + (in == 0 ? 0 : 1), 0};
    }
    if (in >= 2 && in <= 17) {
        return {record + in - 1, bank, in - 1};
    }
    return in >= 21 ? StyleRow{record + in - 3, bank + 1, in - 20} : StyleRow{};
}

TEST_F(FactoryListsTest, EveryRowOfTheTwoStyleListsSelectsItsPlace)
{
    for (const int list : {1, 2}) {
        const std::string window = "frmSty(" + std::to_string(list) + ")";
        Ok("menu mnuSty(" + std::to_string(list) + ")");
        const std::vector<std::string> rows = RowsOf(window);
        ASSERT_EQ(rows.size(), 148U);
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const StyleRow style = StyleRowAt(list, static_cast<int>(row));
            const Json sent = SentBy(window, row);
            if (style.number == 0) {
                EXPECT_EQ(sent, Json::array()) << window << row;
            } else {
                EXPECT_EQ(sent, Json::parse("[[177,0,0],[177,32," + std::to_string(style.bank - 1) + "],[193," +
                                            std::to_string(style.number - 1) + "]]"))
                    << window << row;
            }
        }
    }
}

// Banks 8 and 9 share their records, so that these have to speak of both.
TEST_F(FactoryListsTest, WhatAStyleRowSaysIsTrueInItsList)
{
    for (const int list : {1, 2}) {
        Ok("menu mnuSty(" + std::to_string(list) + ")");
        const std::vector<std::string> rows = RowsOf("frmSty(" + std::to_string(list) + ")");
        for (std::size_t row = 0; row < rows.size(); ++row) {
            const StyleRow style = StyleRowAt(list, static_cast<int>(row));
            const bool shared = style.bank == 8 || style.bank == 9;
            if (style.record == 0) {
                EXPECT_EQ(rows[row], " ");
            } else if (style.number == 0) {
                EXPECT_EQ(rows[row], shared ? "Style 8 / 9" : "Style " + std::to_string(style.bank));
            } else {
                const std::string number = TwoDigits(style.number);
                EXPECT_EQ(rows[row], number + "  Style " + (shared ? "8/9" : std::to_string(style.bank)) + "-" + number);
                EXPECT_EQ(Trimmed(kStyles.substr(static_cast<std::size_t>(style.record - 1) * kStyLength + 6, 15)), rows[row].substr(4));
            }
        }
    }
}

// The full name of each sound in the source table, behind the "#", by its address.
std::map<std::vector<int>, std::vector<std::string>> SourceNames()
{
    std::map<std::vector<int>, std::vector<std::string>> names;
    std::ifstream in(VELLUTO_TABLES "/programs.txt");
    for (std::string line; std::getline(in, line);) {
        std::vector<std::string> fields;
        std::stringstream parts(line.substr(0, line.find('#')));
        for (std::string field; std::getline(parts, field, ',');) {
            fields.push_back(Trimmed(field));
        }
        if (fields.size() == 5 && !line.starts_with("#") && !fields[1].empty()) {
            names[{std::stoi(fields[2]), std::stoi(fields[3]), std::stoi(fields[4])}] = {fields[1],
                                                                                         Trimmed(line.substr(line.find('#') + 1))};
        }
    }
    return names;
}

TEST_F(FactoryListsTest, The256SoundsOfGeneralMidi2AreThereOneByOne)
{
    std::map<std::vector<int>, std::vector<std::string>> table; // names by address
    for (int record = 1; record <= kPcgRecords; ++record) {
        if (GroupOf(record) != nullptr && !SoundAt(record).name.empty()) {
            const Sound sound = SoundAt(record);
            table[{sound.msb, sound.lsb, sound.program}].push_back(sound.name);
        }
    }
    auto source = SourceNames();
    int sounds = 0;
    ASSERT_EQ(kGeneralMidi2.size(), 128U);
    for (std::size_t program = 0; program < kGeneralMidi2.size(); ++program) {
        const std::vector<std::string> &variations = kGeneralMidi2[program];
        for (std::size_t lsb = 0; lsb < variations.size(); ++lsb, ++sounds) {
            const std::vector<int> address{121, static_cast<int>(lsb), static_cast<int>(program)};
            ASSERT_EQ(source.count(address), 1U) << variations[lsb];
            EXPECT_EQ(source[address][1], variations[lsb]);
            EXPECT_EQ(table[address], std::vector<std::string>{source[address][0]}) << variations[lsb];
            table.erase(address);
        }
    }
    EXPECT_EQ(sounds, 256);
    // What is left are the drum kits.
    const std::map<std::vector<int>, std::vector<std::string>> kits{
        {{120, 0, 0}, {"Standard Kit"}},  {{120, 0, 8}, {"Room Kit"}},       {{120, 0, 16}, {"Power Kit"}},
        {{120, 0, 24}, {"Electron.Kit"}}, {{120, 0, 25}, {"Analog Kit"}},    {{120, 0, 32}, {"Jazz Kit"}},
        {{120, 0, 40}, {"Brush Kit"}},    {{120, 0, 48}, {"Orchestra Kit"}}, {{120, 0, 56}, {"SFX Kit"}}};
    EXPECT_EQ(table, kits);
}

// Programs by family, as the panel's groups take them.
TEST_F(FactoryListsTest, EachSoundStandsInItsGroup)
{
    const std::map<std::string, std::set<int>> programs{
        {"Piano", {0, 1, 2, 3, 6}},
        {"E.Piano", {4, 5, 7}},
        {"Mallet/Bell", {8, 9, 10, 11, 12, 13, 14, 15, 108, 112, 114}},
        {"Accordion", {21, 22, 23}},
        {"Organ", {16, 17, 18, 19, 20}},
        {"Digital Drawbars", {}},
        {"Guitar", {24, 25, 26, 27, 28, 29, 30, 31, 104, 105, 106, 107}},
        {"String/Vocals", {40, 41, 42, 43, 44, 45, 46, 48, 49, 50, 51, 52, 53, 54, 55, 110}},
        {"Trumpet/Trombone", {56, 57, 59}},
        {"Brass", {58, 60, 61, 62, 63}},
        {"Sax", {64, 65, 66, 67}},
        {"Woodwind", {68, 69, 70, 71, 72, 73, 74, 75, 76, 77, 78, 79, 109, 111}},
        {"Synth 1", {80, 81, 82, 83, 84, 85, 86, 87}},
        {"Synth 2", {88, 89, 90, 91, 92, 93, 94, 95, 96, 97, 98, 99, 100, 101, 102, 103}},
        {"Bass", {32, 33, 34, 35, 36, 37, 38, 39}},
        {"Drum/Perc", {47, 113, 115, 116, 117, 118, 119}},
        {"SFX", {120, 121, 122, 123, 124, 125, 126, 127}},
    };
    for (const Group &group : kGroups) {
        std::set<int> found;
        for (int record = group.first; record <= group.last; ++record) {
            const Sound sound = SoundAt(record);
            if (!sound.name.empty() && sound.msb == 121) {
                found.insert(sound.program);
            } else if (!sound.name.empty()) {
                EXPECT_STREQ(group.heading, "Drum/Perc") << sound.name;
            }
        }
        EXPECT_EQ(found, programs.at(group.heading)) << group.heading;
    }
}

TEST_F(FactoryListsTest, APlaceWithoutANameHasTheAddressOfItsGroupsFirstSound)
{
    for (const Group &group : kGroups) {
        const Sound first = SoundAt(group.first);
        bool left = false;
        for (int record = group.first; record <= group.last; ++record) {
            const Sound sound = SoundAt(record);
            EXPECT_FALSE(left && !sound.name.empty()) << "named places come first: " << record;
            left = sound.name.empty();
            if (left) {
                EXPECT_EQ((std::vector<int>{sound.msb, sound.lsb, sound.program}), (std::vector<int>{first.msb, first.lsb, first.program}))
                    << record;
            }
        }
    }
    // The one group of which nothing is known borrows the first sound of the organs.
    EXPECT_EQ(SoundAt(169).name, "");
    EXPECT_EQ((std::vector<int>{SoundAt(169).msb, SoundAt(169).lsb, SoundAt(169).program}), (std::vector<int>{121, 0, 16}));
}

TEST_F(FactoryListsTest, TheTenPerformanceBanksAreValidFilesThatSayWhatTheyAre)
{
    for (int bank = 1; bank <= 10; ++bank) {
        const std::string name = "Velluto-Bank" + TwoDigits(bank) + ".prf";
        std::filesystem::copy_file(Data(name), name);
        Ok("menu mnuPrfUser(" + std::to_string(bank) + ")");
        const std::string window = "frmPrfUN(" + std::to_string(bank + 8) + ")";
        std::vector<std::string> rows;
        for (int place = 1; place <= 8; ++place) {
            rows.push_back(" " + std::to_string(place) + " Placeholder " + TwoDigits(bank) + "-" + std::to_string(place));
        }
        EXPECT_EQ(RowsOf(window), rows);
        // 36 of head, 8 entries, no bodies, and the index.
        EXPECT_EQ(Ok("tag " + window).at("length"), 36 + 8 * 24 + 24 + 8 * 4);
    }
    Ok("menu mnuPrfUserAll");
    EXPECT_EQ(Ok("show frmPrfUserAll").at("controls").at("List1(10)").at("rows").at(7), "8 Placeholder 10-8");
    EXPECT_EQ(Ok("boxes").at("boxes"), Json::array());
}

} // namespace
} // namespace velluto::driver
