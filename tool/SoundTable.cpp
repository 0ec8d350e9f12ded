#include "tool/SoundTable.h"

#include "app/FixedText.h"
#include "banks/FactoryTables.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velluto::tool {

namespace {

constexpr int kNumberWidth = 3;
constexpr RecordField kRecordNumber{1, kNumberWidth};
constexpr int kSevenBits = 0x7F;
constexpr int kMsbKits = 120; // General MIDI level 2
constexpr int kPageRecords = kStylesOnPage + 1;
constexpr int kSharedPage = 7;

RecordTable Empty(int records, int length)
{
    RecordTable table({}, records, length);
    for (int record = 1; record <= records; ++record) {
        table.PutNumber(record, kRecordNumber, record);
        table.Put(record, {static_cast<std::size_t>(length - 1), 2}, "\r\n");
    }
    return table;
}

std::vector<SoundGroup> MakeGroups()
{
    std::vector<SoundGroup> groups;
    char letter = 'A';
    for (const FactoryBank &bank : kFactoryBanks) {
        for (const RecordRange &heading : bank.headings) {
            if (heading.last < heading.first) {
                continue;
            }
            // Of two heading records the first, of three the middle one has the text.
            groups.push_back({letter, (heading.first + heading.last) / 2, {heading.last + 1, bank.records.last}});
            if (groups.size() > 1 && groups[groups.size() - 2].bank == letter) {
                groups[groups.size() - 2].sounds.last = heading.first - 1;
            }
        }
        ++letter;
    }
    return groups;
}

// From this program on, the group of the panel, as SoundGroups counts.
struct Family {
    int first;
    std::size_t group;
};
namespace Group {
constexpr std::size_t Piano = 0;
constexpr std::size_t EPiano = 1;
constexpr std::size_t Mallet = 2;
constexpr std::size_t Accordion = 3;
constexpr std::size_t Organ = 4;
constexpr std::size_t Guitar = 6;
constexpr std::size_t Strings = 7;
constexpr std::size_t Trumpet = 8;
constexpr std::size_t Brass = 9;
constexpr std::size_t Sax = 10;
constexpr std::size_t Woodwind = 11;
constexpr std::size_t Synth1 = 12;
constexpr std::size_t Synth2 = 13;
constexpr std::size_t Bass = 14;
constexpr std::size_t Drums = 15;
constexpr std::size_t Effects = 16;
} // namespace Group
constexpr std::array<Family, 29> kFamilies{{
    {0, Group::Piano},      {4, Group::EPiano},   {6, Group::Piano},    {7, Group::EPiano},   {8, Group::Mallet},     {16, Group::Organ},
    {21, Group::Accordion}, {24, Group::Guitar},  {32, Group::Bass},    {40, Group::Strings}, {47, Group::Drums},     {48, Group::Strings},
    {56, Group::Trumpet},   {58, Group::Brass},   {59, Group::Trumpet}, {60, Group::Brass},   {64, Group::Sax},       {68, Group::Woodwind},
    {80, Group::Synth1},    {88, Group::Synth2},  {104, Group::Guitar}, {108, Group::Mallet}, {109, Group::Woodwind}, {110, Group::Strings},
    {111, Group::Woodwind}, {112, Group::Mallet}, {113, Group::Drums},  {114, Group::Mallet}, {115, Group::Drums},
}};
constexpr int kFirstEffect = 120;

} // namespace

RecordTable::RecordTable(std::string bytes, int records, int length) : bytes_(std::move(bytes)), length_(static_cast<std::size_t>(length))
{
    bytes_.resize(std::max(bytes_.size(), static_cast<std::size_t>(records) * length_), ' ');
}

std::string_view RecordTable::Record(int number) const
{
    return std::string_view(bytes_).substr(static_cast<std::size_t>(number - 1) * length_, length_);
}

void RecordTable::Put(int number, RecordField field, std::string_view text)
{
    std::string filled(text.substr(0, field.width));
    filled.resize(field.width, ' ');
    bytes_.replace(static_cast<std::size_t>(number - 1) * length_ + field.position - 1, field.width, filled);
}

void RecordTable::PutNumber(int number, RecordField field, int value)
{
    const std::string digits = std::to_string(value);
    Put(number, field, std::string(field.width - std::min(digits.size(), field.width), ' ') + digits);
}

RecordTable ProgramTable(std::string bytes)
{
    return {std::move(bytes), kPcgTableRecords, kPcgTableRecordLength};
}

RecordTable StyleTable(std::string bytes)
{
    return {std::move(bytes), kStyTableRecords, kStyTableRecordLength};
}

RecordTable EmptyProgramTable()
{
    return Empty(kPcgTableRecords, kPcgTableRecordLength);
}

RecordTable EmptyStyleTable()
{
    return Empty(kStyTableRecords, kStyTableRecordLength);
}

SoundAddress AddressOf(std::string_view record)
{
    return {NumberIn(record, PcgField::Msb) & kSevenBits, NumberIn(record, PcgField::Lsb) & kSevenBits,
            NumberIn(record, PcgField::Program) & kSevenBits};
}

bool HasAddress(std::string_view record)
{
    return std::ranges::any_of(std::array{PcgField::Msb, PcgField::Lsb, PcgField::Program}, [&](RecordField field) {
        return Field(record, field).find_first_of("0123456789") != std::string_view::npos;
    });
}

void PutAddress(RecordTable &table, int record, const SoundAddress &address)
{
    table.PutNumber(record, PcgField::Msb, address.msb);
    table.PutNumber(record, PcgField::Lsb, address.lsb);
    table.PutNumber(record, PcgField::Program, address.program);
}

std::string_view NameIn(std::string_view record, RecordField field)
{
    return RightTrimmed(Field(record, field));
}

const std::vector<SoundGroup> &SoundGroups()
{
    static const std::vector<SoundGroup> kGroups = MakeGroups();
    return kGroups;
}

std::size_t GroupOf(const SoundAddress &address, bool isKit)
{
    if (isKit || address.msb == kMsbKits) {
        return Group::Drums;
    }
    if (address.program >= kFirstEffect) {
        return Group::Effects;
    }
    const auto *const next = std::ranges::upper_bound(kFamilies, address.program, {}, &Family::first);
    return std::prev(next)->group;
}

std::string StylePageName(int page)
{
    if (page == kSharedPage) {
        return "8/9";
    }
    return std::to_string(page < kSharedPage ? page + 1 : page + 2);
}

int StyleHeading(int page)
{
    return kFirstStyleRecord1 + page * kPageRecords;
}

int StyleRecord(int bank, int style)
{
    return StyleHeading(bank <= kSharedPage ? bank : bank - 1) + 1 + style;
}

} // namespace velluto::tool
