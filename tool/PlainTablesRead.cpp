// Reading. The writing is in PlainTables.cpp.
#include "tool/PlainTables.h"

#include "app/Characters.h"
#include "tool/SourceFault.h"
#include "tool/SourceText.h"

#include <optional>
#include <vector>

namespace velluto::tool {

namespace {

constexpr TwoTexts kNotFields{"servono %1 campi tra le virgole", "not %1 fields between commas"};
constexpr TwoTexts kNoGroup{"la riga non sta nel gruppo della sua banca", "not in a group of its bank"};
constexpr TwoTexts kOtherBank{"questo gruppo è della banca %1", "this group is of bank %1"};
constexpr TwoTexts kGroups{"i gruppi sono %1 e non %2", "%1 groups, not %2"};
constexpr TwoTexts kTooLong{"\"%1\" ha più di %2 lettere", "\"%1\" is longer than %2 letters"};
constexpr TwoTexts kStrange{"\"%1\" ha una lettera che la tabella non conosce", "\"%1\" has a letter that the table does not know"};
constexpr TwoTexts kNoHeading{"il titolo deve cominciare con una lettera", "a heading begins with a letter"};
constexpr TwoTexts kBlankInHeading{"il titolo non può avere uno spazio al terzo posto", "a heading has no blank in the third place"};
constexpr TwoTexts kSounds{"questo gruppo ha da 1 a %1 suoni", "this group has 1 to %1 sounds"};
constexpr TwoTexts kStyles{"questa pagina ha 16 Style", "this page has 16 Styles"};

struct Line {
    std::size_t number = 0;
    std::vector<std::string> fields;
};

struct Group {
    Line head;
    std::vector<Line> entries;
};

class PlainReader {
public:
    explicit PlainReader(const Speaker &speaker) : speaker_(speaker) {}

    // As many groups as there are names of banks, of these banks; entries with so many fields.
    [[nodiscard]] std::vector<Group> Read(std::string_view text, std::size_t fieldsOfEntry, const std::vector<std::string> &banks) const
    {
        std::vector<Group> groups;
        std::size_t number = 0;
        for (const std::string_view whole : LinesOf(text)) {
            constexpr std::string_view kGroup = "group ";
            const std::string_view line = Trimmed(whole);
            const bool isHead = line.starts_with(kGroup);
            Line entry{++number, Fields(number, isHead ? line.substr(kGroup.size()) : line)};
            if (isHead) {
                ExpectFields(entry, 2);
                groups.push_back({std::move(entry), {}});
            } else if (!entry.fields.empty()) {
                ExpectFields(entry, fieldsOfEntry);
                if (groups.empty() || entry.fields.front() != groups.back().head.fields.front()) {
                    Complain(entry, kNoGroup);
                }
                groups.back().entries.push_back(std::move(entry));
            }
        }
        if (groups.size() != banks.size()) {
            Complain({}, kGroups, {std::to_string(groups.size()), std::to_string(banks.size())});
        }
        for (std::size_t i = 0; i < banks.size(); ++i) {
            if (groups[i].head.fields.front() != banks[i]) {
                Complain(groups[i].head, kOtherBank, {banks[i]});
            }
        }
        return groups;
    }

    // As bytes of the table.
    [[nodiscard]] std::string Text(const Line &line, std::size_t field, std::size_t longest) const
    {
        const std::string &text = line.fields.at(field);
        std::string bytes;
        for (const char32_t character : CharactersOfText(text)) {
            const std::optional<char> byte = ByteOfCharacter(character);
            if (!byte || static_cast<unsigned char>(*byte) < ' ') {
                Complain(line, kStrange, {Printable(text)});
            }
            bytes += *byte;
        }
        if (bytes.size() > longest) {
            Complain(line, kTooLong, {text, std::to_string(longest)});
        }
        return bytes;
    }
    [[nodiscard]] int Number(const Line &line, std::size_t field) const
    {
        return AddressNumber(line.fields.at(field), line.number, speaker_);
    }
    [[nodiscard]] std::string Heading(const Line &head, std::size_t longest) const
    {
        std::string heading = Text(head, 1, longest);
        if (heading.empty() || (heading.front() >= '0' && heading.front() <= '9')) {
            Complain(head, kNoHeading);
        }
        return heading;
    }
    [[noreturn]] void Complain(const Line &line, const TwoTexts &text, std::initializer_list<std::string> inserts = {}) const
    {
        throw SourceFault(line.number, speaker_.Say(text, inserts));
    }

private:
    void ExpectFields(const Line &line, std::size_t count) const
    {
        if (line.fields.size() != count) {
            Complain(line, kNotFields, {std::to_string(count)});
        }
    }
    // The fields up to a remark; none of a line without any.
    [[nodiscard]] std::vector<std::string> Fields(std::size_t number, std::string_view line) const
    {
        std::vector<std::string> fields(1);
        bool isQuoted = false; // this field stands in quotes
        bool inQuotes = false;
        for (std::size_t at = 0; at < line.size() && (inQuotes || line[at] != '#'); ++at) {
            const char c = line[at];
            if (c == '"' && inQuotes && line.substr(at + 1).starts_with('"')) {
                fields.back() += c;
                ++at;
            } else if (c == '"' && (inQuotes || Trimmed(fields.back()).empty())) {
                fields.back() = inQuotes ? fields.back() : std::string();
                inQuotes = !inQuotes;
                isQuoted = true;
            } else if (c == ',' && !inQuotes) {
                Finish(fields.back(), isQuoted);
                isQuoted = false;
                fields.emplace_back();
            } else if (inQuotes || !isQuoted) {
                fields.back() += c;
            }
        }
        if (inQuotes) {
            ComplainOfOpenQuotes(number, speaker_);
        }
        Finish(fields.back(), isQuoted);
        return fields.size() == 1 && fields.front().empty() ? std::vector<std::string>{} : fields;
    }
    static void Finish(std::string &field, bool isQuoted)
    {
        if (!isQuoted) {
            field = std::string(Trimmed(field));
        }
    }

    Speaker speaker_;
};

} // namespace

RecordTable MakePrograms(std::string_view text, const Speaker &speaker)
{
    std::vector<std::string> banks;
    for (const SoundGroup &group : SoundGroups()) {
        banks.emplace_back(1, group.bank);
    }
    const PlainReader reader(speaker);
    const std::vector<Group> groups = reader.Read(text, 5, banks);
    RecordTable table = EmptyProgramTable();
    for (std::size_t i = 0; i < groups.size(); ++i) {
        const SoundGroup &places = SoundGroups()[i];
        const std::vector<Line> &entries = groups[i].entries;
        table.Put(places.heading, PcgField::Heading, reader.Heading(groups[i].head, PcgField::Heading.width));
        const auto room = static_cast<std::size_t>(places.sounds.last - places.sounds.first + 1);
        if (entries.empty() || entries.size() > room) {
            reader.Complain(groups[i].head, kSounds, {std::to_string(room)});
        }
        for (std::size_t place = 0; place < room; ++place) {
            const int record = places.sounds.first + static_cast<int>(place);
            const Line &sound = place < entries.size() ? entries[place] : entries.front();
            table.Put(record, PcgField::Name, place < entries.size() ? reader.Text(sound, 1, PcgField::Name.width) : std::string());
            PutAddress(table, record, {reader.Number(sound, 2), reader.Number(sound, 3), reader.Number(sound, 4)});
        }
    }
    return table;
}

RecordTable MakeStyles(std::string_view text, const Speaker &speaker)
{
    std::vector<std::string> banks;
    banks.reserve(kStylePages);
    for (int page = 0; page < kStylePages; ++page) {
        banks.push_back(StylePageName(page));
    }
    const PlainReader reader(speaker);
    const std::vector<Group> groups = reader.Read(text, 2, banks);
    RecordTable table = EmptyStyleTable();
    int record = StyleHeading(0);
    for (const Group &group : groups) {
        const std::string heading = reader.Heading(group.head, StyField::Heading.width);
        if (heading.size() > 2 && heading[2] == ' ') { // a click would take it for a Style
            reader.Complain(group.head, kBlankInHeading);
        }
        if (group.entries.size() != kStylesOnPage) {
            reader.Complain(group.head, kStyles);
        }
        table.Put(record++, StyField::Heading, heading);
        for (const Line &style : group.entries) {
            table.Put(record++, StyField::Name, reader.Text(style, 1, StyField::Name.width));
        }
    }
    return table;
}

} // namespace velluto::tool
