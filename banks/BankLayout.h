// Which records of the factory tables each factory window lists, and where its headings stand: numbers that the tables,
// the windows, recall and velluto-tool share. Records count from 1, rows from 0.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace velluto {

// A field of a factory record: 1-based first character and width.
struct RecordField {
    std::size_t position;
    std::size_t width;
};

// What there is of it: a record that was never read is empty.
[[nodiscard]] constexpr std::string_view Field(std::string_view record, RecordField field)
{
    return record.substr(std::min(field.position - 1, record.size()), field.width);
}

// The decimal number in a field, leading blanks skipped; text that holds none gives 0.
[[nodiscard]] constexpr int NumberIn(std::string_view record, RecordField field)
{
    std::string_view text = Field(record, field);
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') {
            break;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

// Of a Program's record, and of its heading's.
namespace PcgField {
inline constexpr RecordField Name{5, 13};
inline constexpr RecordField Heading{5, 18};
inline constexpr RecordField Msb{18, 3};
inline constexpr RecordField Lsb{22, 3};
inline constexpr RecordField Program{26, 3};
} // namespace PcgField

// The same of a Style.
namespace StyField {
inline constexpr RecordField Heading{6, 16};
inline constexpr RecordField Name{7, 15};
} // namespace StyField

struct RecordRange {
    int first = 0;
    int last = -1; // empty where it lies below first
    [[nodiscard]] constexpr bool Has(int record) const { return record >= first && record <= last; }
};

// A bank lists its records in ascending order, one row each; row r is record r + records.first. The numbers of its items
// begin again behind each group of heading records.
struct FactoryBank {
    int kind = 0; // ViewKind
    RecordRange records;
    std::array<RecordRange, 4> headings;

    [[nodiscard]] constexpr bool IsHeading(int record) const
    {
        return std::ranges::any_of(headings, [record](const RecordRange &range) { return range.Has(record); });
    }
};

// The records between two banks are in no window.
inline constexpr std::array<FactoryBank, 6> kFactoryBanks = {{
    {2, {1, 117}, {{{1, 2}, {35, 37}, {64, 66}, {99, 101}}}},
    {3, {119, 252}, {{{119, 120}, {166, 168}, {170, 172}}}},
    {4, {254, 404}, {{{254, 255}, {327, 329}, {353, 355}}}},
    {5, {406, 513}, {{{406, 407}, {424, 426}, {469, 471}}}},
    {6, {515, 640}, {{{515, 516}, {587, 589}}}},
    {7, {642, 745}, {{{642, 643}, {693, 695}}}},
}};

// A factory Style list is four groups of rows, each two pages of sixteen Styles under a heading record of their own.
inline constexpr int kStyleGroups = 4;
inline constexpr int kStylesOnPage = 16;

// The first records of the two lists. The last seventeen of the first list are the first of the second, on purpose.
inline constexpr int kFirstStyleRecord1 = 2;
inline constexpr int kFirstStyleRecord2 = 121;

} // namespace velluto
