// Lists as CSV.
#include "tool/SoundList.h"

#include "app/Paths.h"
#include "tool/SourceFault.h"
#include "tool/SourceText.h"

#include <algorithm>
#include <array>

namespace velluto::tool {

namespace {

constexpr TwoTexts kNoColumn{"manca la colonna %1", "the column %1 is missing"};
constexpr TwoTexts kNoKind{"kind: \"%1\" non è né program né style", "kind: \"%1\" is neither program nor style"};
constexpr TwoTexts kNoStyle{"uno Style ha msb 0, lsb e program da 0 a 15", "a Style has msb 0, lsb and program from 0 to 15"};
constexpr TwoTexts kNoNames{"il file non dà nessun nome", "the file names nothing"};

constexpr std::array<std::string_view, 5> kColumns{"msb", "lsb", "program", "name", "kind"};
enum Column : std::uint8_t { Msb, Lsb, Program, Name, KindOfSound };

struct Row {
    std::size_t line = 0;
    std::vector<std::string> fields;
};

// The sign that the first line has most of.
char SeparatorOf(std::string_view text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    char best = ',';
    for (const char sign : {';', '\t'}) {
        best = std::ranges::count(line, sign) > std::ranges::count(line, best) ? sign : best;
    }
    return best;
}

// Rows of fields. Quotes hold separators, line ends, and themselves when they are doubled.
std::vector<Row> RowsIn(std::string_view text, const Speaker &speaker)
{
    const char separator = SeparatorOf(text);
    std::vector<Row> rows{{1, {""}}};
    std::size_t line = 1;
    bool inQuotes = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        std::string &field = rows.back().fields.back();
        line += c == '\n' ? 1 : 0;
        if (c == '"' && inQuotes && text.substr(at + 1).starts_with('"')) {
            field += c;
            ++at;
        } else if (c == '"' && (inQuotes || Trimmed(field).empty())) {
            inQuotes = !inQuotes;
        } else if (inQuotes || (c != separator && c != '\n')) {
            field += c;
        } else if (c == separator) {
            rows.back().fields.emplace_back();
        } else {
            rows.push_back({line, {""}});
        }
    }
    if (inQuotes) {
        ComplainOfOpenQuotes(rows.back().line, speaker);
    }
    std::erase_if(rows, [](const Row &row) {
        return std::ranges::all_of(row.fields, [](const std::string &field) { return Trimmed(field).empty(); });
    });
    return rows;
}

// The fields of a row under the names of the columns.
class Columns {
public:
    // In their own order, or in that of the headings, which are then taken off the rows.
    Columns(std::vector<Row> &rows, const Speaker &speaker) : speaker_(speaker)
    {
        for (std::size_t i = 0; i < kColumns.size(); ++i) {
            at_.at(i) = i;
        }
        if (rows.empty() || !IsHeading(rows.front())) {
            return;
        }
        for (std::size_t i = 0; i < kColumns.size(); ++i) {
            const auto found = std::ranges::find_if(rows.front().fields,
                                                    [&](const std::string &field) { return LowerCase(Trimmed(field)) == kColumns.at(i); });
            at_.at(i) = found == rows.front().fields.end() ? kNowhere : static_cast<std::size_t>(found - rows.front().fields.begin());
            if (at_.at(i) == kNowhere && i != KindOfSound) {
                throw SourceFault(rows.front().line, speaker_.Say(kNoColumn, {std::string(kColumns.at(i))}));
            }
        }
        rows.erase(rows.begin());
    }

    [[nodiscard]] std::string_view Text(const Row &row, Column column) const
    {
        const std::size_t at = at_.at(column);
        if (at < row.fields.size()) {
            return Trimmed(row.fields[at]);
        }
        if (column == KindOfSound) {
            return {};
        }
        throw SourceFault(row.line, speaker_.Say(kNoColumn, {std::string(kColumns.at(column))}));
    }
    [[nodiscard]] int Number(const Row &row, Column column) const
    {
        return AddressNumber(Text(row, column), row.line, speaker_, kColumns.at(column));
    }

private:
    static constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

    static bool IsHeading(const Row &row)
    {
        return std::ranges::any_of(row.fields, [](const std::string &field) { return LowerCase(Trimmed(field)) == kColumns[Program]; });
    }

    Speaker speaker_;
    std::array<std::size_t, kColumns.size()> at_{};
};

bool IsStyleAddress(const SoundAddress &address)
{
    return address.msb == 0 && address.lsb < kStyleBanks && address.program < kStylesOnPage;
}

// A Style where the kind says so, or where nothing is said and the address is one.
bool IsStyle(const Row &row, std::string_view kind, const SoundAddress &address, const Speaker &speaker)
{
    const std::string word = LowerCase(kind);
    if (!word.empty() && word != "program" && word != "style") {
        throw SourceFault(row.line, speaker.Say(kNoKind, {Printable(kind)}));
    }
    if (word == "style" && !IsStyleAddress(address)) {
        throw SourceFault(row.line, speaker.Say(kNoStyle));
    }
    return word != "program" && IsStyleAddress(address);
}

} // namespace

std::vector<ListedSound> ReadCsv(std::string_view text, const Speaker &speaker)
{
    std::vector<Row> rows = RowsIn(WithoutMark(text), speaker);
    const Columns columns(rows, speaker);
    std::vector<ListedSound> sounds;
    for (const Row &row : rows) {
        ListedSound sound;
        sound.address = {columns.Number(row, Msb), columns.Number(row, Lsb), columns.Number(row, Program)};
        sound.name = TableName(columns.Text(row, Name));
        sound.isStyle = IsStyle(row, columns.Text(row, KindOfSound), sound.address, speaker);
        if (!sound.name.empty()) {
            sounds.push_back(sound);
        }
    }
    if (sounds.empty()) {
        throw SourceFault(0, speaker.Say(kNoNames));
    }
    return sounds;
}

} // namespace velluto::tool
