#include "banks/FactoryRows.h"

#include "app/FixedText.h"
#include "app/ViewKind.h"
#include "banks/BankLayout.h"

namespace velluto {

namespace {

const std::string kBlankRow(1, ' ');

std::string TwoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

// A heading, a blank row and sixteen Styles, from the record on. Leaves record behind the last one taken.
template <class Table>
void AddPage(std::vector<std::string> &rows, const Table &table, std::size_t &record)
{
    rows.emplace_back(RightTrimmed(Field(table.at(record++), StyField::Heading)));
    rows.push_back(kBlankRow);
    for (int number = 1; number <= kStylesOnPage; ++number) {
        rows.push_back(TwoDigits(number) + "  " + std::string(RightTrimmed(Field(table.at(record++), StyField::Name))));
    }
}

} // namespace

std::vector<std::string> FactoryProgramRows(const FactoryTables &tables, int kind)
{
    std::vector<std::string> rows;
    const auto *const bank = std::ranges::find(kFactoryBanks, kind, &FactoryBank::kind);
    if (bank == kFactoryBanks.end()) {
        return rows;
    }
    int number = 0;
    for (int record = bank->records.first; record <= bank->records.last; ++record) {
        const std::string_view text = tables.PcgTable.at(static_cast<std::size_t>(record));
        if (bank->IsHeading(record)) {
            rows.emplace_back(Field(text, PcgField::Heading));
            number = 0;
        } else {
            rows.push_back(TwoDigits(++number) + ' ' + std::string(Field(text, PcgField::Name)));
        }
    }
    return rows;
}

std::vector<std::string> FactoryStyleRows(const FactoryTables &tables, int kind)
{
    std::vector<std::string> rows;
    std::size_t record = kind == ViewKind::FactoryStyles1 ? kFirstStyleRecord1 : kFirstStyleRecord2;
    for (int group = 0; group < kStyleGroups; ++group) {
        AddPage(rows, tables.StyTable, record);
        rows.push_back(kBlankRow);
        AddPage(rows, tables.StyTable, record);
    }
    return rows;
}

} // namespace velluto
