#include "tools/FactoryFiles.h"

#include "tools/SourceLines.h"

#include <array>
#include <string>
#include <string_view>

namespace makers {

namespace {

// ---- records of text

constexpr std::string_view kLineEnd = "\r\n"; // the last two bytes of every record, so that an editor shows one a line
constexpr std::size_t kNumberLength = 3;

std::string RightAligned(int number)
{
    const std::string digits = std::to_string(number);
    return std::string(kNumberLength - digits.size(), ' ') + digits;
}

// A table of records of one length, counted from 1. Each begins with its number, which nobody reads but a person.
class RecordTable {
public:
    RecordTable(int records, std::size_t length) : length_(length), texts_(static_cast<std::size_t>(records) + 1) {}

    // Puts a text at a 1-based position of a record, behind what is there.
    void Put(int record, std::size_t position, std::string_view text)
    {
        std::string &to = texts_.at(static_cast<std::size_t>(record));
        to.resize(position - 1, ' ');
        to += text;
    }
    [[nodiscard]] Bytes AllBytes() const
    {
        Bytes bytes;
        for (std::size_t record = 1; record < texts_.size(); ++record) {
            std::string text = texts_[record];
            text.resize(length_ - kLineEnd.size(), ' ');
            text.replace(0, kNumberLength, RightAligned(static_cast<int>(record)));
            AppendText(bytes, text);
            AppendText(bytes, kLineEnd);
        }
        return bytes;
    }

private:
    std::size_t length_;
    std::vector<std::string> texts_;
};

void ExpectGroups(const std::vector<SourceGroup> &groups, std::size_t count, const std::filesystem::path &source)
{
    if (groups.size() != count) {
        throw SourceError(source.filename().string() + ": " + std::to_string(groups.size()) + " groups, not " + std::to_string(count));
    }
}

void ExpectBank(const SourceGroup &group, std::string_view bank)
{
    if (group.head.Field(0) != bank) {
        group.head.Complain("this group is of bank " + std::string(bank));
    }
}

std::string Heading(const SourceGroup &group, std::size_t longest)
{
    const std::string &heading = group.head.Text(1, longest);
    if (heading.empty() || (heading.front() >= '0' && heading.front() <= '9')) {
        group.head.Complain("a heading begins with a letter");
    }
    return heading;
}

// ---- Programs

constexpr int kProgramRecords = 745;
constexpr std::size_t kProgramRecordLength = 30;
constexpr std::size_t kProgramFields = 5; // bank, name, MSB, LSB, program

// Positions count from 1.
constexpr std::size_t kNamePosition = 5;
constexpr std::size_t kNameLength = 13;
constexpr std::size_t kHeadingLength = 18;
constexpr std::array<std::size_t, 3> kNumberPositions{18, 22, 26};

// The record that holds a group's heading, and those of its places. The other records near a heading keep it apart.
struct ProgramGroup {
    std::string_view bank;
    int heading;
    int first;
    int last;
};

constexpr std::array<ProgramGroup, 17> kProgramGroups = {{
    {"A", 1, 3, 34},
    {"A", 36, 38, 63},
    {"A", 65, 67, 98},
    {"A", 100, 102, 117},
    {"B", 119, 121, 165},
    {"B", 167, 169, 169},
    {"B", 171, 173, 252},
    {"C", 254, 256, 326},
    {"C", 328, 330, 352},
    {"C", 354, 356, 404},
    {"D", 406, 408, 423},
    {"D", 425, 427, 468},
    {"D", 470, 472, 513},
    {"E", 515, 517, 586},
    {"E", 588, 590, 640},
    {"F", 642, 644, 692},
    {"F", 694, 696, 745},
}};

void PutSound(RecordTable &table, int record, std::string_view name, const SourceLine &address)
{
    table.Put(record, kNamePosition, name);
    for (std::size_t i = 0; i < kNumberPositions.size(); ++i) {
        table.Put(record, kNumberPositions[i], RightAligned(address.Number(2 + i)));
    }
}

void PutGroup(RecordTable &table, const ProgramGroup &places, const SourceGroup &group)
{
    ExpectBank(group, places.bank);
    table.Put(places.heading, kNamePosition, Heading(group, kHeadingLength));
    const auto room = static_cast<std::size_t>(places.last - places.first + 1);
    if (group.entries.empty() || group.entries.size() > room) {
        group.head.Complain("this group has 1 to " + std::to_string(room) + " sounds");
    }
    int record = places.first;
    for (const SourceLine &sound : group.entries) {
        PutSound(table, record++, sound.Text(1, kNameLength), sound);
    }
    while (record <= places.last) {
        PutSound(table, record++, {}, group.entries.front());
    }
}

// ---- Styles

constexpr int kStyleRecords = 271;
constexpr std::size_t kStyleRecordLength = 23;
constexpr std::size_t kStyleFields = 2; // bank, name
constexpr std::size_t kStyleHeadingPosition = 6;
constexpr std::size_t kStyleHeadingLength = 16;
constexpr std::size_t kStyleNamePosition = 7;
constexpr std::size_t kStyleNameLength = 15;
constexpr int kFirstStyleRecord = 2;
constexpr std::size_t kStylesOnPage = 16;

// The page of banks 8 and 9 is in both lists.
constexpr std::array<std::string_view, 15> kStylePages = {"1",  "2",  "3",  "4",  "5",  "6",  "7", "8/9",
                                                          "10", "11", "12", "13", "14", "15", "16"};

// ---- Performances

constexpr std::size_t kPerformanceBanks = 10;
constexpr std::size_t kPerformanceFields = 2; // bank, name
constexpr std::size_t kPerformancesInBank = 8;
constexpr std::size_t kItemNameLength = 16;

std::vector<Item> PerformancesOf(const SourceGroup &group)
{
    std::vector<Item> items;
    for (const SourceLine &line : group.entries) {
        Item item;
        item.name = line.Text(1, kItemNameLength);
        item.name.resize(kItemNameLength, '\0');
        item.place = static_cast<std::uint8_t>(items.size());
        items.push_back(item);
    }
    return items;
}

} // namespace

MadeFile MakeProgramTable(const std::filesystem::path &source)
{
    const std::vector<SourceGroup> groups = ReadGroups(source, kProgramFields);
    ExpectGroups(groups, kProgramGroups.size(), source);
    RecordTable table(kProgramRecords, kProgramRecordLength);
    for (std::size_t i = 0; i < kProgramGroups.size(); ++i) {
        PutGroup(table, kProgramGroups[i], groups[i]);
    }
    return {"Velluto-pcg.txt", table.AllBytes()};
}

MadeFile MakeStyleTable(const std::filesystem::path &source)
{
    const std::vector<SourceGroup> groups = ReadGroups(source, kStyleFields);
    ExpectGroups(groups, kStylePages.size(), source);
    RecordTable table(kStyleRecords, kStyleRecordLength);
    int record = kFirstStyleRecord;
    for (std::size_t page = 0; page < kStylePages.size(); ++page) {
        const SourceGroup &group = groups[page];
        ExpectBank(group, kStylePages[page]);
        const std::string heading = Heading(group, kStyleHeadingLength);
        if (heading.size() > 2 && heading[2] == ' ') {
            group.head.Complain("a heading has no blank in the third place, by which a click would take it for a Style");
        }
        table.Put(record++, kStyleHeadingPosition, heading);
        if (group.entries.size() != kStylesOnPage) {
            group.head.Complain("this page has 16 Styles");
        }
        for (const SourceLine &style : group.entries) {
            table.Put(record++, kStyleNamePosition, style.Text(1, kStyleNameLength));
        }
    }
    return {"Velluto-sty.txt", table.AllBytes()};
}

std::vector<MadeFile> MakePerformanceBanks(const std::filesystem::path &source)
{
    const std::vector<SourceGroup> groups = ReadGroups(source, kPerformanceFields);
    ExpectGroups(groups, kPerformanceBanks, source);
    std::vector<MadeFile> files;
    for (const SourceGroup &group : groups) {
        const std::string bank = std::to_string(files.size() + 1);
        ExpectBank(group, bank);
        if (group.entries.size() != kPerformancesInBank) {
            group.head.Complain("this bank has 8 Performances");
        }
        files.push_back({"Velluto-Bank" + std::string(bank.size() < 2 ? "0" : "") + bank + ".prf", MakeKorfFile(PerformancesOf(group))});
    }
    return files;
}

} // namespace makers
